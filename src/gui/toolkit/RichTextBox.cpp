#include "gui/toolkit/RichTextBox.h"

#include "core/text/Rtf.h"
#include "core/text/TextUnits.h"
#include "gui/toolkit/Colours.h"
#include "gui/toolkit/RichTextDocument.h"

#include <QFontInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A system colour is the automatic one.
QTextCharFormat foregroundOf(const RichTextBox::Colour& colour) {
  CharFormat format;
  format.colour = colour && Colours::isSystem(*colour) ? std::nullopt : colour;
  QTextCharFormat change;
  change.setForeground(RichTextDocument::toQt(format).foreground());
  return change;
}

/// Line ends as a document has them.
QString documentText(const QString& text) {
  QString result;
  result.reserve(text.size());
  partText(
      text, [&result](QStringView units) { result.append(units); },
      [&result](UnitKind kind) {
        result.append(QChar(kind == UnitKind::LineBreak ? QChar::LineSeparator : QChar::ParagraphSeparator));
      });
  return result;
}

bool isUndoOrRedo(const QKeyEvent& key) {
  return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

}  // namespace

RichTextBox::RichTextBox(QWidget* parent) : QTextEdit(parent) {
  setAcceptRichText(false);
  load(RichText());
}

void RichTextBox::setRichText(const RichText& text) {
  load(text);
  loadedRtf_.reset();
}

void RichTextBox::setTextRTF(const QByteArray& rtf) {
  load(readRtf(rtf));
  loadedRtf_ = rtf;
}

void RichTextBox::load(const RichText& text) {
  auto* fresh = new QTextDocument(this);
  fresh->setUndoRedoEnabled(false);
  fresh->setDefaultFont(font());
  fresh->setDocumentMargin(document()->documentMargin());
  RichTextDocument::fill(*fresh, text);
  // Without a size nothing is laid out before the control gives it its own.
  fresh->setPageSize({0, 0});
  quietly([&] {
    QTextDocument* const old = document();
    const bool isOurs = old->parent() == this;
    setDocument(fresh);
    if (isOurs) {
      delete old;
    }
  });
  watch();
  loaded_ = text;
  plain_.reset();
}

void RichTextBox::watch() {
  connect(document(), &QTextDocument::contentsChange, this, [this](int, int removed, int added) {
    loaded_.reset();
    loadedRtf_.reset();
    if (quiet_ == 0 || removed != added) {
      plain_.reset();
    }
  });
  connect(document(), &QTextDocument::contentsChanged, this, &RichTextBox::changed);
}

void RichTextBox::changed() {
  if (quiet_ == 0) {
    Q_EMIT Changed();
  }
}

/// For changes that are none of the user's, or that announce themselves once when they are done.
void RichTextBox::quietly(const std::function<void()>& work) {
  const QScopedValueRollback quiet(quiet_, quiet_ + 1);
  work();
}

RichText RichTextBox::richText() const {
  if (!loaded_) {
    loaded_ = RichTextDocument::read(*document());
  }
  return *loaded_;
}

QByteArray RichTextBox::TextRTF() const {
  return loadedRtf_ ? *loadedRtf_ : writeRtf(richText());
}

const RichTextBox::Plain& RichTextBox::plain() const {
  if (plain_) {
    return *plain_;
  }
  plain_.emplace();
  const QString raw = document()->toRawText();
  plain_->text.reserve(raw.size() + document()->blockCount());
  qsizetype copied = 0;
  for (qsizetype i = 0; i < raw.size(); ++i) {
    if (raw[i] == QChar::ParagraphSeparator || raw[i] == QChar::LineSeparator) {
      plain_->text.append(QStringView(raw).sliced(copied, i - copied)).append("\r\n"_L1);
      plain_->lineEnds.push_back(static_cast<int>(i));
      copied = i + 1;
    }
  }
  plain_->text.append(QStringView(raw).sliced(copied));
  return *plain_;
}

const QString& RichTextBox::Text() const {
  return plain().text;
}

