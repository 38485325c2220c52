#include "gui/toolkit/RichTextBox.h"

#include "core/text/Rtf.h"
#include "core/text/TextUnits.h"
#include "gui/toolkit/InlineObjectView.h"
#include "gui/toolkit/RichTextDocument.h"

#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStringMatcher>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

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

/// First lines that hang out over the margin would be cut off.
void growMargins(QTextDocument& document, const RichText& text) {
  const RichTextDocument::Overhang overhang = RichTextDocument::overhang(text);
  QTextFrameFormat frame = document.rootFrame()->frameFormat();
  const double left = document.documentMargin() + overhang.left;
  const double right = document.documentMargin() + overhang.right;
  if (left > frame.leftMargin() || right > frame.rightMargin()) {
    frame.setLeftMargin(qMax(left, frame.leftMargin()));
    frame.setRightMargin(qMax(right, frame.rightMargin()));
    document.rootFrame()->setFrameFormat(frame);
  }
}

/// Positions of the document.
struct DocumentRange {
  int from;
  int to;
};

std::vector<qsizetype> matchesIn(const QString& text, const QString& find, Qt::CaseSensitivity caseSensitivity) {
  std::vector<qsizetype> starts;
  if (find.isEmpty() || find.contains(QChar(QChar::ObjectReplacementCharacter))) {
    return starts;
  }
  const QStringMatcher matcher(find, caseSensitivity);
  for (qsizetype at = matcher.indexIn(text); at >= 0; at = matcher.indexIn(text, at + find.size())) {
    starts.push_back(at);
  }
  return starts;
}

/// Where the caret stands once all ranges have become so long; in front of one that it was in.
int caretAfter(int caret, const std::vector<DocumentRange>& ranges, int length) {
  int shift = 0;
  for (const DocumentRange& range : ranges) {
    if (range.to > caret) {
      return std::min(range.from, caret) + shift;
    }
    shift += length - (range.to - range.from);
  }
  return caret + shift;
}

/// Words take on colours as marks.
RichText withoutColours(RichText text) {
  text.formatCharacters(0, -1, [](CharFormat& format) { format.colour.reset(); });
  return text;
}

}  // namespace

RichTextBox::RichTextBox(QWidget* parent) : QTextEdit(parent), objects_(new InlineObjectView(*this)) {
  setAcceptRichText(false);
  viewport()->setMouseTracking(true);
  connect(this, &QTextEdit::cursorPositionChanged, this, &RichTextBox::tellOfCaret);
  connect(this, &QTextEdit::cursorPositionChanged, this, [this] { beforeCaretFormat_.reset(); });
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
  // Without a size nothing is laid out before the control gives it its own.
  fresh->setPageSize({0, 0});
  objects_->watch(*fresh);
  RichTextDocument::fill(*fresh, text, palette());
  growMargins(*fresh, text);
  quietly([&] {
    QTextDocument* const old = document();
    const bool isOurs = old->parent() == this;
    setDocument(fresh);
    if (isOurs) {
      delete old;
    }
  });
  watch();
  original_ = text;
  edited_ = false;
  hasLists_ = RichTextDocument::hasLists(text);
  hasOwnLooks_ = RichTextDocument::hasOwnLooks(text);
  loaded_ = text;
  plain_.reset();
  Q_EMIT Loaded();
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
  if (quiet_ != 0) {
    return;
  }
  // Within a larger edit, as a drop is, the document tells of its change only at the end.
  loaded_.reset();
  loadedRtf_.reset();
  beforeCaretFormat_.reset();
  edited_ = true;
  if (together_ != 0) {
    changedTogether_ = true;
    return;
  }
  if (hasLists_) {
    viewport()->update();  // the numbers of items further down may have changed
  }
  Q_EMIT Changed();
}

