#include "core/exchange/TextParts.h"

#include <algorithm>
#include <optional>

namespace {

/// Visits the text and puts what is in a range into a builder.
class Parts {
 public:
  Parts(const RichText& text, const std::vector<TextRange>& ranges, const std::function<void(const RichText&)>& take)
      : text_(text), ranges_(ranges), take_(take) {
    begin();
  }

  void text(QStringView units, const CharFormat& format) {
    pass(units.size(), [&](qsizetype from, qsizetype length) {
      // There are no line ends in it, so it is no matter of what format their paragraphs would be.
      builder_->append(units.sliced(from, length), numberOf(format), 0);
    });
  }
  void object(const CharFormat& format) {
    pass(1, [&](qsizetype, qsizetype) { builder_->appendObject(numberOf(format)); });
  }
  void lineBreak(const CharFormat& format) {
    pass(2, [&](qsizetype, qsizetype) { builder_->lineBreak(numberOf(format)); });
  }
  void paragraphEnd(const CharFormat& format, const ParagraphFormat& paragraph) {
    // The last one has no positions.
    pass(std::min<qsizetype>(2, text_.size() - at_),
         [&](qsizetype, qsizetype) { builder_->endParagraph(numberOf(format), builder_->paragraphFormat(paragraph)); });
  }

 private:
  template <class Put>
  void pass(qsizetype length, Put put) {
    const qsizetype end = at_ + length;
    while (next_ < ranges_.size()) {
      const TextRange& range = ranges_[next_];
      const qsizetype from = std::max(at_, range.from);
      const qsizetype to = std::min(end, range.to);
      if (from < to) {
        put(from - at_, to - from);
      }
      if (range.to > end) {
        break;
      }
      finish(range);
    }
    at_ = end;
  }

  void begin() {
    if (next_ < ranges_.size()) {
      builder_.emplace(ranges_[next_].to - ranges_[next_].from);
      builder_->setDefaultTab(text_.defaultTab());
    }
    format_ = nullptr;
  }

  void finish(const TextRange& range) {
    const int format = numberOf(text_.charFormatAt(range.to));
    const int paragraph = builder_->paragraphFormat(text_.paragraphFormatAt(range.to));
    take_(range.isWhole ? builder_->take(format, paragraph) : builder_->takeClosed(format, paragraph));
    ++next_;
    begin();
  }

  int numberOf(const CharFormat& format) {
    if (&format != format_) {
      format_ = &format;
      number_ = builder_->charFormat(format);
    }
    return number_;
  }

  const RichText& text_;
  const std::vector<TextRange>& ranges_;
  const std::function<void(const RichText&)>& take_;
  std::optional<RichText::Builder> builder_;
  size_t next_ = 0;
  qsizetype at_ = 0;
  const CharFormat* format_ = nullptr;
  int number_ = 0;
};

}  // namespace

void eachPart(const RichText& text, const std::vector<TextRange>& ranges,
              const std::function<void(const RichText&)>& take) {
  text.visit(Parts(text, ranges, take));
}

ReadPlaces::ReadPlaces(const RichText& text, const QString& plain) : size_(text.size()), places_(plain.size()) {
  if (size_ == places_) {
    return;
  }
  positions_.reserve(static_cast<size_t>(places_));
  for (qsizetype i = 0; i < text.runCount(); ++i) {
    const RichText::Run run = text.run(i);
    if (run.format->hidden || run.format->object) {
      continue;
    }
    for (qsizetype at = run.start; at < std::min(run.start + run.length, size_); ++at) {
      positions_.push_back(static_cast<qint32>(at));
    }
  }
}

qsizetype ReadPlaces::of(qsizetype place) const {
  if (place >= places_) {
    return size_;
  }
  return positions_.empty() ? place : positions_[static_cast<size_t>(place)];
}

qsizetype ReadPlaces::behindLetterBefore(qsizetype place) const {
  return place == 0 ? 0 : place >= places_ ? size_ : of(place - 1) + 1;
}
