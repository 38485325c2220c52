#include "core/text/RtfLists.h"

#include <algorithm>

namespace {

constexpr qsizetype kMaxLists = 1 << 14;

bool isPlaceholder(QChar unit) {
  return unit.unicode() < ListMark::kLevels;
}

ListMark::Style styleOf(int levelStyle) {
  using Style = ListMark::Style;
  constexpr Style kStyles[] = {Style::Decimal, Style::UpperRoman, Style::LowerRoman, Style::UpperLetter,
                               Style::LowerLetter};
  constexpr int kBullet = 23;
  constexpr int kNone = 255;
  if (levelStyle >= 0 && levelStyle < static_cast<int>(std::size(kStyles))) {
    return kStyles[levelStyle];
  }
  return levelStyle == kBullet ? Style::Bullet : levelStyle == kNone ? Style::None : Style::Decimal;
}

bool isAlphanumeric(QChar unit) {
  return unit.isLetterOrNumber();
}

/// The style whose numeral this is.
ListMark::Style styleOfNumeral(QStringView numeral) {
  using Style = ListMark::Style;
  const bool isSmall = numeral[0].isLower();
  const Style roman = isSmall ? Style::LowerRoman : Style::UpperRoman;
  const Style letter = isSmall ? Style::LowerLetter : Style::UpperLetter;
  if (std::all_of(numeral.begin(), numeral.end(), [](QChar unit) { return unit.isDigit(); })) {
    return Style::Decimal;
  }
  // A single c or d is a letter sooner than a hundred; an i, a v or an x is a number.
  const bool isLikelyRoman = numeral.size() > 1 || QStringView(u"ivxIVX").contains(numeral[0]);
  if (isLikelyRoman && ListNumbering::numberOf(roman, numeral) > 0) {
    return roman;
  }
  return ListNumbering::numberOf(letter, numeral) > 0 ? letter : Style::None;
}

/// A number in a symbol font is a number still.
QString withoutSymbols(QStringView label) {
  QString letters = label.toString();
  for (QChar& unit : letters) {
    unit = unit.unicode() > 0xF000 && unit.unicode() < 0xF080 ? QChar(unit.unicode() - 0xF000) : unit;
  }
  return letters;
}

}  // namespace

ListMark* RtfLists::level() {
  return levels_.isEmpty() ? nullptr : &levels_.last();
}

void RtfLists::part(RtfListPart part, int value) {
  switch (part) {
    case RtfListPart::List:
      levels_.clear();
      isNaming_ = false;
      return;
    case RtfListPart::ListLevel:
      if (levels_.size() < ListMark::kLevels) {
        levels_.append(ListMark());
        levels_.last().level = static_cast<int>(levels_.size()) - 1;
      }
      return;
    case RtfListPart::LevelStyle:
      if (level() != nullptr) {
        level()->style = styleOf(value);
      }
      return;
    case RtfListPart::ListId:
      if (isNaming_) {
        named_ = value;
      } else if (lists_.size() < kMaxLists) {
        lists_.insert(value, levels_);
      }
      return;
    case RtfListPart::Override:
      isNaming_ = true;
      return;
    default:
      return;
  }
}

void RtfLists::levelText(QStringView template_) {
  if (level() == nullptr || template_.isEmpty()) {
    return;
  }
  const QStringView text = template_.sliced(1).first(std::min<qsizetype>(template_[0].unicode(), template_.size() - 1));
  const auto* const first = std::find_if(text.begin(), text.end(), isPlaceholder);
  if (first == text.end()) {
    level()->before = text.toString();
    return;
  }
  const auto last = std::find_if(text.rbegin(), text.rend(), isPlaceholder);
  level()->before = text.first(first - text.begin()).toString();
  level()->after = text.sliced(last.base() - text.begin()).toString();
  level()->withParents = last.base() - 1 != first;
}

void RtfLists::levelFont(const QString& name) {
  if (level() != nullptr) {
    level()->fontName = name;
  }
}

void RtfLists::name(int number) {
  if (isNaming_ && numbers_.size() < kMaxLists) {
    numbers_.insert(number, named_);
  }
}

ListMark RtfLists::mark(int number, int level) const {
  const auto list = lists_.constFind(numbers_.value(number, 0));
  return list == lists_.constEnd() ? ListMark() : list->value(std::clamp(level, 0, ListMark::kLevels - 1));
}

ListMark RtfLists::guess(QStringView label) {
  label = label.trimmed();
  ListMark mark;
  if (label.isEmpty()) {
    return mark;
  }
  const auto end = std::find_if(label.rbegin(), label.rend(), isAlphanumeric).base();
  auto begin = end;
  while (begin != label.begin() && isAlphanumeric(*(begin - 1))) {
    --begin;
  }
  const QStringView numeral = label.sliced(begin - label.begin(), end - begin);
  // A sign by itself is a bullet, and so is the round letter that word processors use for one.
  const bool isSign = numeral.isEmpty() || label == u"o";
  mark.style = isSign ? ListMark::Style::None : styleOfNumeral(numeral);
  if (mark.style == ListMark::Style::None) {
    mark.style = ListMark::Style::Bullet;
    mark.before = label.toString();
    return mark;
  }
  mark.before = label.first(begin - label.begin()).toString();
  mark.after = label.sliced(end - label.begin()).toString();
  return mark;
}

int RtfLists::numberIn(const ListMark& mark, QStringView written) {
  const QString letters = withoutSymbols(written);
  QStringView label = QStringView(letters).trimmed();
  const QStringView before = QStringView(mark.before).trimmed();
  const QStringView after = QStringView(mark.after).trimmed();
  if (!mark.isNumbered() || label.size() < before.size() + after.size() || !label.startsWith(before) ||
      !label.endsWith(after)) {
    return 0;
  }
  QStringView numeral = label.sliced(before.size()).chopped(after.size());
  numeral = numeral.sliced(numeral.lastIndexOf(u'.') + 1).trimmed();
  return ListNumbering::numberOf(mark.style, numeral);
}
