#include "gui/toolkit/Colours.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/RichTextDocument.h"

#include <QFontInfo>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <utility>

// Formats of the selection, of paragraphs and of marked words, and the colours of the control.

namespace {

/// A system colour is the automatic one.
QTextCharFormat foregroundOf(const RichTextBox::Colour& colour) {
  CharFormat format;
  format.colour = colour && Colours::isSystem(*colour) ? std::nullopt : colour;
  QTextCharFormat change;
  change.setForeground(RichTextDocument::toQt(format).foreground());
  return change;
}

template <class Value>
void keepCommon(std::optional<Value>& common, const std::optional<Value>& other) {
  if (common != other) {
    common.reset();
  }
}

}  // namespace

QTextCharFormat RichTextBox::selectedFormat() const {
  QTextCursor cursor = textCursor();
  if (!cursor.hasSelection()) {
    return cursor.charFormat();
  }
  cursor.setPosition(cursor.selectionStart() + 1);
  return cursor.charFormat();
}

void RichTextBox::mergeSelected(const QTextCharFormat& change) {
  quietly([&] {
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.mergeCharFormat(change);
    const bool takesAll = cursor.selectionStart() == 0 && cursor.selectionEnd() == document()->characterCount() - 1;
    if (takesAll || (!cursor.hasSelection() && cursor.block().length() == 1)) {
      // The end of an empty or of the first paragraph, which no selection takes in.
      QTextCursor end(takesAll ? document()->firstBlock() : cursor.block());
      end.mergeBlockCharFormat(change);
    }
    cursor.endEditBlock();
    setTextCursor(cursor);
    refreshLooks(cursor.selectionStart(), cursor.selectionEnd());
  });
}

void RichTextBox::formatSelected(const QTextCharFormat& change) {
  if (Locked()) {
    return;
  }
  const QTextCursor cursor = textCursor();
  const bool isOfTyping = !cursor.hasSelection() && (document()->isEmpty() || cursor.block().length() > 1);
  if (!isOfTyping) {
    mergeSelected(change);
    changed();
    return;
  }
  const QTextCharFormat before = beforeCaretFormat_.value_or(cursor.charFormat());
  QTextCharFormat after = cursor.charFormat();
  after.merge(change);
  const bool isNew = RichTextDocument::fromQt(after) != RichTextDocument::fromQt(before) && !document()->isEmpty();
  beforeCaretFormat_ = isNew ? std::optional(before) : std::nullopt;
  mergeSelected(change);
}

void RichTextBox::dropCaretFormat() {
  if (const auto before = std::exchange(beforeCaretFormat_, std::nullopt)) {
    QTextCursor cursor = textCursor();
    cursor.setCharFormat(*before);
    setTextCursor(cursor);
  }
}

RichTextBox::Colour RichTextBox::SelColor() const {
  return RichTextDocument::fromQt(selectedFormat()).colour;
}

void RichTextBox::setSelColor(Colour colour) {
  mergeSelected(foregroundOf(colour));
}

QString RichTextBox::SelFontName() const {
  const QString name = RichTextDocument::fromQt(selectedFormat()).fontName;
  return name.isEmpty() ? font().family() : name;
}

void RichTextBox::setSelFontName(const QString& name) {
  QTextCharFormat change;
  change.setFontFamilies({name});
  formatSelected(change);
}

/// The control's own size, which may stand in pixels.
double RichTextBox::ownFontSize() const {
  return font().pointSizeF() > 0 ? font().pointSizeF() : QFontInfo(font()).pointSizeF();
}

double RichTextBox::SelFontSize() const {
  const double points = selectedFormat().fontPointSize();
  return points > 0 ? points : ownFontSize();
}

void RichTextBox::setSelFontSize(double points) {
  if (points <= 0) {
    return;
  }
  QTextCharFormat change;
  change.setFontPointSize(qRound(points * 2) / 2.0);
  formatSelected(change);
}

bool RichTextBox::SelBold() const {
  return RichTextDocument::fromQt(selectedFormat()).bold;
}

void RichTextBox::setSelBold(bool on) {
  QTextCharFormat change;
  change.setFontWeight(on ? QFont::Bold : QFont::Normal);
  formatSelected(change);
}

bool RichTextBox::SelItalic() const {
  return selectedFormat().fontItalic();
}

void RichTextBox::setSelItalic(bool on) {
  QTextCharFormat change;
  change.setFontItalic(on);
  formatSelected(change);
}

bool RichTextBox::SelUnderline() const {
  return RichTextDocument::fromQt(selectedFormat()).underline != CharLook::Underline::None;
}

void RichTextBox::setSelUnderline(bool on) {
  QTextCharFormat change;
  change.setFontUnderline(on);
  formatSelected(change);
}

RichTextBox::CommonFormat RichTextBox::commonFormat(const QTextCharFormat& format) const {
  const CharFormat text = RichTextDocument::fromQt(format);
  const double points = format.fontPointSize();
  return {text.fontName.isEmpty() ? font().family() : text.fontName, points > 0 ? points : ownFontSize(), text.bold,
          text.italic, text.underline != CharLook::Underline::None};
}

