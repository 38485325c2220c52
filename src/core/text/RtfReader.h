#pragma once

#include "core/text/Rtf.h"
#include "core/text/RtfCodePages.h"
#include "core/text/RtfLexer.h"
#include "core/text/RtfLists.h"
#include "core/text/RtfWords.h"

#include <QByteArrayView>
#include <QHash>
#include <QString>

#include <memory>
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

/// What becomes of the text. Formats and objects come only to a sink that wants them; what it keeps of formats it
/// stacks itself at open and close, which come in pairs.
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
  /// The text is over, with the formats that hold at its end. `closed`: a paragraph end was the last of it.
  virtual void finish(bool closed) = 0;

  virtual void open() {}
  virtual void close() {}
  virtual void plain() {}
  virtual void font(int) {}
  virtual void associatedFont(int) {}
  virtual void defaultLanguage(int) {}
  virtual void defaultTab(int /*twips*/) {}
  /// The paragraph that begins or that the text is in begins a page.
  virtual void breakPage() {}
  /// What a list has put in front of the current paragraph, in which font.
  virtual void label(const QString& /*label*/, int /*font*/) {}
  /// Marks the paragraphs from here to the next defaults.
  virtual void list(const ListMark&, int /*font*/) {}
  /// A word without a number has no value.
  virtual void format(RtfProperty, std::optional<int>) {}
  // A field: its instruction comes before its result, and what is put between result and end is the result.
  virtual void openField() {}
  virtual void instruction(const QString&) {}
  virtual void fieldResult() {}
  virtual void closeField(bool /*isEmpty*/) {}
  /// What follows is a text of its own, up to closeText.
  virtual void openText() {}
  virtual std::shared_ptr<const RichText> closeText() { return {}; }
  /// `bytes` are among those that are read.
  virtual void object(InlineObject, QByteArrayView /*bytes*/, QByteArrayView /*tail*/) {}

 private:
  bool wantsFormats_;
};

/// Reads RTF into a sink: groups, destinations, Unicode and code pages. Takes any bytes, never fails; time and
/// space are linear in them. One object reads one text.
class RtfReader {
 public:
  RtfReader(QByteArrayView rtf, RtfSink& sink) : lexer_(rtf), sink_(sink), wantsFormats_(sink.wantsFormats()) {}

  void read();
  const RtfTables& tables() const { return tables_; }
  const RtfLists& lists() const { return lists_; }
  RtfLosses losses() const { return losses_; }

 private:
  enum class Destination : quint8 {
    Body,
    Fonts,
    Colours,
    Alternatives,
    Alternative,  ///< What stands from here on has something to do when it is left.
    Label,
    Numbering,
    MarkText,
    Lists,
    LevelText,
    Instruction,
    Name,
    Object,
  };
  /// What the end of a group means besides the end of its formats.
  enum class Role : quint8 { None, Field, Note, Object, Result };

  struct Group {
    Destination destination = Destination::Body;
    Role role = Role::None;
    bool isHidden = false;
    bool isDeleted = false;
    int fallbackLength = 1;
    int font = -1;  ///< -1: the default font
  };
  /// What the last token was, where that matters.
  enum class Before : quint8 { Other, Open, Star, FontSlot };
  /// What stands at the place in the body that is read.
  enum class Line : quint8 {
    Empty,   ///< Nothing yet.
    Closed,  ///< A paragraph end.
    Broken,  ///< A line break.
    Begun,
  };
  /// An object whose group is open.
  struct OpenObject {
    InlineObject object{};
    // Of the bytes that are kept as they are; nothing: none, or up to the end of the group.
    const char* begin = nullptr;
    const char* end = nullptr;
    const char* behindResult = nullptr;
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
  void enterWords(Destination destination, const RtfToken& token, quint16 kind = 0);
  void leave(const Group& closed);
  void leaveName();
  void enterUnicodePart();
  void fontWord(RtfAction action, int number);
  void selectFont(int number);
  void declareFont(int number);
  void colourPart(RtfAction action, int number);
  void endColour();
  void plainWord();
  void unicode(qint32 number);
  void lineEnd(RtfAction action);
  void endLine(bool isParagraph);
  /// Something stands in the body that all readings count as there, shown or not.
  void came(Line line) {
    line_ = line;
    ++place_;
  }

