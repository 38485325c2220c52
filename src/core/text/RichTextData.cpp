#include "core/text/RichTextData.h"

#include <algorithm>

qsizetype Spans::at(qsizetype position) const {
  if (!spans_.empty() && position >= startOf(count() - 1)) {
    return count() - 1;
  }
  const auto found = std::upper_bound(spans_.begin(), spans_.end(), position,
                                      [](qsizetype wanted, const Span& span) { return wanted < span.end; });
  return found - spans_.begin();
}

void Spans::pushMerged(qsizetype end, int format) {
  if (!spans_.empty() && spans_.back().format == format) {
    spans_.back().end = end;
    return;
  }
  spans_.push_back({end, format});
}

void Spans::dropEnd(qsizetype positions) {
  spans_.back().end -= positions;
  if (spans_.back().end == startOf(count() - 1)) {
    spans_.pop_back();
  }
}

void Spans::splice(qsizetype first, qsizetype last, const Spans& with, qsizetype moved) {
  if (moved != 0) {
    std::for_each(spans_.begin() + last, spans_.end(), [moved](Span& span) { span.end += moved; });
  }
  const qsizetype common = std::min(last - first, with.count());
  std::copy_n(with.spans_.begin(), common, spans_.begin() + first);
  if (common < with.count()) {
    spans_.insert(spans_.begin() + first + common, with.spans_.begin() + common, with.spans_.end());
  } else {
    spans_.erase(spans_.begin() + first + common, spans_.begin() + last);
  }
}

qsizetype RichTextData::textEnd(qsizetype paragraph) const {
  const bool isLast = paragraph == paragraphs.count() - 1;
  return paragraphs[paragraph].end - (isLast ? 1 : 2);
}

CharFormat RichTextData::formatForInsertion(qsizetype position) const {
  const bool afterText = position > paragraphs.startOf(paragraphs.at(position));
  CharFormat format = formatForReplacement(afterText ? position - 1 : position);
  const bool goesOn = afterText && charFormats[charFormatNumber(position)].field == format.field;
  if (!goesOn) {
    format.field.clear();
  }
  return format;
}

CharFormat RichTextData::formatForReplacement(qsizetype position) const {
  CharFormat format = charFormats[charFormatNumber(position)];
  format.object.reset();
  return format;
}

void RichTextData::finish(int charFormat, int paragraphFormat) {
  runs.pushMerged(text.size() + 1, charFormat);
  paragraphs.push(text.size() + 1, paragraphFormat);
}

namespace {

/// Numbers of another text's formats in this one's table.
template <class Format>
class Renumbering {
 public:
  Renumbering(const FormatTable<Format>& from, FormatTable<Format>& to)
      : from_(from), to_(to), known_(from.size(), -1) {}

  int operator()(int number) {
    int& known = known_[static_cast<size_t>(number)];
    if (known < 0) {
      known = to_.intern(from_[number]);
    }
    return known;
  }

 private:
  const FormatTable<Format>& from_;
  FormatTable<Format>& to_;
  std::vector<int> known_;
};

}  // namespace

void RichTextData::splice(qsizetype from, qsizetype to, const RichTextData& with, bool ownFormats) {
  Renumbering<CharFormat> newChar(with.charFormats, charFormats);
  Renumbering<ParagraphFormat> newParagraph(with.paragraphFormats, paragraphFormats);
  const qsizetype moved = with.text.size() - (to - from);

  const qsizetype firstParagraph = paragraphs.at(from);
  const qsizetype lastParagraph = paragraphs.at(to);
  const int frontFormat = paragraphs[firstParagraph].format;
  const int tailFormat = paragraphs[lastParagraph].format;
  const bool hasFront = from > paragraphs.startOf(firstParagraph);
  const bool hasTail = to < textEnd(lastParagraph);
  const bool single = with.paragraphs.count() == 1;
  if (ownFormats && text.isEmpty() && with.defaultTab > 0) {
    defaultTab = with.defaultTab;
  }
  const bool takesEnd = ownFormats && !hasTail && !(single && hasFront);

  Spans newParagraphs;
  for (qsizetype i = 0; i + 1 < with.paragraphs.count(); ++i) {
    const bool keepsFront = !ownFormats || (i == 0 && hasFront);
    newParagraphs.push(from + with.paragraphs[i].end,
                       keepsFront ? frontFormat : newParagraph(with.paragraphs[i].format));
  }
  const int lastFormat = takesEnd             ? newParagraph(with.paragraphs.last().format)
                         : single && hasFront ? frontFormat
                                              : tailFormat;
  newParagraphs.push(paragraphs[lastParagraph].end + moved, lastFormat);

  qsizetype firstRun = runs.at(from);
  const qsizetype lastRun = runs.at(to);
  firstRun -= firstRun > 0 && runs.startOf(firstRun) == from ? 1 : 0;
  Spans newRuns;
  if (runs.startOf(firstRun) < from) {
    newRuns.push(from, runs[firstRun].format);
  }
  for (qsizetype i = 0; i < with.runs.count() && with.runs.startOf(i) < with.text.size(); ++i) {
    newRuns.pushMerged(from + qMin(with.runs[i].end, with.text.size()), newChar(with.runs[i].format));
  }
  newRuns.pushMerged(runs[lastRun].end + moved, runs[lastRun].format);

  text.replace(from, to - from, with.text);
  runs.splice(firstRun, lastRun + 1, newRuns, moved);
  paragraphs.splice(firstParagraph, lastParagraph + 1, newParagraphs, moved);
  if (takesEnd) {
    const qsizetype paragraph = paragraphs.at(from + with.text.size());
    const int endFormat = newChar(with.runs.last().format);
    mapRuns(textEnd(paragraph), paragraphs[paragraph].end, [endFormat](int) { return endFormat; });
  }
}