RichTextBox::CommonFormat RichTextBox::SelFormat() const {
  CommonFormat common = commonFormat(selectedFormat());
  const QTextCursor selected = textCursor();
  int lastIndex = -1;
  for (QTextBlock block = document()->findBlock(selected.selectionStart());
       selected.hasSelection() && block.isValid() && block.position() < selected.selectionEnd(); block = block.next()) {
    for (auto part = block.begin(); part != block.end() && common != CommonFormat(); ++part) {
      const QTextFragment fragment = part.fragment();
      const bool isSelected = fragment.position() < selected.selectionEnd() &&
                              fragment.position() + fragment.length() > selected.selectionStart();
      if (!isSelected || std::exchange(lastIndex, fragment.charFormatIndex()) == fragment.charFormatIndex()) {
        continue;
      }
      const CommonFormat other = commonFormat(fragment.charFormat());
      keepCommon(common.fontName, other.fontName);
      keepCommon(common.fontSize, other.fontSize);
      keepCommon(common.bold, other.bold);
      keepCommon(common.italic, other.italic);
      keepCommon(common.underline, other.underline);
    }
  }
  return common;
}

ParagraphFormat RichTextBox::selectedParagraph() const {
  return RichTextDocument::fromQt(document()->findBlock(textCursor().selectionStart()).blockFormat());
}

void RichTextBox::changeParagraphs(const std::function<void(ParagraphFormat&)>& change) {
  quietly([&] {
    const QTextCursor selected = textCursor();
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    QTextBlock block = document()->findBlock(selected.selectionStart());
    for (; block.isValid() && block.position() <= selected.selectionEnd(); block = block.next()) {
      ParagraphFormat format = RichTextDocument::fromQt(block.blockFormat());
      change(format);
      cursor.setPosition(block.position());
      cursor.setBlockFormat(RichTextDocument::toQt(normalised(format)));
    }
    cursor.endEditBlock();
  });
  changed();
}

int RichTextBox::SelIndent() const {
  const ParagraphFormat format = selectedParagraph();
  return format.leftIndent + format.firstIndent;
}

void RichTextBox::setSelIndent(int twips) {
  changeParagraphs([twips](ParagraphFormat& format) { format.leftIndent = twips - format.firstIndent; });
}

int RichTextBox::SelHangingIndent() const {
  return -selectedParagraph().firstIndent;
}

void RichTextBox::setSelHangingIndent(int twips) {
  changeParagraphs([twips](ParagraphFormat& format) {
    format.leftIndent += format.firstIndent + twips;
    format.firstIndent = -twips;
  });
}

ParagraphFormat::Alignment RichTextBox::SelAlignment() const {
  return selectedParagraph().alignment;
}

void RichTextBox::setSelAlignment(ParagraphFormat::Alignment alignment) {
  changeParagraphs([alignment](ParagraphFormat& format) { format.alignment = alignment; });
}

RichText RichTextBox::namedRichText() const {
  RichText text = richText();
  const int halfPoints = qRound(ownFontSize() * 2);
  text.formatCharacters(0, -1, [&](CharFormat& format) {
    format.fontName = format.fontName.isEmpty() ? font().family() : format.fontName;
    format.halfPoints = format.halfPoints == 0 ? halfPoints : format.halfPoints;
  });
  return text;
}

CharFormat RichTextBox::formatAt(qsizetype position) const {
  if (document()->isEmpty()) {
    return RichTextDocument::fromQt(QTextCursor(document()).charFormat());
  }
  return formatOfCharacter(std::min(toDocument(position), document()->characterCount() - 2));
}

void RichTextBox::colourRanges(const std::vector<ColouredRange>& ranges) {
  if (ranges.empty()) {
    return;
  }
  const int scrolled = verticalScrollBar()->value();
  quietly([&] {
    QTextCursor batch(document());
    batch.beginEditBlock();
    for (const ColouredRange& range : ranges) {
      cursorOver(range.start, range.length).mergeCharFormat(foregroundOf(range.colour));
    }
    batch.endEditBlock();
    for (const ColouredRange& range : ranges) {
      if (hasOwnLooks_ && !range.colour) {  // an unmarked link is a link again
        const QTextCursor unmarked = cursorOver(range.start, range.length);
        refreshLooks(unmarked.selectionStart(), unmarked.selectionEnd());
      }
    }
  });
  verticalScrollBar()->setValue(scrolled);
}

quint32 RichTextBox::BackColor() const {
  return backColour_.value_or(Colours::systemWindow);
}

void RichTextBox::setBackColor(quint32 colour) {
  backColour_ = colour;
  if (Colours::isSystem(colour)) {
    setPalette(QPalette());
    return;
  }
  QPalette colours = palette();
  colours.setColor(QPalette::Base, Colours::toQt(colour));
  setPalette(colours);
}
