#include "core/text/RichText.h"

#include "core/text/RichTextData.h"
#include "core/text/TextUnits.h"

#include <QStringMatcher>

#include <algorithm>

namespace {

struct Range {
  qsizetype from;
  qsizetype to;
};

/// Between the CR and the LF of a line end.
bool cutsLineEnd(const QString& text, qsizetype position) {
  return position > 0 && position < text.size() && text[position] == u'\n';
}

Range rangeIn(const QString& text, qsizetype from, qsizetype length) {
  const qsizetype start = std::clamp<qsizetype>(from, 0, text.size());
  const qsizetype room = text.size() - start;
  const qsizetype end = start + (length < 0 ? room : std::min(length, room));
  const Range range{start - (cutsLineEnd(text, start) ? 1 : 0), end + (cutsLineEnd(text, end) ? 1 : 0)};
  return end == start ? Range{range.from, range.from} : range;
}

RichTextData* emptyData() {
  auto* data = new RichTextData;
  data->finish(data->charFormats.intern({}), data->paragraphFormats.intern({}));
  return data;
}

const QSharedDataPointer<RichTextData>& sharedEmpty() {
  static const QSharedDataPointer<RichTextData> empty(emptyData());
  return empty;
}

template <class Format>
bool sameFormats(const Spans& a, const FormatTable<Format>& aFormats, const Spans& b,
                 const FormatTable<Format>& bFormats) {
  if (a.count() != b.count()) {
    return false;
  }
  std::vector<int> equivalent(aFormats.size(), -1);
  for (qsizetype i = 0; i < a.count(); ++i) {
    int& known = equivalent[static_cast<size_t>(a[i].format)];
    if (known < 0 && aFormats[a[i].format] == bFormats[b[i].format]) {
      known = b[i].format;
    }
    if (known != b[i].format || a[i].end != b[i].end) {
      return false;
    }
  }
  return true;
}

/// Puts a new text together from parts of another and from plain text between them.
class Assembler {
 public:
  explicit Assembler(const RichTextData& source) : source_(source), made_(new RichTextData) {
    made_->charFormats = source.charFormats;
    made_->paragraphFormats = source.paragraphFormats;
    made_->defaultTab = source.defaultTab;
  }

  void appendPart(qsizetype from, qsizetype to) {
    const qsizetype moved = made_->text.size() - from;
    for (qsizetype i = source_.paragraphs.at(from); i < source_.paragraphs.count(); ++i) {
      open(source_.paragraphs[i].format);
      if (source_.paragraphs[i].end > to) {
        break;
      }
      close(source_.paragraphs[i].end + moved);
    }
    for (qsizetype i = source_.runs.at(from); i < source_.runs.count() && source_.runs.startOf(i) < to; ++i) {
      made_->runs.pushMerged(std::min(source_.runs[i].end, to) + moved, source_.runs[i].format);
    }
    made_->text.append(QStringView(source_.text).sliced(from, to - from));
    hasFront_ = made_->text.size() > made_->paragraphs.end();
  }

  /// Plain text in the formats of the source's position.
  void appendPlain(QStringView text, qsizetype likePosition) {
    open(source_.paragraphs[source_.paragraphs.at(likePosition)].format);
    const int charFormat = made_->charFormats.intern(source_.formatForReplacement(likePosition));
    partText(
        text, [&](QStringView units) { appendUnits(units, charFormat); },
        [&](UnitKind kind) {
          appendUnits(u"\r\n", charFormat);
          if (kind == UnitKind::ParagraphEnd) {
            close(made_->text.size());
          }
        });
  }

  /// The text ends like the paragraph of the source that the position is in.
  RichTextData* take(qsizetype likePosition) {
    const qsizetype paragraph = source_.paragraphs.at(likePosition);
    open(source_.paragraphs[paragraph].format);
    made_->finish(source_.charFormatNumber(source_.textEnd(paragraph)), openFormat_);
    return made_.release();
  }

 private:
  void appendUnits(QStringView units, int charFormat) {
    made_->text.append(units);
    made_->runs.pushMerged(made_->text.size(), charFormat);
    hasFront_ = true;
  }
  /// A paragraph keeps the format of what was put in first.
  void open(int format) { openFormat_ = hasFront_ ? openFormat_ : format; }
  void close(qsizetype end) {
    made_->paragraphs.push(end, openFormat_);
    hasFront_ = false;
  }

