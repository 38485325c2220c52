#pragma once

#include "core/text/RichText.h"
#include "core/text/RichTextData.h"
#include "gui/toolkit/KnownNumbers.h"

#include <QString>
#include <QTextBlock>

#include <vector>

/// Formats, each once, named by number; without their colours where those only mark words.
class LookTable {
 public:
  explicit LookTable(bool keepsColours = false) : keepsColours_(keepsColours) {}

  bool keepsColours() const { return keepsColours_; }
  int number(CharFormat format);
  int number(const ParagraphFormat& format) { return paragraphs_.intern(format); }
  const CharFormat& letters(int number) const { return letters_[number]; }
  const ParagraphFormat& paragraph(int number) const { return paragraphs_[number]; }

  // Of what stands in a document. Each of its formats is looked into once.
  int ofLetters(const QTextFragment& fragment, QStringView text);
  int ofEnd(const QTextBlock& block);
  int ofParagraph(const QTextBlock& block);
  /// Another document numbers its formats anew.
  void forgetDocument();

 private:
  bool keepsColours_;
  FormatTable<CharFormat> letters_;
  FormatTable<ParagraphFormat> paragraphs_;
  KnownNumbers knownLetters_;
  KnownNumbers knownObjects_;
  KnownNumbers knownParagraphs_;
};

/// Some paragraphs as they stand in a document, whose positions they use: one for each line end.
struct TextStretch {
  struct Block {
    int paragraph;
    int end;  ///< Of the paragraph's end.

    friend bool operator==(const Block&, const Block&) = default;
  };

  QString text;   ///< The paragraphs, parted by U+2029.
  Spans letters;  ///< Their looks. A line end looks like what stands in front of it.
  std::vector<Block> blocks;

  /// What the line end behind the last paragraph looks like here.
  int lookOfLastEnd() const;

  static TextStretch of(const RichText& text, LookTable& looks);
  static TextStretch of(const QTextDocument& document, int firstBlock, int count, LookTable& looks);
};

/// The look of [from, to), counted from there.
Spans cutOut(const Spans& spans, qsizetype from, qsizetype to);
void putIn(Spans& spans, qsizetype from, qsizetype to, const Spans& with);
