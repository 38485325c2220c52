#pragma once

#include "core/text/ListMark.h"
#include "core/text/RichText.h"
#include "core/text/RtfListTable.h"
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
  void object(const CharFormat& format);
  void lineBreak(const CharFormat& format);
  void paragraphEnd(const CharFormat& format, const ParagraphFormat& paragraph);

 private:
  /// A character format in words and table numbers.
  struct Style : RtfLook {
    bool isSymbol = false;
  };
  enum class PartKind : quint8 { Whole, Note, NumberedNote };
  /// A text that is being written: the whole, or that of a note in it.
  struct Part {
    const RichText* text = nullptr;
    PartKind kind = PartKind::Whole;
    qsizetype paragraph = 0;
    const ParagraphFormat* paragraphFormat = nullptr;  ///< In force; none at the start.
    const CharFormat* charFormat = nullptr;            ///< In force; none when only the style is known.
    Style style{};
    ListNumbering numbering{};
    int list = 0;  ///< Of the paragraph; 0: none.
    /// The field that is open, and what holds again behind it.
    QString field{};
    Style styleBehind{};
    const ParagraphFormat* paragraphBehind = nullptr;
    int listBehind = 0;
  };

  void collect(const RichText& text);
  void collect(const ParagraphFormat& format);
  Style styleOf(const CharFormat& format);
  /// What holds where no word has set anything.
  Style plainStyle() const;
  int fontNumber(const QString& name);
  int colourNumber(const std::optional<quint32>& colour);
  void writeHead();
  void writeFontName(const QString& name);
  void writeLists();
  void writeList(const RtfListTable::List& list, int number);
  void writeLevel(const RtfListTable::Level& level);
  void writePart(const RichText& text, PartKind kind);

  void startParagraph();
  static QString bulletFont(const ListMark& mark);
  void putLabel(const ListMark& mark);
  void putBullet(const ListMark& mark);
  void putList(const ListMark& mark);
  void putFormat(const ParagraphFormat& format);
  void putTabs(const QList<TabStop>& stops);
  void setFormat(const CharFormat& format);
  void change(const Style& from, const Style& to);
  void putDirection(CharLook::Direction direction);
  void changeLook(const Style& from, const Style& to);
  void openField(const QString& instruction);
  void closeField();
  void putInstruction(QStringView instruction);
  void putObject(const InlineObject& object);
  void putNote(const InlineObject& note);
  void putContent(const InlineObject& object);
  void putNamed(QByteArrayView word, QStringView name);
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
  RtfListTable lists_;
  /// Some text states no font: no font is the default one then, so that the reader's own holds for it.
  bool hasUnnamed_ = false;
  Part part_;
  bool needsBlank_ = false;  ///< A control word was last, and text would run into it.
};