  const RichTextData& source_;
  std::unique_ptr<RichTextData> made_;
  int openFormat_ = 0;
  bool hasFront_ = false;
};

/// What stands there is neither an object nor hidden.
bool isRead(const RichTextData& data, qsizetype run) {
  const CharFormat& format = data.charFormats[data.runs[run].format];
  return !format.hidden && !format.object;
}

}  // namespace

RichText::RichText() : data_(sharedEmpty()) {}
RichText::RichText(RichTextData* data) : data_(data) {}
RichText::RichText(const RichText&) = default;
RichText::RichText(RichText&& other) noexcept : RichText() {
  data_.swap(other.data_);
}
RichText& RichText::operator=(const RichText&) = default;
RichText& RichText::operator=(RichText&& other) noexcept {
  data_.swap(other.data_);
  return *this;
}
RichText::~RichText() = default;

RichText RichText::fromPlain(QStringView text, const CharFormat& format, const ParagraphFormat& paragraph) {
  Builder builder(text.size());
  const int charNumber = builder.charFormat(format);
  const int paragraphNumber = builder.paragraphFormat(paragraph);
  builder.append(text, charNumber, paragraphNumber);
  return builder.take(charNumber, paragraphNumber);
}

RichText RichText::fromObject(std::shared_ptr<const InlineObject> object, const CharFormat& format) {
  CharFormat its = format;
  its.object = std::move(object);
  Builder builder(1);
  builder.appendObject(builder.charFormat(its));
  return builder.take(builder.charFormat(format), builder.paragraphFormat({}));
}

const QString& RichText::text() const {
  return data_->text;
}

QString RichText::plainText() const {
  const RichTextData& data = *data_;
  qsizetype firstUnread = 0;
  while (firstUnread < data.runs.count() && isRead(data, firstUnread)) {
    ++firstUnread;
  }
  if (firstUnread == data.runs.count()) {
    return data.text;
  }
  QString plain = data.text.first(data.runs.startOf(firstUnread));
  plain.reserve(data.text.size());
  for (qsizetype i = firstUnread; i < data.runs.count(); ++i) {
    if (isRead(data, i)) {
      const qsizetype start = data.runs.startOf(i);
      plain.append(QStringView(data.text).sliced(start, qMin(data.runs[i].end, data.text.size()) - start));
    }
  }
  return plain;
}

qsizetype RichText::positionOfRead(qsizetype place) const {
  const RichTextData& data = *data_;
  qsizetype passed = 0;
  for (qsizetype i = 0; i < data.runs.count(); ++i) {
    const qsizetype start = data.runs.startOf(i);
    const qsizetype length = isRead(data, i) ? qMin(data.runs[i].end, data.text.size()) - start : 0;
    if (place < passed + length) {
      return start + place - passed;
    }
    passed += length;
  }
  return data.text.size();
}

int RichText::defaultTab() const {
  return data_->defaultTab;
}

void RichText::setDefaultTab(int twips) {
  data_->setDefaultTab(twips);
}

qsizetype RichText::paragraphCount() const {
  return data_->paragraphs.count();
}

RichText::Paragraph RichText::paragraph(qsizetype index) const {
  const qsizetype start = data_->paragraphs.startOf(index);
  const qsizetype end = data_->textEnd(index);
  return {start, end - start, &data_->paragraphFormats[data_->paragraphs[index].format], &charFormatAt(end)};
}

qsizetype RichText::paragraphAt(qsizetype position) const {
  return data_->paragraphs.at(std::clamp<qsizetype>(position, 0, size()));
}

qsizetype RichText::runCount() const {
  return data_->runs.count();
}

RichText::Run RichText::run(qsizetype index) const {
  const qsizetype start = data_->runs.startOf(index);
  return {start, data_->runs[index].end - start, &data_->charFormats[data_->runs[index].format]};
}

qsizetype RichText::runAt(qsizetype position) const {
  return data_->runs.at(std::clamp<qsizetype>(position, 0, size()));
}

const CharFormat& RichText::charFormatAt(qsizetype position) const {
  return data_->charFormats[data_->runs[runAt(position)].format];
}

const ParagraphFormat& RichText::paragraphFormatAt(qsizetype position) const {
  return data_->paragraphFormats[data_->paragraphs[paragraphAt(position)].format];
}

