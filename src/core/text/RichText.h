#pragma once

#include "core/text/RichFormat.h"

#include <QSharedDataPointer>
#include <QString>
#include <QStringView>

#include <functional>
#include <memory>

class RichTextData;

/// A formatted text: paragraphs of runs. A value; copies are cheap and share until one is changed.
///
/// Positions are offsets into text(), in which a paragraph end and a line break inside a paragraph are
/// CR LF, two positions each, and a picture, a note or another object is U+FFFC, one position. There is always
/// one paragraph at least, and the last has no CR LF of its own: a text of n paragraphs holds n - 1 paragraph
/// ends. Each paragraph end carries a character format, also the end of the last paragraph, at position size().
///
/// An object is part of the format of its position. It goes where that position goes; changing formats doesn't
/// touch it, and new text never takes it on.
///
/// Ranges are taken leniently: a position outside is moved to the nearest inside, a length below 0 means to
/// the end, and a range that cuts a CR LF in two takes in the whole of it.
///
/// In text that is given, CR LF, CR, LF and U+2029 end a paragraph; U+2028 and U+000B break a line; NUL,
/// U+FFFC, U+FDD0 and U+FDD1, which stand for no character, are left out.
class RichText {
 public:
  using CharChange = std::function<void(CharFormat&)>;
  using ParagraphChange = std::function<void(ParagraphFormat&)>;

  /// Formats that runs and paragraphs point to live as long as the text is not changed.
  struct Run {
    qsizetype start;
    qsizetype length;
    const CharFormat* format;
  };
  struct Paragraph {
    qsizetype start;
    qsizetype length;  ///< Without its CR LF.
    const ParagraphFormat* format;
    const CharFormat* endFormat;  ///< Of the paragraph end.
  };

  class Builder;

  RichText();
  RichText(const RichText&);
  RichText(RichText&&) noexcept;
  RichText& operator=(const RichText&);
  RichText& operator=(RichText&&) noexcept;
  ~RichText();

  static RichText fromPlain(QStringView text, const CharFormat& format = {}, const ParagraphFormat& paragraph = {});

  static RichText fromObject(std::shared_ptr<const InlineObject> object, const CharFormat& format = {});

  /// All that has a position.
  const QString& text() const;
  /// What a reader reads and what is counted: text() without objects and hidden text. One pass where there are any.
  QString plainText() const;
  /// Where in text() a character of plainText() stands; the end for a place behind the last.
  qsizetype positionOfRead(qsizetype place) const;
  qsizetype size() const { return text().size(); }
  /// True when there is no text at all, not even a paragraph end.
  bool isEmpty() const { return text().isEmpty(); }

  /// Distance of the tabs behind the last tab stop of a paragraph, in twips; 0: none stated. Of the whole text: what is
  /// put in brings its own only into an empty text.
  int defaultTab() const;
  void setDefaultTab(int twips);

  qsizetype paragraphCount() const;
  Paragraph paragraph(qsizetype index) const;
  /// Index of the paragraph that the position is in; its CR LF belongs to it.
  qsizetype paragraphAt(qsizetype position) const;
  /// Runs cover the text and the end of the last paragraph, in order; neighbours differ in format.
  qsizetype runCount() const;
  Run run(qsizetype index) const;
  qsizetype runAt(qsizetype position) const;
  /// Of the character behind the position; at the end of the text, of the end of the last paragraph.
  const CharFormat& charFormatAt(qsizetype position) const;
  const ParagraphFormat& paragraphFormatAt(qsizetype position) const;

  /// New text takes the format of the first character that it replaces; where it replaces nothing, of the
  /// character in front in the same paragraph, else of the one behind. New paragraphs are formatted like
  /// the one that they are put in.
  void replace(qsizetype from, qsizetype length, QStringView with);
  /// Brings its formats along. Its last paragraph joins with what stands behind; a paragraph of the text
  /// keeps its own format where some of its text stays in front of the new, and takes the new one's else.
  void replace(qsizetype from, qsizetype length, const RichText& with);
  void insert(qsizetype at, QStringView text) { replace(at, 0, text); }
  void insert(qsizetype at, const RichText& text) { replace(at, 0, text); }
  void append(QStringView text) { replace(size(), 0, text); }
  void append(const RichText& text) { replace(size(), 0, text); }
  void remove(qsizetype from, qsizetype length) { replace(from, length, QStringView()); }
  /// Replaces every match that is in the text now, from the front, none overlapping; keeps the formatting of
  /// each match's first character. Returns their number. Empty `find` matches nothing. One pass.
  qsizetype replaceAll(QStringView find, QStringView with, Qt::CaseSensitivity caseSensitivity);

