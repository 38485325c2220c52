#pragma once

#include "core/text/RichText.h"

#include <QTextEdit>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class InlineObjectView;

/// Shows and edits a rich text. Positions are those of RichText: offsets into Text(), in which paragraphs and
/// lines end in CR LF; a position inside such a pair is moved in front of it. Formats travel between texts of this
/// program and leave it as plain text. The control keeps no undo of its own: Ctrl+Z and Ctrl+Y are left to its window.
class RichTextBox : public QTextEdit {
  Q_OBJECT

 public:
  using Colour = std::optional<quint32>;  ///< 24 bits in blue-green-red order; none: automatic.

  struct ColouredRange {
    qsizetype start;
    qsizetype length;
    Colour colour;
  };

  explicit RichTextBox(QWidget* parent = nullptr);

  /// Loads: the caret goes to the front, and Changed is not emitted. Any number of times.
  void setRichText(const RichText& text);
  /// Equal to what was loaded as long as nothing was changed.
  RichText richText() const;
  /// The same with the control's own font and size where none is stated: whoever opens it elsewhere sees what is seen
  /// here.
  RichText namedRichText() const;
  /// Bytes that are no RTF are loaded as plain text of our code page.
  void setTextRTF(const QByteArray& rtf);
  /// The very bytes that were loaded as long as nothing was changed.
  QByteArray TextRTF() const;
  /// All that has a position: letters, hidden ones too, line ends, and U+FFFC for each object.
  const QString& Text() const;
  /// Without objects and hidden text, as it is read and counted.
  QString PlainText() const;
  /// The user has made another text of what was loaded: one that was typed and taken back is none, nor are marks.
  bool isEdited() const;
  /// What is shown counts as loaded from now on.
  void setUnedited();

  /// Where the selection begins, or the caret stands.
  qsizetype SelStart() const;
  /// Moves the caret; nothing is selected then.
  void setSelStart(qsizetype position);
  qsizetype SelLength() const;
  void setSelLength(qsizetype length);
  void select(qsizetype start, qsizetype length);
  QString SelText() const;
  /// Takes the place of the selection, in the format of its first character; the caret goes behind it.
  void setSelText(const QString& text);
  /// Puts `with` in the place of every match, from the front and none overlapping, each in the format of its first
  /// character; what comes in isn't searched. One change, and none without a match. The caret stays where it stands in
  /// the text, nothing is selected then. Returns the number of matches; an empty `find`, and one with an object's sign
  /// in it, has none.
  qsizetype replaceAll(const QString& find, const QString& with, Qt::CaseSensitivity caseSensitivity);
  QByteArray SelRTF() const;
  RichText SelRichText() const;
  /// Takes the place of the selection with its formats, as RichText::replace does; the caret goes behind it.
  void setSelRichText(const RichText& text);

  /// The object at the position; none where there is a letter or nothing.
  std::shared_ptr<const InlineObject> objectAt(qsizetype position) const;
  /// Puts another one in its place. Nothing happens where none is.
  void replaceObject(qsizetype position, std::shared_ptr<const InlineObject> object);
  /// Opens the note or the link that the caret is at, behind or in; false when there is none.
  bool openAtCaret();
  /// What stands at the caret, or in front of it, and is no letter; empty for letters.
  QString describeAtCaret() const;

  // Formats of the selection's first character, or of text typed at the caret. Setting one formats the
  // selection, or what is typed next; that alone is no change of the text, and Changed is not emitted.
  Colour SelColor() const;
  /// Numbers with the top bit set name system colours and are automatic. Changed is not emitted: colours of
  /// single words are marks, no part of the text.
  void setSelColor(Colour colour);
  QString SelFontName() const;
  void setSelFontName(const QString& name);
  /// Points; the control's own size where the text states none.
  double SelFontSize() const;
  void setSelFontSize(double points);
  bool SelBold() const;
  void setSelBold(bool on);
  bool SelItalic() const;
  void setSelItalic(bool on);
  bool SelUnderline() const;
  void setSelUnderline(bool on);

  /// What all of the selection has in common, or text typed at the caret: none where it differs.
  struct CommonFormat {
    std::optional<QString> fontName;
    std::optional<double> fontSize;
    std::optional<bool> bold;
    std::optional<bool> italic;
    std::optional<bool> underline;

    bool operator==(const CommonFormat&) const = default;
  };
  CommonFormat SelFormat() const;
  // On, unless all of the selection has it already.
  void toggleSelBold() { setSelBold(SelFormat().bold != true); }
  void toggleSelItalic() { setSelItalic(SelFormat().italic != true); }
  void toggleSelUnderline() { setSelUnderline(SelFormat().underline != true); }