void RichText::replace(qsizetype from, qsizetype length, QStringView with) {
  const Range range = rangeIn(text(), from, length);
  if (range.from == range.to && with.isEmpty()) {
    return;
  }
  const bool replaces = range.to > range.from;
  const RichText fragment =
      fromPlain(with, replaces ? data_->formatForReplacement(range.from) : data_->formatForInsertion(range.from));
  data_->splice(range.from, range.to, *fragment.data_, false);
}

void RichText::replace(qsizetype from, qsizetype length, const RichText& with) {
  const Range range = rangeIn(text(), from, length);
  if (range.from == range.to && with.isEmpty()) {
    return;
  }
  const RichText kept = with;  // it may be this very text
  data_->splice(range.from, range.to, *kept.data_, true);
}

qsizetype RichText::replaceAll(QStringView find, QStringView with, Qt::CaseSensitivity caseSensitivity) {
  const QStringMatcher matcher(find, caseSensitivity);
  const RichText before = *this;
  const QString& text = before.text();
  const bool findsNothing = find.isEmpty() || find.contains(QChar(QChar::ObjectReplacementCharacter));
  qsizetype at = findsNothing ? -1 : matcher.indexIn(text);
  if (at < 0) {
    return 0;
  }
  Assembler assembler(*before.data_);
  qsizetype count = 0;
  qsizetype copied = 0;
  while (at >= 0) {
    const Range match = rangeIn(text, at, find.size());
    if (match.from > copied) {
      assembler.appendPart(copied, match.from);
    }
    assembler.appendPlain(with, match.from);
    copied = match.to;
    ++count;
    at = matcher.indexIn(text, copied);
  }
  if (copied < text.size()) {
    assembler.appendPart(copied, text.size());
  }
  *this = RichText(assembler.take(text.size()));
  return count;
}

void RichText::formatCharacters(qsizetype from, qsizetype length, const CharChange& change) {
  const Range range = rangeIn(text(), from, length);
  const bool takesEnd = range.to == size() && range.from <= data_->paragraphs.startOf(paragraphCount() - 1);
  const qsizetype to = range.to + (takesEnd ? 1 : 0);
  if (range.from == to) {
    return;
  }
  RichTextData& data = *data_;
  std::vector<int> changed(data.charFormats.size(), -1);
  data.mapRuns(range.from, to, [&](int number) {
    int& known = changed[static_cast<size_t>(number)];
    if (known < 0) {
      CharFormat format = data.charFormats[number];
      const auto object = format.object;
      change(format);
      format.object = object;
      known = data.charFormats.intern(std::move(format));
    }
    return known;
  });
}

void RichText::formatParagraphs(qsizetype from, qsizetype length, const ParagraphChange& change) {
  const Range range = rangeIn(text(), from, length);
  RichTextData& data = *data_;
  const bool all = range.from == 0 && range.to == size();
  const bool backs = !all && range.to > range.from;
  const qsizetype first = data.paragraphs.at(range.from);
  const qsizetype last = data.paragraphs.at(range.to - (backs ? 1 : 0));
  std::vector<int> changed(data.paragraphFormats.size(), -1);
  Spans formatted;
  for (qsizetype i = first; i <= last; ++i) {
    const int number = data.paragraphs[i].format;
    int& known = changed[static_cast<size_t>(number)];
    if (known < 0) {
      ParagraphFormat format = data.paragraphFormats[number];
      change(format);
      known = data.paragraphFormats.intern(std::move(format));
    }
    formatted.push(data.paragraphs[i].end, known);
  }
  data.paragraphs.splice(first, last + 1, formatted, 0);
}

RichText RichText::slice(qsizetype from, qsizetype length) const {
  const Range range = rangeIn(text(), from, length);
  Assembler assembler(*data_);
  if (range.to > range.from) {
    assembler.appendPart(range.from, range.to);
  }
  return RichText(assembler.take(range.to));
}

RichText RichText::splitOff(qsizetype at) {
  RichText behind = slice(at);
  remove(at, -1);
  return behind;
}

bool RichText::equals(const RichText& other) const {
  const RichTextData& a = *data_;
  const RichTextData& b = *other.data_;
  return &a == &b || (a.text == b.text && a.defaultTab == b.defaultTab &&
                      sameFormats(a.runs, a.charFormats, b.runs, b.charFormats) &&
                      sameFormats(a.paragraphs, a.paragraphFormats, b.paragraphs, b.paragraphFormats));
}