  /// `change` is called once for each distinct format in the range, not once for each run.
  void formatCharacters(qsizetype from, qsizetype length, const CharChange& change);
  /// The paragraphs that the range touches; an empty range touches the paragraph that it is in, a range
  /// that ends at the very start of a paragraph does not touch that one.
  void formatParagraphs(qsizetype from, qsizetype length, const ParagraphChange& change);

  /// A part as a text of its own, with its formats.
  RichText slice(qsizetype from, qsizetype length = -1) const;
  /// Cuts the text in two here: keeps what is in front, returns what is behind.
  RichText splitOff(qsizetype at);

  /// Visits the text in order, in pieces that have one character format each:
  ///   visitor.text(QStringView, const CharFormat&)                      no line ends and no objects in it
  ///   visitor.object(const CharFormat&)                                 whose object is set
  ///   visitor.lineBreak(const CharFormat&)
  ///   visitor.paragraphEnd(const CharFormat&, const ParagraphFormat&)   the last paragraph's too
  /// A format is the same object in two calls exactly when it is the same format.
  template <class Visitor>
  void visit(Visitor&& visitor) const;

  friend bool operator==(const RichText& a, const RichText& b) { return a.equals(b); }

 private:
  explicit RichText(RichTextData* data);
  bool equals(const RichText& other) const;

  QSharedDataPointer<RichTextData> data_;
};

/// Builds a text from front to back. Formats are handed in once and named by number afterwards.
class RichText::Builder {
 public:
  explicit Builder(qsizetype sizeHint = 0);
  Builder(const Builder&) = delete;
  Builder& operator=(const Builder&) = delete;
  ~Builder();

  int charFormat(const CharFormat& format);
  int paragraphFormat(const ParagraphFormat& format);

  /// The text is cleaned as everywhere; line ends in it end paragraphs of this format.
  void append(QStringView text, int charFormat, int paragraphFormat);
  /// Printable ASCII only, as the fast road of a reader knows it.
  void appendAscii(const char* text, qsizetype length, int charFormat);
  /// A UTF-16 unit that is neither a line end nor one of those left out.
  void appendUnit(char16_t unit, int charFormat);
  /// The format has the object.
  void appendObject(int charFormat);
  /// Takes back the object that was appended last.
  void dropObject();
  void setDefaultTab(int twips);
  void lineBreak(int charFormat);
  void endParagraph(int charFormat, int paragraphFormat);
  /// The text so far, its last paragraph ended thus. The builder is empty afterwards.
  RichText take(int charFormat, int paragraphFormat);
  /// As take, but an empty last paragraph is dropped when another stands in front: the last paragraph end
  /// closed the text and opened nothing.
  RichText takeClosed(int charFormat, int paragraphFormat);

 private:
  std::unique_ptr<RichTextData> data_;
};

template <class Visitor>
void RichText::visit(Visitor&& visitor) const {
  const QStringView all(text());
  qsizetype paragraphIndex = 0;
  Paragraph current = paragraph(0);
  const auto lineEnd = [&](qsizetype at, const CharFormat& format) {
    if (at != current.start + current.length) {
      visitor.lineBreak(format);
      return;
    }
    visitor.paragraphEnd(format, *current.format);
    if (++paragraphIndex < paragraphCount()) {
      current = paragraph(paragraphIndex);
    }
  };
  for (qsizetype i = 0; i < runCount(); ++i) {
    const Run piece = run(i);
    const qsizetype end = qMin(piece.start + piece.length, all.size());
    if (piece.format->object) {
      for (qsizetype at = piece.start; at < end; ++at) {
        visitor.object(*piece.format);
      }
      continue;
    }
    for (qsizetype at = piece.start; at < end;) {
      const qsizetype found = all.sliced(at, end - at).indexOf(u'\r');
      const qsizetype stop = found < 0 ? end : at + found;
      if (stop > at) {
        visitor.text(all.sliced(at, stop - at), *piece.format);
      }
      if (found >= 0) {
        lineEnd(stop, *piece.format);
      }
      at = found < 0 ? end : stop + 2;
    }
  }
  visitor.paragraphEnd(*current.endFormat, *current.format);
}
