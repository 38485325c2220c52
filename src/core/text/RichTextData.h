#pragma once

#include "core/text/RichText.h"

#include <QHash>
#include <QSharedData>

#include <vector>

/// Formats in use, each once, named by number.
template <class Format>
class FormatTable {
 public:
  const Format& operator[](int number) const { return formats_[static_cast<size_t>(number)]; }
  size_t size() const { return formats_.size(); }

  int intern(Format format) {
    format = normalised(std::move(format));
    const int known = find(format);
    return known >= 0 ? known : add(std::move(format));
  }

 private:
  /// Few formats are found faster by looking at each than by hashing.
  static constexpr size_t kHashedFrom = 12;

  int find(const Format& format) const {
    if (formats_.size() >= kHashedFrom) {
      return numbers_.value(format, -1);
    }
    for (size_t i = 0; i < formats_.size(); ++i) {
      if (formats_[i] == format) {
        return static_cast<int>(i);
      }
    }
    return -1;
  }

  int add(Format format) {
    const int number = static_cast<int>(formats_.size());
    formats_.push_back(std::move(format));
    if (formats_.size() == kHashedFrom) {
      for (size_t i = 0; i < formats_.size(); ++i) {
        numbers_.insert(formats_[i], static_cast<int>(i));
      }
    } else if (formats_.size() > kHashedFrom) {
      numbers_.insert(formats_.back(), number);
    }
    return number;
  }

  std::vector<Format> formats_;
  QHash<Format, int> numbers_;
};

/// A stretch of positions with one format, from the end of the span in front to its own.
struct Span {
  qsizetype end;
  int format;
};

/// Spans in order, without gaps, none empty.
class Spans {
 public:
  qsizetype count() const { return static_cast<qsizetype>(spans_.size()); }
  const Span& operator[](qsizetype index) const { return spans_[static_cast<size_t>(index)]; }
  qsizetype startOf(qsizetype index) const { return index == 0 ? 0 : (*this)[index - 1].end; }
  qsizetype end() const { return spans_.empty() ? 0 : spans_.back().end; }
  const Span& last() const { return spans_.back(); }
  /// Index of the span that holds the position.
  qsizetype at(qsizetype position) const;

  void push(qsizetype end, int format) { spans_.push_back({end, format}); }
  /// As push, but grows the last span when the format is the same.
  void pushMerged(qsizetype end, int format);
  void dropLast() { spans_.pop_back(); }
  /// Takes so many positions off the end, which lie in the last span.
  void dropEnd(qsizetype positions);

  /// Puts other spans in place of [first, last) and moves the ends behind them.
  void splice(qsizetype first, qsizetype last, const Spans& with, qsizetype moved);

 private:
  std::vector<Span> spans_;
};

class RichTextData : public QSharedData {
 public:
  static constexpr int kMaxDefaultTab = 31680;

  QString text;
  FormatTable<CharFormat> charFormats;
  FormatTable<ParagraphFormat> paragraphFormats;
  /// Both cover the text and one position more, which stands for the end of the last paragraph.
  Spans runs;
  Spans paragraphs;
  int defaultTab = 0;

  void setDefaultTab(int twips) { defaultTab = twips > 0 ? qMin(twips, kMaxDefaultTab) : 0; }
  /// Where the text of a paragraph ends and its line end begins.
  qsizetype textEnd(qsizetype paragraph) const;
  /// The format number of the character behind the position.
  int charFormatNumber(qsizetype position) const { return runs[runs.at(position)].format; }
  /// The format that text put in here takes: a link ends where it ended.
  CharFormat formatForInsertion(qsizetype position) const;
  /// The one that text put in place of what begins here takes.
  CharFormat formatForReplacement(qsizetype position) const;

  /// Ends the last paragraph of a text that is being built.
  void finish(int charFormat, int paragraphFormat);

  /// Puts a text in place of [from, to). With ownFormats its paragraph formats come along, as RichText tells.
  void splice(qsizetype from, qsizetype to, const RichTextData& with, bool ownFormats);
  /// Gives [from, to) the format that `mapped` makes of each format number in it.
  template <class Mapping>
  void mapRuns(qsizetype from, qsizetype to, Mapping&& mapped);
};

template <class Mapping>
void RichTextData::mapRuns(qsizetype from, qsizetype to, Mapping&& mapped) {
  qsizetype first = runs.at(from);
  const qsizetype last = runs.at(to - 1);
  Spans middle;
  if (runs.startOf(first) < from) {
    middle.push(from, runs[first].format);
  } else if (first > 0) {
    middle.push(from, runs[--first].format);
  }
  for (qsizetype i = runs.at(from); i <= last; ++i) {
    middle.pushMerged(qMin(runs[i].end, to), mapped(runs[i].format));
  }
  qsizetype behind = last + 1;
  if (runs[last].end > to) {
    middle.pushMerged(runs[last].end, runs[last].format);
  } else if (behind < runs.count()) {
    middle.pushMerged(runs[behind].end, runs[behind].format);
    ++behind;
  }
  runs.splice(first, behind, middle, 0);
}
