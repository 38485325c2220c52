#pragma once

#include <QHash>
#include <QString>
#include <QStringView>

#include <array>

namespace PageTags {

/// How letters look.
enum Look : quint8 { kBold = 1, kItalic = 2, kUnderlined = 4 };
inline constexpr quint8 kLooks = 8;

/// What a tag does to the text.
enum class Tag {
  Unknown,
  /// Begins and ends a paragraph.
  Block,
  Break,
  Cell,
  Preformatted,
  /// Letters that may look different.
  Letters,
  /// Letters in quotation marks, which the page leaves to the reader.
  Quotation,
  /// What is said about the page.
  Head,
  /// What stands in it is no text.
  NoText
};

struct TagRule {
  Tag kind = Tag::Unknown;
  quint8 looks = 0;
};

/// The name of a tag in small letters; empty for one that is longer than any that is known.
class TagName {
 public:
  explicit TagName(QStringView name);

  TagRule rule() const;
  QString toString() const;

 private:
  std::array<char16_t, 10> letters_{};
  size_t length_;
};

/// The looks that are asked for, and those that are asked not to be.
struct Wish {
  quint8 on = 0;
  quint8 off = 0;

  bool isNone() const { return (on | off) == 0; }
  /// The later one holds.
  void add(Wish later);
};

/// What the declarations of a style ask for.
Wish wishOf(QStringView style);

/// The value of an attribute, which is named in small letters; empty where the tag has none.
QStringView attributeOf(QStringView attributes, QStringView name);

/// The classes of style sheets that say how letters look. Rules for elements, for what stands in what, and for certain
/// media aren't read.
class StyleSheets {
 public:
  void read(QStringView sheet);
  /// What a tag asks for: by its classes, then by its own style.
  Wish wishOf(const TagName& tag, QStringView attributes) const;

 private:
  /// By "tag.class" and ".class".
  QHash<QString, Wish> classes_;
};

}  // namespace PageTags
