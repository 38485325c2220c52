#pragma once

#include "core/layout/TextMeasure.h"

#include <QHash>
#include <QString>
#include <QStringView>

#include <functional>
#include <string_view>
#include <unordered_map>

/// Breaks paragraphs of one font into lines. A line ends before the last blank that it holds when the next letter
/// would go beyond its width, and that blank goes. A word that is wider than a line is cut two letters before the one
/// that goes beyond, but never without a letter.
///
/// Words are measured once and added up; only a line that ends close to its width is measured whole. So a text costs
/// what its different words cost, and breaks where measuring after each letter would break it.
class LineBreaker {
 public:
  /// The measure outlives this.
  LineBreaker(const TextMeasure& measure, PrintFont font);

  struct Line {
    /// What of it is printed, and where the next line begins.
    qsizetype length = 0;
    qsizetype next = 0;
  };

  /// The line that begins at `from`. The paragraph has no line ends; `next` is its size when that was the last.
  Line lineAt(QStringView paragraph, qsizetype from, double width) const;

  const PrintFont& font() const { return font_; }
  double lineHeight() const { return lineHeight_; }
  double widthOf(QStringView text) const { return measure_.width(text, font_); }

 private:
  struct Hash {
    using is_transparent = void;
    size_t operator()(std::u16string_view text) const { return qHash(QStringView(text)); }
  };

  qsizetype endOfWord(QStringView rest, qsizetype at, double width) const;
  double wordWidth(QStringView word) const;
  bool fits(QStringView line, double sum, double width) const;
  qsizetype lettersThatFit(QStringView text, double width) const;
  Line cutWord(QStringView rest, double width, qsizetype from) const;

  const TextMeasure& measure_;
  PrintFont font_;
  double lineHeight_;
  double blank_;
  mutable std::unordered_map<std::u16string, double, Hash, std::equal_to<>> words_;
};
