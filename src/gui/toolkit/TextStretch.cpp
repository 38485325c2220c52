#include "gui/toolkit/TextStretch.h"

#include "gui/toolkit/RichTextDocument.h"

#include <QHash>
#include <QTextDocument>

namespace {

/// Takes in the pieces of a rich text.
class Taker {
 public:
  Taker(TextStretch& stretch, LookTable& looks) : stretch_(stretch), looks_(looks) {}

  void text(QStringView units, const CharFormat& format) { append(units, format); }
  void object(const CharFormat& format) { append(u"\uFFFC", format); }
  void lineBreak(const CharFormat& format) { append(u"\u2028", format); }
  void paragraphEnd(const CharFormat& end, const ParagraphFormat& format) {
    closeLast();
    stretch_.blocks.push_back({looks_.number(format), number(end)});
    isOpen_ = true;
  }

 private:
  void append(QStringView units, const CharFormat& format) {
    closeLast();
    stretch_.text += units;
    stretch_.letters.pushMerged(stretch_.text.size(), number(format));
  }
  /// The end of the paragraph in front, now that another one follows.
  void closeLast() {
    if (!isOpen_) {
      return;
    }
    const int look = stretch_.lookOfLastEnd();
    stretch_.text += QChar(QChar::ParagraphSeparator);
    stretch_.letters.pushMerged(stretch_.text.size(), look);
    isOpen_ = false;
  }
  int number(const CharFormat& format) {
    auto known = numbers_.find(&format);
    if (known == numbers_.end()) {
      known = numbers_.insert(&format, looks_.number(format));
    }
    return *known;
  }

  TextStretch& stretch_;
  LookTable& looks_;
  QHash<const CharFormat*, int> numbers_;
  bool isOpen_ = false;
};

}  // namespace

int LookTable::number(CharFormat format) {
  format.colour = keepsColours_ ? format.colour : std::nullopt;
  return letters_.intern(std::move(format));
}

int LookTable::ofLetters(const QTextFragment& fragment, QStringView text) {
  const QTextCharFormat format = fragment.charFormat();
  const bool isObject = RichTextDocument::isObject(format, text);
  KnownNumbers& known = isObject ? knownObjects_ : knownLetters_;
  return known(fragment.charFormatIndex(), [&] {
    CharFormat its = RichTextDocument::fromQt(format);
    if (!isObject) {
      its.object.reset();
    }
    return number(std::move(its));
  });
}

int LookTable::ofEnd(const QTextBlock& block) {
  return knownLetters_(block.charFormatIndex(), [&] {
    CharFormat its = RichTextDocument::fromQt(block.charFormat());
    its.object.reset();
    return number(std::move(its));
  });
}

int LookTable::ofParagraph(const QTextBlock& block) {
  return knownParagraphs_(block.blockFormatIndex(),
                          [&] { return number(RichTextDocument::fromQt(block.blockFormat())); });
}

void LookTable::forgetDocument() {
  knownLetters_ = {};
  knownObjects_ = {};
  knownParagraphs_ = {};
}

int TextStretch::lookOfLastEnd() const {
  const bool isEmpty = text.isEmpty() || text.back() == QChar::ParagraphSeparator;
  return isEmpty ? blocks.back().end : letters.last().format;
}

TextStretch TextStretch::of(const RichText& text, LookTable& looks) {
  TextStretch stretch;
  stretch.text.reserve(text.size());
  text.visit(Taker(stretch, looks));
  return stretch;
}

TextStretch TextStretch::of(const QTextDocument& document, int firstBlock, int count, LookTable& looks) {
  TextStretch stretch;
  stretch.blocks.reserve(static_cast<size_t>(count));
  QTextBlock block = document.findBlockByNumber(firstBlock);
  for (int i = 0; i < count && block.isValid(); ++i, block = block.next()) {
    if (i > 0) {
      const int look = stretch.lookOfLastEnd();
      stretch.text += QChar(QChar::ParagraphSeparator);
      stretch.letters.pushMerged(stretch.text.size(), look);
    }
    const qsizetype start = stretch.text.size();
    stretch.text += block.text();
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      const QTextFragment fragment = piece.fragment();
      const qsizetype at = start + fragment.position() - block.position();
      const QStringView letters = QStringView(stretch.text).sliced(at, fragment.length());
      stretch.letters.pushMerged(at + fragment.length(), looks.ofLetters(fragment, letters));
    }
    stretch.blocks.push_back({looks.ofParagraph(block), looks.ofEnd(block)});
  }
  return stretch;
}

Spans cutOut(const Spans& spans, qsizetype from, qsizetype to) {
  Spans cut;
  if (from == to) {
    return cut;
  }
  for (qsizetype i = spans.at(from); i < spans.count() && spans.startOf(i) < to; ++i) {
    cut.push(qMin(spans[i].end, to) - from, spans[i].format);
  }
  return cut;
}

void putIn(Spans& spans, qsizetype from, qsizetype to, const Spans& with) {
  const qsizetype moved = with.end() - (to - from);
  qsizetype first = 0;
  Spans fresh;
  if (from > 0) {
    first = spans.at(from - 1);
    fresh.push(from, spans[first].format);
  }
  for (qsizetype i = 0; i < with.count(); ++i) {
    fresh.pushMerged(from + with[i].end, with[i].format);
  }
  qsizetype last = spans.count();
  if (to < spans.end()) {
    last = spans.at(to) + 1;
    fresh.pushMerged(spans[last - 1].end + moved, spans[last - 1].format);
  }
  spans.splice(first, last, fresh, moved);
}
