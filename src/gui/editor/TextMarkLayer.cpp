#include "gui/editor/TextMarkLayer.h"

#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Colours.h"
#include "gui/toolkit/RichTextBox.h"

#include <QEvent>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Told colours; what is shown is their counterpart on the pane's ground.
constexpr quint32 kName = 0xFF0000;
constexpr quint32 kMisspelling = 192;

bool isOfWord(QChar unit) {
  return unit.isLetterOrNumber() || unit.isMark() || unit == u'\'' || unit == u'\u2019' || unit == u'-';
}

QString textBetween(const QTextDocument& document, int from, int to) {
  QString text;
  QTextBlock block = document.findBlock(from);
  const int offset = from - block.position();
  for (; block.isValid() && block.position() < to; block = block.next()) {
    text += block.text();
    text += QChar(QChar::ParagraphSeparator);
  }
  return text.sliced(std::min<qsizetype>(offset, text.size())).first(std::max(0, to - from));
}

/// Where a mark is when a stretch of the text has become another.
TextMark moved(const TextMark& mark, qsizetype at, qsizetype removed, QStringView added) {
  const qsizetype removedEnd = at + removed;
  const qsizetype delta = added.size() - removed;
  const auto between = [&mark](qsizetype start, qsizetype end) {
    return TextMark{start, std::max<qsizetype>(0, end - start), mark.kind};
  };
  if (mark.end() < at) {
    return mark;
  }
  if (mark.start >= removedEnd) {
    return between(mark.start + delta, mark.end() + delta);
  }
  const bool losesAll = at <= mark.start && mark.end() <= removedEnd;
  if (losesAll) {
    return between(at, at);
  }
  if (at < mark.start) {
    return between(at + added.size(), mark.end() + delta);
  }
  const auto letters = std::find_if_not(added.begin(), added.end(), isOfWord) - added.begin();
  const bool goesOn = letters == added.size() && removedEnd <= mark.end();
  return between(mark.start, goesOn ? mark.end() + delta : at + letters);
}

void moveAll(TextMarks& marks, qsizetype at, qsizetype removed, QStringView added) {
  const auto first = std::partition_point(marks.begin(), marks.end(), [at](const TextMark& m) { return m.end() < at; });
  for (auto mark = first; mark != marks.end(); ++mark) {
    *mark = moved(*mark, at, removed, added);
  }
  marks.erase(std::remove_if(first, marks.end(), [](const TextMark& m) { return m.length == 0; }), marks.end());
}

TextMarks between(const TextMarks& marks, qsizetype from, qsizetype to) {
  const auto first =
      std::partition_point(marks.begin(), marks.end(), [from](const TextMark& m) { return m.end() <= from; });
  const auto last = std::partition_point(first, marks.end(), [to](const TextMark& m) { return m.start < to; });
  return {first, last};
}

TextMarks ofKind(const TextMarks& marks, TextMark::Kind kind) {
  TextMarks found;
  std::copy_if(marks.begin(), marks.end(), std::back_inserter(found),
               [kind](const TextMark& mark) { return mark.kind == kind; });
  return found;
}

}  // namespace

TextMarkLayer::TextMarkLayer(RichTextBox& pane) : QObject(&pane), pane_(pane) {
  pane.installEventFilter(this);
  connect(&pane, &RichTextBox::Loaded, this, &TextMarkLayer::watch);
  connect(&pane, &RichTextBox::cursorPositionChanged, this, &TextMarkLayer::tellOfCaret);
  chooseLooks();
  watch();
}

void TextMarkLayer::watch() {
  if (document_ != nullptr) {
    document_->disconnect(this);
  }
  document_ = pane_.document();
  connect(document_, &QTextDocument::contentsChange, this, &TextMarkLayer::follow);
  if (!isEmpty()) {
    // What is the same in both stays marked.
    follow(0, static_cast<int>(text_.size()), document_->characterCount() - 1);
    layAll();
  }
}

TextMarks TextMarkLayer::toDocument(const TextMarks& marks) const {
  TextMarks placed;
  placed.reserve(marks.size());
  for (const TextMark& mark : marks) {
    const int start = pane_.toDocument(mark.start);
    placed.push_back({start, pane_.toDocument(mark.end()) - start, mark.kind});
  }
  return placed;
}

void TextMarkLayer::setMarks(const TextMarks& marks) {
  const TextMarks placed = toDocument(marks);
  misspellings_ = ofKind(placed, TextMark::Kind::Misspelling);
  names_ = ofKind(placed, TextMark::Kind::Name);
  layAll();
}

void TextMarkLayer::setMarks(TextMark::Kind kind, const TextMarks& marks) {
  of(kind) = toDocument(marks);
  layAll();
}

void TextMarkLayer::clear() {
  setMarks({});
}

TextMarks TextMarkLayer::marks() const {
  TextMarks placed = laidOver(misspellings_, names_);
  for (TextMark& mark : placed) {
    const qsizetype end = pane_.fromDocument(static_cast<int>(mark.end()));
    mark.start = pane_.fromDocument(static_cast<int>(mark.start));
    mark.length = end - mark.start;
  }
  return placed;
}

std::optional<TextMark> TextMarkLayer::shownAt(qsizetype position) const {
  std::optional<TextMark> found;
  for (const TextMark& mark : shownBetween(position - 1, position + 1)) {
    if (mark.start <= position && position <= mark.end()) {
      found = mark;  // the later of two that meet here
    }
  }
  return found;
}

