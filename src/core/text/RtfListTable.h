#pragma once

#include "core/text/RichText.h"

#include <QHash>
#include <QList>

#include <array>

/// The lists that a text declares ahead of its body. Rich text marks each paragraph by itself; word processors number a
/// list by its entry in a table. Here the paragraphs are put together to lists such that those who count by the table
/// get the same numbers.
class RtfListTable {
 public:
  struct Level {
    ListMark mark{};  ///< Of style None: not in use.
    int start = 1;
    unsigned parents = 0;  ///< The levels whose numbers stand in front, a bit each.
  };
  using List = std::array<Level, ListMark::kLevels>;

  void add(const RichText& text);

  const QList<List>& lists() const { return lists_; }
  /// From 1 on; 0 for a paragraph that is in no list, or in one more than the table holds.
  int numberOf(const RichText& text, qsizetype paragraph) const;

 private:
  using Numbers = std::array<int, ListMark::kLevels>;
  /// How far a text is counted.
  struct State {
    ListNumbering numbering{};
    std::array<ListMark, ListMark::kLevels> marks{};
    Numbers numbers{};  ///< Of the last item of each level; 0: none.
    int list = 0;
    Numbers shown{};  ///< The same, as the table's readers count.
  };

  int next(State& state, const ListMark& mark);
  static unsigned parentsOf(const State& state, const ListMark& mark);
  bool goesOn(const State& state, const ListMark& mark, int number) const;
  void begin(State& state, const ListMark& mark);

  QList<List> lists_;
  QHash<const RichText*, QList<int>> numbers_;
};