  /// A format was set for what is typed next, and the caret stands there still.
  bool hasCaretFormat() const { return beforeCaretFormat_.has_value(); }
  /// What is typed next looks as it would have without.
  void dropCaretFormat();

  // Formats of the paragraphs that the selection touches; lengths are twips.
  /// Distance of the first line from the margin. Setting it moves the other lines along.
  int SelIndent() const;
  void setSelIndent(int twips);
  /// Distance of the other lines from the first.
  int SelHangingIndent() const;
  void setSelHangingIndent(int twips);
  ParagraphFormat::Alignment SelAlignment() const;
  void setSelAlignment(ParagraphFormat::Alignment alignment);

  /// The format of the character behind a position.
  CharFormat formatAt(qsizetype position) const;
  /// Colours many ranges at once, in any order, far faster than one by one. Caret, selection and scroll
  /// position stay; Changed is not emitted.
  void colourRanges(const std::vector<ColouredRange>& ranges);
  /// Extends the selection forward or backward, within its paragraph, over characters that are among those
  /// given or, negated, are not.
  void Span(const QString& characters, bool forward, bool negate);

  /// What the work does is one change: Changed is emitted once, behind it.
  void asOneChange(const std::function<void()>& work);
  /// While an input method puts a text together, none of which is in the text yet: a number that no other such text
  /// has. 0 otherwise.
  int composition() const { return composition_; }

  /// Positions as the document counts them, in which a line end is one, and back.
  int toDocument(qsizetype position) const;
  qsizetype fromDocument(int position) const;

  /// Pixels that stay free on both sides.
  void setSideMargins(int pixels) { setViewportMargins(pixels, 0, pixels, 0); }
  quint32 BackColor() const;
  /// A number with the top bit set is the palette's own colour.
  void setBackColor(quint32 colour);
  /// What is locked isn't changed by the operations on the selection either, nor by replacing; loading is free.
  bool Locked() const { return isReadOnly(); }
  /// A locked text can be read, selected and copied with mouse and keys.
  void setLocked(bool locked);

 Q_SIGNALS:
  /// Another text was loaded: document() is another one.
  void Loaded();
  /// The text or its formatting was changed, by the user or by a setSel... function other than setSelColor.
  void Changed();
  /// A footnote, an endnote or a comment was asked for.
  void noteActivated(qsizetype position);
  /// A link was asked for: by Ctrl and a click, or from the keyboard. Nobody has looked at the address yet.
  void linkActivated(const QString& address);

 protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  /// Takes the selection away when it was moved to another text that takes all of it.
  void endDrag(Qt::DropAction action, const QObject* target);
  QMimeData* createMimeDataFromSelection() const override;
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  /// The plain text, and where in the document its line ends stand.
  struct Plain {
    QString text;
    std::vector<int> lineEnds;
  };

  void load(const RichText& text);
  bool endListAtCaret(const QKeyEvent& key);
  void beginParagraph();
  void takeComposed(QInputMethodEvent* event);
  void leaveRangeAtCaret();
  void narrowToLetters(int character);
  void dragSelection();
  void directByLetters(const QString& typed);
  void directPasted(int from);
  void refreshLooks(int from, int to);
  int characterAt(QPoint inViewport) const;
  CharFormat formatOfCharacter(int documentPosition) const;
  QTextCharFormat formatInPlaceOf(int documentPosition) const;
  static QString describe(const CharFormat& format);
  bool activate(int documentPosition);
  void tellOfCaret();
  void watch();
  void quietly(const std::function<void()>& work);
  void changed();
  const Plain& plain() const;
  QTextCursor cursorOver(qsizetype start, qsizetype length) const;
  QTextCharFormat selectedFormat() const;
  double ownFontSize() const;
  CommonFormat commonFormat(const QTextCharFormat& format) const;
  void mergeSelected(const QTextCharFormat& change);
  void formatSelected(const QTextCharFormat& change);
  ParagraphFormat selectedParagraph() const;
  void changeParagraphs(const std::function<void(ParagraphFormat&)>& change);

  // What was loaded, until the document changes.
  mutable std::optional<RichText> loaded_;
  std::optional<QByteArray> loadedRtf_;
  mutable std::optional<Plain> plain_;
  RichText original_;
  bool edited_ = false;
  bool hasLists_ = false;
  /// Some text has a look that depends on the palette.
  bool hasOwnLooks_ = false;
  InlineObjectView* objects_;
  std::optional<quint32> backColour_;
  int quiet_ = 0;
  int together_ = 0;
  bool changedTogether_ = false;
  /// Of text at the caret, before another one was set for it.
  std::optional<QTextCharFormat> beforeCaretFormat_;
  int composition_ = 0;
  int lastComposition_ = 0;
  /// Where the selection was taken hold of.
  std::optional<QPoint> dragFrom_;
};
