#pragma once

#include "core/text/ListMark.h"
#include "core/text/RtfWords.h"

#include <QHash>
#include <QList>

/// The lists that an RTF text declares ahead of its body, which its paragraphs name by number.
class RtfLists {
 public:
  /// Parts of the tables in the order in which they stand there.
  void part(RtfListPart part, int value);
  /// How a level is written: its length, then letters, among which U+0000 to U+0008 stand for the levels' numbers.
  void levelText(QStringView template_);
  void levelFont(const QString& name);
  /// The list that was named last has this number in the paragraphs.
  void name(int number);

  /// How the paragraphs of the list are marked; no mark for a list or a level that wasn't declared.
  ListMark mark(int number, int level) const;

  /// What a mark that was written out looks like when nothing else is known of its list.
  static ListMark guess(QStringView label);
  /// The number in a mark that was written out; 0 where there is none.
  static int numberIn(const ListMark& mark, QStringView label);

 private:
  ListMark* level();

  QHash<int, QList<ListMark>> lists_;
  QHash<int, int> numbers_;
  QList<ListMark> levels_;
  bool isNaming_ = false;
  int named_ = 0;
};
