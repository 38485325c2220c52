#include "core/text/cSharedText.h"

#include "core/text/TextBasics.h"

#include <QStringMatcher>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString::iterator endOf(QString& text, qsizetype count) {
  return count > 0 && count < text.size() ? text.begin() + count : text.end();
}

bool isCrap(QChar character) {
  return character == u'\r' || character == u'\n' || character == u' ' || character == u'-';
}

void replaceEach(QString& text, bool (*wanted)(QChar)) {
  std::replace_if(text.begin(), text.end(), wanted, QChar(u' '));
}

bool isLineEnd(QChar character) {
  return character == u'\r' || character == u'\n';
}

bool isAsciiAlphaNumeric(QChar character) {
  return character.unicode() < 0x80 && character.isLetterOrNumber();
}

}  // namespace

QString cSharedText::JoinStrings(QStringView a, QStringView b) const {
  QString joined;
  joined.reserve(a.size() + b.size());
  return joined.append(a).append(b);
}

void cSharedText::ToUpper(QString& text, qsizetype count) const {
  std::transform(text.begin(), endOf(text, count), text.begin(), TextBasics::upper);
}

void cSharedText::ToLower(QString& text, qsizetype count) const {
  std::transform(text.begin(), endOf(text, count), text.begin(), TextBasics::lower);
}

void cSharedText::CopyString(QStringView from, QString& to, qsizetype count) const {
  to = (count > 0 && count < from.size() ? from.first(count) : from).toString();
}

void cSharedText::AddQuotes(QString& text) const {
  text = u'"' + text + u'"';
}

void cSharedText::AddSingleQuotes(QString& text) const {
  text = u'\'' + text + u'\'';
}

void cSharedText::RemoveQuotes(QString& text) const {
  const bool quoted = text.size() > 1 && text.front() == text.back() && (text.front() == u'"' || text.front() == u'\'');
  if (quoted) {
    text = text.sliced(1, text.size() - 2);
  }
}

void cSharedText::StripDblQuotes(QString& text) const {
  if (text.startsWith(u'"')) {
    text.remove(0, 1);
  }
  if (text.endsWith(u'"')) {
    text.chop(1);
  }
}

bool cSharedText::StringsEqual(QStringView a, QStringView b) const {
  return Blanks::compare(a, b) == 0;
}

bool cSharedText::StringLower(QStringView a, QStringView b) const {
  return Blanks::compare(a, b) < 0;
}

bool cSharedText::StringHigher(QStringView a, QStringView b) const {
  return Blanks::compare(a, b) > 0;
}

qsizetype cSharedText::SubstringLocation(QStringView text, QStringView find, qsizetype start) const {
  return TextBasics::find(text, find, std::max<qsizetype>(start, 1) - 1) + 1;
}

qsizetype cSharedText::SubstringLocationRev(QStringView text, QStringView find, qsizetype start) const {
  const QStringView searched = start > 0 && start < text.size() ? text.first(start) : text;
  if (find.isEmpty()) {
    return searched.size();
  }
  return searched.lastIndexOf(find, -1, Qt::CaseInsensitive) + 1;
}

qsizetype cSharedText::CountStringInString(QStringView text, QStringView find) const {
  if (find.isEmpty()) {
    return 0;
  }
  const QStringMatcher matcher(find, Qt::CaseInsensitive);
  qsizetype count = 0;
  for (qsizetype at = matcher.indexIn(text); at >= 0; at = matcher.indexIn(text, at + 1)) {
    ++count;
  }
  return count;
}

void cSharedText::SentenceCase(QString& text) const {
  QChar before = u' ';
  for (QChar& character : text) {
    character = before == u' ' || before == u'-' ? TextBasics::upper(character) : TextBasics::lower(character);
    before = character;
  }
}

void cSharedText::FirstLetterUpperCase(QString& text) const {
  ToLower(text);
  ToUpper(text, 1);
}

void cSharedText::EatCrapFromEnd(QString& text) const {
  while (!text.isEmpty() && isCrap(text.back())) {
    text.chop(1);
  }
}

void cSharedText::EatCrapFromStart(QString& text) const {
  text.remove(0, std::find_if_not(text.cbegin(), text.cend(), isCrap) - text.cbegin());
}

void cSharedText::TrimNull(QString& text) const {
  text = cTrim(text);
}

QString cSharedText::cTrim(QStringView text) const {
  const qsizetype nul = text.indexOf(u'\0');
  return TextBasics::trimmedRight(nul < 0 ? text : text.first(nul)).toString();
}

void cSharedText::TrimcTrim(QString& text) const {
  TrimNull(text);
  TextBasics::trim(text);
}

void cSharedText::RemoveCRLFFromEnd(QString& text) const {
  while (text.endsWith(u"\r\n"_s)) {
    text.chop(2);
  }
}

void cSharedText::RemoveNonAlphaNumeric(QString& text) const {
  text.removeIf([](QChar character) { return character != u' ' && !isAsciiAlphaNumeric(character); });
  TrimcTrim(text);
}

void cSharedText::RemoveDoubleSpaces(QString& text) const {
  const auto bothBlank = [](QChar a, QChar b) { return a == u' ' && b == u' '; };
  text.truncate(std::unique(text.begin(), text.end(), bothBlank) - text.begin());
}

void cSharedText::CRLFToSpaces(QString& text) const {
  replaceEach(text, isLineEnd);
}

void cSharedText::CleanCRLF(QString& text) const {
  text = TextBasics::replaceAll(text, u"\r\n", u" ", Qt::CaseSensitive);
  replaceEach(text, isLineEnd);
}

void cSharedText::RemovePunctuation(QString& text) const {
  text.removeIf([](QChar character) { return u",!:.?-'\""_s.contains(character); });
  TextBasics::trim(text);
}

cSharedText& TextTools() {
  static cSharedText textTools;
  return textTools;
}
