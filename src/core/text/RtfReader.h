#pragma once

#include "core/text/RtfCodePages.h"
#include "core/text/RtfLexer.h"
#include "core/text/RtfWords.h"

#include <QByteArrayView>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

/// The fonts and colours that an RTF text declares.
struct RtfTables {
  struct Font {
    QString name;
    int charset = 1;
    int codePage = 0;                      ///< From \cpg; 0: by the charset.
    const ByteDecoder* decoder = nullptr;  ///< Set on first use; none while it is the document's.
  };

  QHash<int, Font> fonts;
  std::vector<std::optional<quint32>> colours;  ///< 24 bits, blue-green-red; none: automatic.
  int defaultFont = -1;                         ///< -1: none declared.
};

/// What becomes of the text. Formats come only to a sink that wants them; what it keeps of them it stacks
/// itself at open and close, which come in pairs.
class RtfSink {
 public:
  explicit RtfSink(bool wantsFormats) : wantsFormats_(wantsFormats) {}
  virtual ~RtfSink() = default;

  bool wantsFormats() const { return wantsFormats_; }
  virtual void ascii(const char* text, qsizetype length) = 0;
  /// An ordinary UTF-16 unit.
  virtual void unit(char16_t unit) = 0;
  virtual void lineBreak() = 0;
  virtual void paragraphEnd() = 0;
  virtual bool atLineStart() const = 0;
  virtual bool isEmpty() const = 0;
  /// The text is over, with the formats that hold at its end.
  virtual void finish() = 0;

  virtual void open() {}
  virtual void close() {}
  virtual void plain() {}
  virtual void font(int) {}
  /// What a list has put in front of the current paragraph.
  virtual void label(bool /*isBullet*/) {}
  /// Marks the paragraphs from here to the next defaults.
  virtual void bullets(bool /*on*/) {}
  /// A word without a number has no value.
  virtual void format(RtfProperty, std::optional<int>) {}

 private:
  bool wantsFormats_;
};

/// Reads RTF into a sink: groups, destinations, Unicode and code pages. Takes any bytes, never fails; time and
/// space are linear in them. One object reads one text.
class RtfReader {
 public:
  RtfReader(QByteArrayView rtf, RtfSink& sink) : lexer_(rtf), sink_(sink) {}

  void read();
  const RtfTables& tables() const { return tables_; }

 private:
  enum class Destination : quint8 { Body, Fonts, Colours, Alternatives, Alternative, Label, Numbering };

  struct Group {
    Destination destination = Destination::Body;
    quint8 hidden = 0;  ///< Bits by the word that hides.
    int fallbackLength = 1;
    int font = -1;  ///< -1: the default font
  };

  void open();
  /// False when it was the last brace.
  bool close();
  void text(RtfToken& token);
  void bodyText(const char* text, qsizetype length);
  void tableText(const char* text, qsizetype length);
  void symbol(char symbol);
  void word(const RtfToken& token);
  void act(const RtfWord& word, const RtfToken& token);
  void enterTable(Destination destination);
  void enterList(Destination destination);
  void leave(Destination destination);
  void enterUnicodePart();
  void fontWord(RtfAction action, int number);
  void selectFont(int number);
  void declareFont(int number);
  void colourPart(RtfAction action, int number);
  void endColour();
  void plainWord();
  void hide(quint8 reason, bool on);
  void unicode(qint32 number);
  void lineEnd(RtfAction action);

  void byte(uchar byte);
  void flushBytes();
  void put(char32_t character);
  void putUnit(char16_t unit);
  const ByteDecoder& decoder();
  const ByteDecoder& decoderOf(int number);
  void setDocumentCodePage(int codePage);
  void skipGroup();
  bool inBody() const { return group_.destination == Destination::Body && group_.hidden == 0; }
  bool skipsAsFallback();
  bool completesPair(const RtfToken& token) const;

  RtfLexer lexer_;
  RtfSink& sink_;
  RtfTables tables_;

  Group group_;
  std::vector<Group> outer_;
  qint64 tooDeep_ = 0;  ///< Groups open beyond those that are stacked.
  bool starred_ = false;
  qint32 fallbacks_ = 0;       ///< Items still to skip behind a \uN.
  bool isHalfOfPair_ = false;  ///< The last \uN was a high surrogate.

  int documentCodePage_ = 1252;
  bool hasAnsiCodePage_ = false;
  std::array<char, 4> sequence_{};  ///< Bytes of one character so far.
  int sequenceSize_ = 0;
  int sequenceLength_ = 0;
  const ByteDecoder* decoder_ = nullptr;  ///< Of the font decoderFont_.
  int decoderFont_ = -1;

  QString label_;
  bool isBulletLevel_ = false;

  int declaredFont_ = 0;
  quint32 colour_ = 0;
  bool hasColour_ = false;
};