void RichTextBox::asOneChange(const std::function<void()>& work) {
  {
    const QScopedValueRollback together(together_, together_ + 1);
    work();
  }
  if (together_ == 0 && std::exchange(changedTogether_, false)) {
    changed();
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

bool RichTextBox::isEdited() const {
  return edited_ && withoutColours(richText()) != withoutColours(original_);
}

void RichTextBox::setUnedited() {
  original_ = richText();
  edited_ = false;
}

QString RichTextBox::PlainText() const {
  return richText().plainText();
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
  if (Locked() || (text.isEmpty() && !textCursor().hasSelection())) {
    return;
  }
  quietly([&] {
    QTextCursor cursor = textCursor();
    CharFormat format = RichTextDocument::fromQt(selectedFormat());
    format.object.reset();
    plain_.reset();
    cursor.insertText(documentText(text), RichTextDocument::toQt(format, palette()));
    setTextCursor(cursor);
    plain_.reset();
  });
  changed();
}

qsizetype RichTextBox::replaceAll(const QString& find, const QString& with, Qt::CaseSensitivity caseSensitivity) {
  std::vector<DocumentRange> matches;
  if (Locked()) {
    return 0;
  }
  for (const qsizetype start : matchesIn(Text(), find, caseSensitivity)) {
    matches.push_back({toDocument(start), toDocument(start + find.size())});
  }
  if (matches.empty()) {
    return 0;
  }
  const QString replacement = documentText(with);
  const int caret = caretAfter(textCursor().position(), matches, static_cast<int>(replacement.size()));
  const int heightBefore = cursorRect().top();
  quietly([&] {
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    std::for_each(matches.rbegin(), matches.rend(), [&](const DocumentRange& match) {
      const QTextCharFormat format = formatInPlaceOf(match.from);
      cursor.setPosition(match.from);
      cursor.setPosition(match.to, QTextCursor::KeepAnchor);
      cursor.insertText(replacement, format);
    });
    cursor.endEditBlock();
    plain_.reset();
    cursor.setPosition(caret);
    setTextCursor(cursor);
    // What the writer was looking at stays where it was.
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top() - heightBefore);
  });
  changed();
  return static_cast<qsizetype>(matches.size());
}

/// What new text takes on where it stands for the character.
QTextCharFormat RichTextBox::formatInPlaceOf(int documentPosition) const {
  CharFormat format = formatOfCharacter(documentPosition);
  format.object.reset();
  return RichTextDocument::toQt(format, palette());
}

RichText RichTextBox::SelRichText() const {
  return richText().slice(SelStart(), SelLength());
}

void RichTextBox::setSelRichText(const RichText& text) {
  if (Locked() || (text.isEmpty() && !textCursor().hasSelection())) {
    return;
  }
  quietly([&] {
    QTextCursor cursor = textCursor();
    RichTextDocument::insert(cursor, text, palette());
    growMargins(*document(), text);
    setTextCursor(cursor);
    plain_.reset();
  });
  hasLists_ = hasLists_ || RichTextDocument::hasLists(text);
  hasOwnLooks_ = hasOwnLooks_ || RichTextDocument::hasOwnLooks(text);
  changed();
}

std::shared_ptr<const InlineObject> RichTextBox::objectAt(qsizetype position) const {
  const bool isObject =
      position >= 0 && position < Text().size() && Text()[position] == QChar::ObjectReplacementCharacter;
  return isObject ? formatOfCharacter(toDocument(position)).object : nullptr;
}

void RichTextBox::replaceObject(qsizetype position, std::shared_ptr<const InlineObject> object) {
  if (!objectAt(position)) {
    return;
  }
  quietly([&] {
    QTextCursor cursor = cursorOver(position, 1);
    CharFormat format = RichTextDocument::fromQt(cursor.charFormat());
    format.object = std::move(object);
    cursor.insertText(QString(QChar(QChar::ObjectReplacementCharacter)), RichTextDocument::toQt(format, palette()));
  });
  changed();
}

QByteArray RichTextBox::SelRTF() const {
  return writeRtf(SelRichText());
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

void RichTextBox::setLocked(bool locked) {
  setReadOnly(locked);
  if (locked) {
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  }
}
