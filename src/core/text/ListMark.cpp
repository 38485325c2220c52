#include "core/text/ListMark.h"

#include "core/text/RtfCodePages.h"

#include <QHashFunctions>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMaxWords = 64;
constexpr int kMaxStart = 32767;
constexpr int kLetters = 26;

struct RomanDigit {
  int value;
  const char* capital;
};
constexpr RomanDigit kRoman[] = {{1000, "M"}, {900, "CM"}, {500, "D"}, {400, "CD"}, {100, "C"}, {90, "XC"}, {50, "L"},
                                 {40, "XL"},  {10, "X"},   {9, "IX"},  {5, "V"},    {4, "IV"},  {1, "I"}};
constexpr int kMaxRoman = 3999;

QString cleanWords(QString words) {
  words.removeIf([](QChar unit) { return unit.unicode() < 0x20 || unit == QChar(QChar::ObjectReplacementCharacter); });
  return words.left(kMaxWords);
}

QString roman(int number) {
  QString told;
  for (const RomanDigit& digit : kRoman) {
    for (; number >= digit.value; number -= digit.value) {
      told += QLatin1StringView(digit.capital);
    }
  }
  return told;
}

/// a to z, then aa to zz.
QString letters(int number) {
  return QString((number - 1) / kLetters + 1, QChar(u'A' + (number - 1) % kLetters));
}

int ofLetters(QStringView capitals) {
  const QChar first = capitals[0];
  const bool isOne = first >= u'A' && first <= u'Z' &&
                     std::all_of(capitals.begin(), capitals.end(), [first](QChar unit) { return unit == first; });
  return isOne ? static_cast<int>(capitals.size() - 1) * kLetters + first.unicode() - u'A' + 1 : 0;
}

int ofRoman(QStringView capitals) {
  int number = 0;
  QStringView rest = capitals;
  for (const RomanDigit& digit : kRoman) {
    for (const QLatin1StringView word(digit.capital); rest.startsWith(word) && number < kMaxRoman;
         rest = rest.sliced(word.size())) {
      number += digit.value;
    }
  }
  return rest.isEmpty() && number <= kMaxRoman && roman(number) == capitals ? number : 0;
}

/// Signs of symbol fonts have the numbers of their private area; the usual round one needs no such font.
void simplifyBullet(ListMark& mark) {
  if (!isSymbolFont(mark.fontName)) {
    return;
  }
  for (QChar& unit : mark.before) {
    unit = unit.unicode() > 0x20 && unit.unicode() < 0x100 ? QChar(0xF000 + unit.unicode()) : unit;
  }
  if (mark.before == QChar(0xF0B7)) {
    mark.before = ListMark::bullet().before;
    mark.fontName.clear();
  }
}

}  // namespace

ListMark normalised(ListMark mark) {
  if (mark.style == ListMark::Style::None) {
    return {};
  }
  mark.level = std::clamp(mark.level, 0, ListMark::kLevels - 1);
  mark.before = cleanWords(std::move(mark.before));
  if (mark.isNumbered()) {
    mark.start = std::clamp(mark.start, 0, kMaxStart);
    mark.after = cleanWords(std::move(mark.after));
    mark.fontName.clear();
    return mark;
  }
  mark.start = 0;
  mark.withParents = false;
  mark.after.clear();
  if (mark.before.isEmpty()) {
    mark.before = ListMark::bullet().before;
  }
  simplifyBullet(mark);
  return mark;
}

size_t qHash(const ListMark& mark, size_t seed) noexcept {
  return mark.style == ListMark::Style::None
             ? seed
             : qHashMulti(seed, int(mark.style), mark.level, mark.start, mark.before, mark.after);
}

void ListNumbering::endLists() {
  if (std::exchange(isInList_, false)) {
    counters_ = {};
  }
}

int ListNumbering::next(const ListMark& mark) {
  if (mark.style == ListMark::Style::None) {
    endLists();
    return 0;
  }
  isInList_ = true;
  const auto level = static_cast<size_t>(mark.level);
  std::fill(counters_.begin() + mark.level + 1, counters_.end(), Counter());
  Counter& counter = counters_[level];
  if (!mark.isNumbered()) {
    counter = {};
    return 0;
  }
  const bool goesOn = counter.style == mark.style && counter.before == mark.before && counter.after == mark.after;
  counter = {mark.start > 0 ? mark.start : goesOn ? counter.number + 1 : 1, mark.style, mark.before, mark.after};
  return counter.number;
}

QString ListNumbering::label(const ListMark& mark) const {
  if (!mark.isNumbered()) {
    return mark.before;
  }
  QString numbers;
  for (int level = 0; level < mark.level && mark.withParents; ++level) {
    const Counter& parent = counters_[static_cast<size_t>(level)];
    if (parent.number > 0) {
      numbers += numeral(parent.style, parent.number) + u'.';
    }
  }
  numbers += numeral(mark.style, counters_[static_cast<size_t>(mark.level)].number);
  return mark.before + numbers + mark.after;
}

QString ListNumbering::numeral(ListMark::Style style, int number) {
  using Style = ListMark::Style;
  constexpr int kMaxLetters = kLetters * 20;
  const bool isLetter = style == Style::UpperLetter || style == Style::LowerLetter;
  const bool isRoman = style == Style::UpperRoman || style == Style::LowerRoman;
  if (number < 1 || (isLetter && number > kMaxLetters) || (isRoman && number > kMaxRoman) || !(isLetter || isRoman)) {
    return QString::number(number);
  }
  const QString capitals = isLetter ? letters(number) : roman(number);
  return style == Style::UpperLetter || style == Style::UpperRoman ? capitals : capitals.toLower();
}

int ListNumbering::numberOf(ListMark::Style style, QStringView numeral) {
  using Style = ListMark::Style;
  if (numeral.isEmpty()) {
    return 0;
  }
  bool isNumber = false;
  const int number = numeral.toInt(&isNumber);
  if (isNumber || style == Style::Decimal) {
    return std::max(number, 0);
  }
  const QString capitals = numeral.toString().toUpper();
  const bool isLetter = style == Style::UpperLetter || style == Style::LowerLetter;
  return isLetter ? ofLetters(capitals) : ofRoman(capitals);
}