std::optional<TextMark> TextMarkLayer::markAt(qsizetype position) const {
  std::optional<TextMark> found = shownAt(pane_.toDocument(position));
  if (found) {
    const qsizetype end = pane_.fromDocument(static_cast<int>(found->end()));
    found->start = pane_.fromDocument(static_cast<int>(found->start));
    found->length = end - found->start;
  }
  return found;
}

std::optional<TextMark::Kind> TextMarkLayer::kindAt(qsizetype position) const {
  const auto mark = markAt(position);
  return mark ? std::optional(mark->kind) : std::nullopt;
}

/// A screen reader hears what the eye sees by a colour. The pane has told of objects and links by now.
void TextMarkLayer::tellOfCaret() {
  const auto mark = shownAt(pane_.textCursor().position());
  if (mark && pane_.accessibleDescription().isEmpty()) {
    pane_.setAccessibleDescription(translated(mark->kind == TextMark::Kind::Name
                                                  ? shownText(u"Name of a character"_s)
                                                  : shownText(u"Not in the dictionary"_s)));
  }
}

/// What has become what. The document tells of a stretch that holds all that changed, be it only in its looks.
TextMarkLayer::Change TextMarkLayer::takeUp(int from, int removed, int added) {
  const int total = document_->characterCount() - 1;
  // The paragraph end behind the text is in some of what a document tells.
  const int excess = std::max(0, from + added - total);
  added -= excess;
  removed -= excess;
  const bool isKnown = removed >= 0 && added >= 0 && text_.size() - removed + added == total;
  if (!isKnown) {
    from = 0;
    removed = static_cast<int>(text_.size());
    added = total;
  }
  const QStringView before = QStringView(text_).sliced(from, removed);
  const QString now = textBetween(*document_, from, from + added);
  const auto same = std::mismatch(before.begin(), before.end(), now.begin(), now.end()).first - before.begin();
  const auto rest = std::mismatch(before.rbegin(), before.rend() - same, now.rbegin(), now.rend() - same);
  const auto tail = rest.first - before.rbegin();
  const Change change{static_cast<int>(from + same), static_cast<int>(removed - same - tail),
                      now.sliced(same, now.size() - same - tail)};
  text_.replace(change.at, change.removed, change.added);
  return change;
}

void TextMarkLayer::follow(int from, int removed, int added) {
  if (isEmpty()) {
    return;
  }
  const Change change = takeUp(from, removed, added);
  if (change.removed > 0 || !change.added.isEmpty()) {
    moveAll(misspellings_, change.at, change.removed, change.added);
    moveAll(names_, change.at, change.removed, change.added);
  }
  const int changedEnd = change.at + static_cast<int>(change.added.size());
  lay(std::min(from, change.at), std::max(from + added, changedEnd));
}

TextMarks TextMarkLayer::shownBetween(qsizetype from, qsizetype to) const {
  return laidOver(between(misspellings_, from, to), between(names_, from, to));
}

void TextMarkLayer::layAll() {
  isDue_ = held_ > 0;
  if (isDue_) {
    return;
  }
  text_ = isEmpty() ? QString() : document_->toRawText();
  lay(0, document_->characterCount());
}

void TextMarkLayer::lay(int from, int to) {
  int first = -1;
  int last = -1;
  for (QTextBlock block = document_->findBlock(from); block.isValid() && block.position() <= to; block = block.next()) {
    if (layBlock(block)) {
      first = first < 0 ? block.position() : first;
      last = block.position() + block.length();
    }
  }
  if (first >= 0) {
    // Draws anew without telling anybody that the text has changed.
    document_->markContentsDirty(first, last - first);
  }
}

void TextMarkLayer::chooseLooks() {
  misspellingLook_.setForeground(Colours::readable(kMisspelling, pane_.palette()));
  nameLook_.setForeground(Colours::readable(kName, pane_.palette()));
}

/// False when the block shows its marks already. Letters that an input method composes have looks of their own there.
bool TextMarkLayer::layBlock(const QTextBlock& block) const {
  QTextLayout& layout = *block.layout();
  const int composed = layout.preeditAreaPosition();
  const int composedLength = static_cast<int>(layout.preeditAreaText().size());
  QList<QTextLayout::FormatRange> ranges;
  for (const QTextLayout::FormatRange& range : layout.formats()) {
    const bool isComposing =
        composedLength > 0 && range.start >= composed && range.start + range.length <= composed + composedLength;
    if (isComposing) {
      ranges.append(range);
    }
  }
  const int start = block.position();
  const int end = start + block.length() - 1;
  for (const TextMark& mark : shownBetween(start, end)) {
    const qsizetype from = std::max<qsizetype>(mark.start, start) - start;
    const qsizetype to = std::min<qsizetype>(mark.end(), end) - start;
    QTextLayout::FormatRange range{static_cast<int>(from), static_cast<int>(to - from),
                                   mark.kind == TextMark::Kind::Name ? nameLook_ : misspellingLook_};
    if (composedLength > 0 && range.start >= composed) {
      range.start += composedLength;
    } else if (composedLength > 0 && range.start + range.length > composed) {
      range.length += composedLength;
    }
    ranges.append(range);
  }
  if (ranges == layout.formats()) {
    return false;
  }
  layout.setFormats(ranges);
  return true;
}

bool TextMarkLayer::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    chooseLooks();
    layAll();
  }
  return QObject::eventFilter(watched, event);
}