int RichTextBox::toDocument(qsizetype position) const {
  const std::vector<int>& lineEnds = plain().lineEnds;
  const qsizetype wanted = std::clamp<qsizetype>(position, 0, plain().text.size());
  // Line end number k stands at lineEnds[k] + k in the plain text, and counts from behind its LF on.
  qsizetype low = 0;
  qsizetype high = static_cast<qsizetype>(lineEnds.size());
  while (low < high) {
    const qsizetype middle = (low + high) / 2;
    if (lineEnds[static_cast<size_t>(middle)] + middle + 2 <= wanted) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  const bool isInside = wanted > 0 && wanted < plain().text.size() && plain().text[wanted] == u'\n';
  return static_cast<int>(wanted - low - (isInside ? 1 : 0));
}

qsizetype RichTextBox::fromDocument(int position) const {
  const std::vector<int>& lineEnds = plain().lineEnds;
  return position + (std::lower_bound(lineEnds.begin(), lineEnds.end(), position) - lineEnds.begin());
}

QTextCursor RichTextBox::cursorOver(qsizetype start, qsizetype length) const {
  QTextCursor cursor(document());
  const qsizetype from = std::clamp<qsizetype>(start, 0, Text().size());
  cursor.setPosition(toDocument(from));
  cursor.setPosition(toDocument(from + std::clamp<qsizetype>(length, 0, Text().size() - from)),
                     QTextCursor::KeepAnchor);
  return cursor;
}

qsizetype RichTextBox::SelStart() const {
  return fromDocument(textCursor().selectionStart());
}

void RichTextBox::setSelStart(qsizetype position) {
  select(position, 0);
}

qsizetype RichTextBox::SelLength() const {
  return fromDocument(textCursor().selectionEnd()) - SelStart();
}

void RichTextBox::setSelLength(qsizetype length) {
  select(SelStart(), length);
}

void RichTextBox::select(qsizetype start, qsizetype length) {
  setTextCursor(cursorOver(start, length));
}

QString RichTextBox::SelText() const {
  return Text().sliced(SelStart(), SelLength());
}

void RichTextBox::setSelText(const QString& text) {
  if (text.isEmpty() && !textCursor().hasSelection()) {
    return;
  }
  quietly([&] {
    QTextCursor cursor = textCursor();
    const QTextCharFormat format = selectedFormat();
    plain_.reset();
    cursor.insertText(documentText(text), format);
    setTextCursor(cursor);
    plain_.reset();
  });
  changed();
}

RichText RichTextBox::SelRichText() const {
  return richText().slice(SelStart(), SelLength());
}

QByteArray RichTextBox::SelRTF() const {
  return writeRtf(SelRichText());
}

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
  });
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
  mergeSelected(change);
  changed();
}

double RichTextBox::SelFontSize() const {
  const double points = selectedFormat().fontPointSize();
  return points > 0 ? points : QFontInfo(font()).pointSizeF();  // whose own size may stand in pixels
}

void RichTextBox::setSelFontSize(double points) {
  if (points <= 0) {
    return;
  }
  QTextCharFormat change;
  change.setFontPointSize(qRound(points * 2) / 2.0);
  mergeSelected(change);
  changed();
}

bool RichTextBox::SelBold() const {
  return RichTextDocument::fromQt(selectedFormat()).bold;
}

void RichTextBox::setSelBold(bool on) {
  QTextCharFormat change;
  change.setFontWeight(on ? QFont::Bold : QFont::Normal);
  mergeSelected(change);
  changed();
}

bool RichTextBox::SelItalic() const {
  return selectedFormat().fontItalic();
}

void RichTextBox::setSelItalic(bool on) {
  QTextCharFormat change;
  change.setFontItalic(on);
  mergeSelected(change);
  changed();
}

bool RichTextBox::SelUnderline() const {
  return selectedFormat().fontUnderline();
}

void RichTextBox::setSelUnderline(bool on) {
  QTextCharFormat change;
  change.setFontUnderline(on);
  mergeSelected(change);
  changed();
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
      const QTextBlockFormat old = block.blockFormat();
      ParagraphFormat format = RichTextDocument::fromQt(old);
      change(format);
      cursor.setPosition(block.position());
      cursor.setBlockFormat(RichTextDocument::toQt(normalised(format), old.objectIndex()));
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

CharFormat RichTextBox::formatAt(qsizetype position) const {
  QTextCursor cursor(document());
  const int at = toDocument(position);
  cursor.setPosition(std::min(at + 1, document()->characterCount() - 1));
  return RichTextDocument::fromQt(cursor.charFormat());
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
  });
  verticalScrollBar()->setValue(scrolled);
}

void RichTextBox::Span(const QString& characters, bool forward, bool negate) {
  const QString& text = Text();
  const auto goesOn = [&](qsizetype at) {
    const bool isLineEnd = text[at] == u'\r' || text[at] == u'\n';
    return !isLineEnd && characters.contains(text[at]) != negate;
  };
  qsizetype start = SelStart();
  qsizetype end = start + SelLength();
  while (forward && end < text.size() && goesOn(end)) {
    ++end;
  }
  while (!forward && start > 0 && goesOn(start - 1)) {
    --start;
  }
  select(start, end - start);
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

void RichTextBox::setLocked(bool locked) {
  setReadOnly(locked);
  if (locked) {
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  }
}

bool RichTextBox::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && isUndoOrRedo(*static_cast<QKeyEvent*>(event))) {
    event->ignore();
    return true;
  }
  return QTextEdit::event(event);
}

void RichTextBox::keyPressEvent(QKeyEvent* event) {
  if (isUndoOrRedo(*event)) {
    event->ignore();
    return;
  }
  QTextEdit::keyPressEvent(event);
}

QMimeData* RichTextBox::createMimeDataFromSelection() const {
  auto* copied = new QMimeData;
  copied->setText(SelText().replace(u"\r\n"_s, u"\n"_s));
  return copied;
}

bool RichTextBox::canInsertFromMimeData(const QMimeData* source) const {
  return source->hasText();
}

void RichTextBox::insertFromMimeData(const QMimeData* source) {
  // The control's own refusal stands in the routine that this one takes the place of.
  if (isReadOnly()) {
    return;
  }
  setSelText(source->text());
  ensureCursorVisible();
}
