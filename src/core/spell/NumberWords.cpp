#include "core/spell/NumberWords.h"

#include "core/infra/Numbers.h"

#include <QDate>
#include <QTime>
#include <QVariant>

#include <algorithm>
#include <optional>
#include <vector>

namespace {

bool isDigit(QChar character) {
  return character >= u'0' && character <= u'9';
}

/// The whole numbers between separators of one kind; nothing when a piece isn't one to four figures.
std::optional<std::vector<int>> pieces(QStringView word, QChar separator) {
  constexpr qsizetype kMostFigures = 4;
  std::vector<int> numbers;
  for (const QStringView piece : word.split(separator)) {
    if (piece.isEmpty() || piece.size() > kMostFigures || !std::all_of(piece.begin(), piece.end(), isDigit)) {
      return {};
    }
    numbers.push_back(piece.toInt());
  }
  return numbers;
}

/// A year of two figures, too: those of the present century have the same leap years.
bool isDay(int year, int month, int day) {
  constexpr int kCentury = 2000;
  return QDate::isValid(year < 100 ? year + kCentury : year, month, day);
}

bool isDayOf(const std::vector<int>& p) {
  // Leap years have every day that there is.
  constexpr int kLeapYear = 2000;
  if (p.size() == 2) {
    return isDay(kLeapYear, p[0], p[1]) || isDay(kLeapYear, p[1], p[0]);
  }
  return p.size() == 3 && (isDay(p[2], p[1], p[0]) || isDay(p[2], p[0], p[1]) || isDay(p[0], p[1], p[2]));
}

bool isTime(QStringView word) {
  bool halfDay = false;
  for (const QStringView half : {QStringView(u"am"), QStringView(u"pm")}) {
    if (word.endsWith(half, Qt::CaseInsensitive)) {
      word.chop(half.size());
      halfDay = true;
      break;
    }
  }
  std::vector<int> p = pieces(word, u':').value_or(std::vector<int>());
  if (p.empty() || p.size() > 3 || (p.size() == 1 && !halfDay) || (halfDay && p[0] > 12)) {
    return false;
  }
  p.resize(3);
  return QTime::isValid(p[0], p[1], p[2]);
}

}  // namespace

bool NumberWords::isNumeric(QStringView word) {
  const auto isOfANumber = [](QChar c) { return isDigit(c) || QStringView(u"+-.,eE").contains(c); };
  if (word.isEmpty() || !std::all_of(word.begin(), word.end(), isOfANumber) || word.startsWith(u',')) {
    return false;
  }
  return Numbers::ToNumber(word.toString().remove(u',')).has_value();
}

bool NumberWords::isDate(QStringView word) {
  if (word.isEmpty() || !isDigit(word.front())) {
    return false;
  }
  for (const QChar separator : {u'/', u'-', u'.'}) {
    const auto numbers = pieces(word, separator);
    if (numbers && isDayOf(*numbers)) {
      return true;
    }
  }
  return isTime(word);
}
