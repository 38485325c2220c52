#pragma once

#include "core/text/RichText.h"
#include "core/text/RtfLook.h"

#include <QByteArray>
#include <QHash>

/// Bytes that grow by doubling and are written through a pointer.
class ByteWriter {
 public:
  explicit ByteWriter(qsizetype sizeHint) : bytes_(sizeHint, Qt::Uninitialized) {}

  /// Where the next bytes go; so many may be written before `wrote`.
  char* room(qsizetype most) {
    if (bytes_.size() - size_ < most) {
      bytes_.resize(bytes_.size() + bytes_.size() / 2 + most);
    }
    return bytes_.data() + size_;
  }
  void wrote(const char* end) { size_ = end - bytes_.constData(); }
  void put(QByteArrayView bytes);
  void putNumber(int number);
  QByteArray take();

 private:
  QByteArray bytes_;
  qsizetype size_ = 0;
};

/// Writes a rich text as 7-bit RTF. One object writes one text.
class RtfWriter {
 public:
  explicit RtfWriter(const RichText& text);

  QByteArray write();

  // What RichText::visit calls.
  void text(QStringView units, const CharFormat& format);
  void lineBreak(const CharFormat& format);
  void paragraphEnd(const CharFormat& format, const ParagraphFormat& paragraph);

 private:
  /// A character format in words and table numbers.
  struct Style : RtfLook {
    bool isSymbol = false;
  };

  void collectStyles();
  void collectBullets();
  Style styleOf(const CharFormat& format);
  /// What holds where no word has set anything.
  static Style plainStyle(int font) { return {{{}, font, 0, 0}}; }
  int fontNumber(const QString& name);
  int colourNumber(const std::optional<quint32>& colour);
  void writeHead();
  void writeFontName(const QString& name);

  void startParagraph();
  void putLabel();
  void putFormat(const ParagraphFormat& format);
  void setFormat(const CharFormat& format);
  void change(const Style& from, const Style& to);
  void word(const char* name);
  void word(const char* name, int number);
  void units(QStringView units);
  void symbols(QStringView units);

  const RichText& text_;
  ByteWriter out_;
  QHash<const CharFormat*, Style> styles_;
  QList<QString> fonts_;
  QHash<QString, int> fontNumbers_;
  QList<quint32> colours_;
  QHash<quint32, int> colourNumbers_;
  int defaultFont_ = 0;
  int bulletFont_ = -1;  ///< None while no paragraph has a bullet.

  qsizetype paragraph_ = 0;
  const ParagraphFormat* paragraphFormat_ = nullptr;  ///< In force; none at the start.
  const CharFormat* charFormat_ = nullptr;
  Style style_ = plainStyle(0);
  bool needsBlank_ = false;  ///< A control word was last, and text would run into it.
};
