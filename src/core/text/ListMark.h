#pragma once

#include <QString>

#include <array>

/// What stands in front of a paragraph that is an item of a list. It is no part of the text.
struct ListMark {
  enum class Style : quint8 { None, Bullet, Decimal, UpperLetter, LowerLetter, UpperRoman, LowerRoman };
  static constexpr int kLevels = 9;

  Style style = Style::None;
  bool withParents = false;  ///< The numbers of the levels above stand in front: 2.1.
  int level = 0;             ///< From 0.
  int start = 0;             ///< The number of this very item; 0: the one behind the item in front.
  QString before{};          ///< In front of the number; the sign itself of a bullet.
  QString after{};
  QString fontName{};  ///< Of a bullet's sign; empty: any.

  static ListMark bullet() {
    ListMark mark;
    mark.style = Style::Bullet;
    mark.before = QString(QChar(0x2022));
    return mark;
  }
  bool isNumbered() const { return style > Style::Bullet; }

  friend bool operator==(const ListMark&, const ListMark&) = default;
};

/// A paragraph without a list has the one default mark; a bullet has a sign and no number; levels and numbers are
/// within what can be told.
ListMark normalised(ListMark mark);

size_t qHash(const ListMark& mark, size_t seed = 0) noexcept;

/// Counts the items of lists from the front of a text on. An ordinary paragraph ends all lists; an item of a higher
/// level ends those below it.
class ListNumbering {
 public:
  /// Goes on to the next paragraph. Gives its number; 0 where it has none.
  int next(const ListMark& mark);
  /// The same for an ordinary paragraph.
  void endLists();
  /// The mark of the paragraph that `next` was at last called for, as it is shown.
  QString label(const ListMark& mark) const;

  /// A number as the style tells it; decimal what it can't tell.
  static QString numeral(ListMark::Style style, int number);
  /// The number that is told; 0 for what is no numeral of the style.
  static int numberOf(ListMark::Style style, QStringView numeral);

 private:
  struct Counter {
    int number = 0;
    ListMark::Style style = ListMark::Style::None;
    QString before;
    QString after;
  };

  std::array<Counter, ListMark::kLevels> counters_;
  bool isInList_ = false;
};
