#pragma once

#include <QString>
#include <QStringView>

#include <array>

namespace HtmlTags {

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

/// The looks of a tag, as the style among its attributes changes them.
quint8 styledLooks(quint8 looks, QStringView attributes);

}  // namespace HtmlTags
