#pragma once

#include "core/text/HtmlTags.h"
#include "core/text/ListMark.h"
#include "core/text/RichText.h"
#include "core/text/Rtf2HtmlOptions.h"

#include <QHash>
#include <QStringList>

/// A rich text as HTML: all that its plain text says, escaped, each format exactly where it is in force. Footnotes and
/// endnotes are numbered, and stand behind the text without formats; comments stay out. One object writes one text.
class RichHtml {
 public:
  RichHtml(const RichText& text, const Rtf2HtmlOptions& options);

  QString write();

  // What RichText::visit calls.
  void text(QStringView units, const CharFormat& format);
  void object(const CharFormat& format);
  void lineBreak(const CharFormat& format);
  void paragraphEnd(const CharFormat& format, const ParagraphFormat& paragraph);

 private:
  /// A character format in tags.
  struct Look {
    quint32 codes = 0;  ///< A bit for each.
    QString font{};
  };
  /// What a paragraph stands in; an empty tag is nothing.
  struct Block {
    HtmlCode code = HtmlCode::Alignment;
    QString tag{};
  };

  void beginParagraph();
  Block blockOf(const ParagraphFormat& paragraph);
  const Look& lookOf(const CharFormat& format);
  Look madeLook(const CharFormat& format) const;
  void setFormat(const CharFormat& format);
  QStringView wholePairs(QStringView units);
  void noteNumber(const CharFormat& format);
  QString notes() const;

  const RichText& text_;
  Rtf2HtmlOptions options_;
  HtmlTags tags_;
  QHash<const CharFormat*, Look> looks_;
  const CharFormat* format_ = nullptr;  ///< In force; none at the start of a block.
  quint32 codes_ = 0;
  Block block_{};  ///< Of the text that was written last.
  Block next_{};   ///< Of the paragraph.
  ListNumbering numbering_{};
  qsizetype paragraph_ = 0;
  bool hasText_ = false;
  bool isBegun_ = false;  ///< Some text of the paragraph was written.
  QString words_{};       ///< Of one piece, escaped.
  QStringList notes_{};   ///< Those whose numbers were written.
  QString half_{};        ///< Of a pair, from the end of the piece in front.
  QString joined_{};      ///< With the piece that it belongs to.
};
