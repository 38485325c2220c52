#include "core/text/RtfListTable.h"

#include <algorithm>

namespace {

/// What the paragraphs can name.
constexpr qsizetype kMaxLists = 2000;

bool isAlike(ListMark a, const ListMark& b) {
  a.start = b.start;
  return a == b;
}

}  // namespace

void RtfListTable::add(const RichText& text) {
  State state;
  QList<int> numbers;
  for (qsizetype i = 0; i < text.paragraphCount(); ++i) {
    const ListMark& mark = text.paragraph(i).format->list;
    if (mark.style != ListMark::Style::None) {
      numbers.resize(i + 1);
      numbers[i] = next(state, mark);
    } else if (!numbers.isEmpty()) {
      state.numbering.endLists();
      state.numbers = {};
    }
  }
  if (!numbers.isEmpty()) {
    numbers_.insert(&text, numbers);
  }
}

int RtfListTable::numberOf(const RichText& text, qsizetype paragraph) const {
  const auto numbers = numbers_.constFind(&text);
  return numbers == numbers_.constEnd() ? 0 : numbers->value(paragraph);
}

int RtfListTable::next(State& state, const ListMark& mark) {
  const auto at = static_cast<size_t>(mark.level);
  const int number = state.numbering.next(mark);
  if (!goesOn(state, mark, number)) {
    if (lists_.size() == kMaxLists) {
      state.list = 0;
      return 0;
    }
    begin(state, mark);
  }
  Level& level = lists_[state.list - 1][at];
  if (level.mark.style == ListMark::Style::None) {
    level = {mark, std::max(number, 1), parentsOf(state, mark)};
  }
  state.marks[at] = mark;
  for (Numbers* const counted : {&state.numbers, &state.shown}) {
    (*counted)[at] = number;
    std::fill(counted->begin() + mark.level + 1, counted->end(), 0);
  }
  return state.list;
}

unsigned RtfListTable::parentsOf(const State& state, const ListMark& mark) {
  unsigned parents = 0;
  for (int level = 0; level < mark.level && mark.withParents; ++level) {
    parents |= state.numbers[static_cast<size_t>(level)] > 0 ? 1U << level : 0;
  }
  return parents;
}

/// Whether the table's readers mark the item as it shall be when it is one more of the list that is open.
bool RtfListTable::goesOn(const State& state, const ListMark& mark, int number) const {
  if (state.list == 0) {
    return false;
  }
  const List& list = lists_[state.list - 1];
  const unsigned parents = parentsOf(state, mark);
  for (size_t level = 0; level < list.size(); ++level) {
    const bool isCounted = list[level].mark.style != ListMark::Style::None;
    const int shown = state.shown[level] > 0 ? state.shown[level] : list[level].start;
    if ((parents >> level & 1) != 0 && (!isCounted || shown != state.numbers[level])) {
      return false;
    }
  }
  const auto at = static_cast<size_t>(mark.level);
  const Level& level = list[at];
  if (level.mark.style == ListMark::Style::None) {
    return true;
  }
  const int shown = state.shown[at] > 0 ? state.shown[at] + 1 : level.start;
  return isAlike(level.mark, mark) && level.parents == parents && (!mark.isNumbered() || shown == number);
}

/// Levels above that have no item in this list stand in front of the item's number with the number that they begin at.
void RtfListTable::begin(State& state, const ListMark& mark) {
  List list;
  const unsigned parents = parentsOf(state, mark);
  for (size_t level = 0; level < list.size(); ++level) {
    if ((parents >> level & 1) != 0) {
      list[level] = {state.marks[level], state.numbers[level], 0};
    }
  }
  lists_.append(list);
  state.list = static_cast<int>(lists_.size());
  state.shown = {};
}
