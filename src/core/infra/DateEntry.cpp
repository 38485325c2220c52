#include "core/infra/DateEntry.h"

#include "core/infra/cSharedLang.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A number with zeros in front up to this length.
QString padded(int number, int length) {
  return QString::number(number).rightJustified(length, u'0');
}

bool isDigit(QChar character) {
  return character >= u'0' && character <= u'9';
}

bool movesOn(QChar character) {
  return character == u'-' || character == u'.' || character == u'/';
}

}  // namespace

DateEntry::DateEntry(bool monthFirst, QString separator, const QDate& start)
    : monthFirst_(monthFirst), separator_(std::move(separator)) {
  texts_[monthBox()] = padded(start.month(), 2);
  texts_[dayBox()] = padded(start.day(), 2);
  texts_[Year] = padded(start.year(), 4);
}

QString DateEntry::orderString() const {
  return monthFirst_ ? shownText(u"MM/DD"_s) : shownText(u"DD/MM"_s);
}

QString DateEntry::joined() const {
  return texts_[First] + separator_ + texts_[Second] + separator_ + texts_[Year];
}

QString DateEntry::takeMessage() {
  return std::exchange(message_, {});
}

DateEntry::Outcome DateEntry::press(Key key, QChar character) {
  switch (key) {
    case Key::Enter:
      return pressEnter();
    case Key::Cancel:
      result_.reset();
      return Outcome::Cancelled;
    case Key::Accept:
      return accept();
    case Key::Backspace:
      return pressBackspace();
    case Key::Character:
      return pressCharacter(character);
  }
  return Outcome::Done;
}

DateEntry::Outcome DateEntry::pressEnter() {
  for (const Box box : {First, Second, Year}) {
    if (texts_[box].isEmpty()) {
      focus_ = box;
      return Outcome::Done;
    }
  }
  if (texts_[Year].size() >= maxLength(Year)) {
    return accept();
  }
  // The user sees the guessed century before Enter takes it.
  focus_ = Year;
  if (!expandYear()) {
    message_ = shownText(u"Year must be 2 or 4 digits. If you enter 2 digits I will guess at the century."_s);
  }
  return Outcome::Done;
}

bool DateEntry::expandYear() {
  constexpr int kFirstOfLastCentury = 90;
  if (texts_[Year].size() != 2) {
    return false;
  }
  const int year = texts_[Year].toInt();
  texts_[Year] = padded(year + (year >= kFirstOfLastCentury ? 1900 : 2000), 4);
  return true;
}

DateEntry::Outcome DateEntry::pressBackspace() {
  if (focus_ == First || !texts_[focus_].isEmpty()) {
    return Outcome::PassOn;
  }
  focus_ = focus_ == Year ? Second : First;
  return Outcome::Done;
}

DateEntry::Outcome DateEntry::pressCharacter(QChar character) {
  if (isDigit(character)) {
    return Outcome::PassOn;
  }
  if (movesOn(character) && focus_ != Year) {
    focus_ = focus_ == First ? Second : Year;
  }
  return Outcome::Done;
}

bool DateEntry::leave(Box box) {
  constexpr int kMonths = 12;
  if (box == Year) {
    return true;
  }
  if (texts_[box].size() == 1) {
    texts_[box].prepend(u'0');
  }
  if (box == monthBox() && texts_[box].toInt() > kMonths) {
    focus_ = box;
    return false;
  }
  return true;
}

DateEntry::Outcome DateEntry::accept() {
  constexpr int kFirstYear = 100;
  expandYear();
  const QDate date(texts_[Year].toInt(), texts_[monthBox()].toInt(), texts_[dayBox()].toInt());
  if (!date.isValid() || date.year() < kFirstYear) {
    message_ = shownText(u"Invalid Date"_s);
    return Outcome::Done;
  }
  result_ = date;
  return Outcome::Accepted;
}