  void numberingPart(RtfListPart part, const RtfToken& token);
  void listPart(RtfListPart part, const RtfToken& token);
  void listNumber(int number);

  void enterField();
  void enterNote(InlineObject::Kind kind, const RtfToken& token);
  void noteWord(RtfAction action);
  void enterObject(const RtfToken& token);
  void enterObjectResult();
  void takePicture(const RtfToken& token);
  void takeShape(const RtfToken& token);
  /// False when the group can't be one of the objects of the body: its end would not be seen, or it counts for nothing.
  bool beginsObject(Role role);
  void endRole(const Group& closed);
  void enterFieldResult();
  QByteArrayView restOfGroup(const RtfToken& token);
  void putObject(InlineObject object, QByteArrayView bytes, QByteArrayView tail = {});

  void byte(uchar byte);
  void flushBytes();
  void put(char32_t character);
  void putUnit(char16_t unit);
  const ByteDecoder& decoder();
  const ByteDecoder& decoderOf(int number);
  void setDocumentCodePage(int codePage);
  void skipGroup();
  void lose(quint16 loss) { losses_ |= static_cast<RtfLoss>(loss); }
  bool hasOwnGroup() const { return tooDeep_ == 0 && outer_.size() >= 2; }
  bool inBody() const { return group_.destination == Destination::Body && !group_.isDeleted; }
  /// What is told here is told of the whole text: not in a note or another group that plain text leaves out.
  bool isOfDocument() const { return group_.destination == Destination::Body && objects_.empty(); }
  bool takesWords() const;
  /// What comes to a sink: hidden text does where it is a format.
  bool isShown() const { return !group_.isHidden || wantsFormats_; }
  bool skipsAsFallback();
  bool completesPair(const RtfToken& token) const;

  RtfLexer lexer_;
  RtfSink& sink_;
  const bool wantsFormats_;
  RtfTables tables_;
  RtfLists lists_;
  RtfLosses losses_;
  /// The document's own brace was seen; where it is missing a picture or the like may have swallowed words.
  bool isClosed_ = false;

  Group group_;
  std::vector<Group> outer_;
  qint64 tooDeep_ = 0;              ///< Groups open beyond those that are stacked.
  const char* opened_ = nullptr;    ///< Where the last brace that was opened stands.
  const char* groupEnd_ = nullptr;  ///< And the last that was closed; nothing behind the end of the text.
  Before before_ = Before::Other;
  qint32 fallbacks_ = 0;       ///< Items still to skip behind a \uN.
  bool isHalfOfPair_ = false;  ///< The last \uN was a high surrogate.

  Line line_ = Line::Empty;
  qint64 place_ = 0;          ///< Grows with all that comes.
  qint64 numberPlace_ = -1;   ///< Where the number of a note stood last.
  bool endIsHidden_ = false;  ///< The last paragraph end was hidden.
  std::vector<OpenObject> objects_;
  std::vector<qint64> fieldResults_;  ///< Of the open fields: where the result begins; -1 before that.

  int documentCodePage_ = 1252;
  bool hasAnsiCodePage_ = false;
  std::array<char, 4> sequence_{};  ///< Bytes of one character so far.
  int sequenceSize_ = 0;
  int sequenceLength_ = 0;
  const ByteDecoder* decoder_ = nullptr;  ///< Of the font decoderFont_.
  int decoderFont_ = -1;

  QString words_;                        ///< Of a destination that takes words.
  QByteArray name_;                      ///< The word of the group that they stand in.
  quint16 kind_ = 0;                     ///< What they name.
  QList<InlineObject::Detail> details_;  ///< Of the comment that follows.
  ListMark numbering_;                   ///< Of the group that is open.
  int markFont_ = -1;
  bool isBehind_ = false;  ///< The words of a mark stand behind its number.

  int declaredFont_ = 0;
  quint32 colour_ = 0;
  bool hasColour_ = false;
};
