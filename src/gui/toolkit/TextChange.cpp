#include "gui/toolkit/TextChange.h"

#include "gui/toolkit/RichTextDocument.h"

#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace {

/// A stretch's letters from one place to another.
struct Part {
  const TextStretch& stretch;
  qsizetype from;
  qsizetype to;

  qsizetype size() const { return to - from; }
  QStringView text() const { return QStringView(stretch.text).sliced(from, size()); }
};

qsizetype sameLettersInFront(QStringView a, QStringView b) {
  return std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
}

qsizetype sameLettersBehind(QStringView a, QStringView b) {
  return std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first - a.rbegin();
}

/// How far the looks are the same, at most as far as `limit`.
qsizetype sameLooksInFront(const Part& a, const Part& b, qsizetype limit) {
  qsizetype same = 0;
  while (same < limit) {
    const Span& ofA = a.stretch.letters[a.stretch.letters.at(a.from + same)];
    const Span& ofB = b.stretch.letters[b.stretch.letters.at(b.from + same)];
    if (ofA.format != ofB.format) {
      return same;
    }
    same = qMin(ofA.end - a.from, ofB.end - b.from);
  }
  return limit;
}

qsizetype sameLooksBehind(const Part& a, const Part& b, qsizetype limit) {
  qsizetype same = 0;
  while (same < limit) {
    const qsizetype runA = a.stretch.letters.at(a.to - same - 1);
    const qsizetype runB = b.stretch.letters.at(b.to - same - 1);
    if (a.stretch.letters[runA].format != b.stretch.letters[runB].format) {
      return same;
    }
    same = qMin(a.to - a.stretch.letters.startOf(runA), b.to - b.stretch.letters.startOf(runB));
  }
  return limit;
}

/// Takes down what differs between two stretches, the later one beginning at this place.
class Differences {
 public:
  Differences(TextChange& change, const TextStretch& was, const TextStretch& is, qsizetype origin)
      : change_(change), was_(was), is_(is), origin_(origin) {}

  /// Up to `sure` nothing has changed. Paragraph by paragraph where there are as many as before: what was replaced all
  /// over a text is small then.
  void find(qsizetype sure) {
    if (was_.text == is_.text || was_.blocks.size() != is_.blocks.size()) {
      add({was_, 0, was_.text.size()}, {is_, 0, is_.text.size()}, sure);
      return;
    }
    Part was{was_, 0, 0};
    Part is{is_, 0, 0};
    for (size_t i = 0; i < is_.blocks.size(); ++i) {
      was.to = endOfParagraph(was_.text, was.from);
      is.to = endOfParagraph(is_.text, is.from);
      addParagraph(was, is, qMin(sure, qMin(was.size(), is.size())));
      sure = 0;
      was.from = was.to + 1;
      is.from = is.to + 1;
    }
  }

 private:
  static qsizetype endOfParagraph(const QString& text, qsizetype from) {
    const qsizetype found = text.indexOf(QChar(QChar::ParagraphSeparator), from);
    return found < 0 ? text.size() : found;
  }

  /// Words that stay between others that change are found where all look the same.
  void addParagraph(Part was, Part is, qsizetype sure) {
    if (was_.blocks.size() == 1 || !looksAlike(was, is)) {
      add(was, is, sure);
      return;
    }
    while (was.size() > 0 || is.size() > 0) {
      const qsizetype same = sameLettersInFront(was.text(), is.text());
      was.from += same;
      is.from += same;
      const auto [skipWas, skipIs] = nextAgreement(was.text(), is.text());
      add({was_, was.from, was.from + skipWas}, {is_, is.from, is.from + skipIs}, 0);
      was.from += skipWas;
      is.from += skipIs;
    }
  }
  static bool looksAlike(const Part& was, const Part& is) {
    const Spans a = cutOut(was.stretch.letters, was.from, was.to);
    const Spans b = cutOut(is.stretch.letters, is.from, is.to);
    return a.count() == 1 && b.count() == 1 && a[0].format == b[0].format;
  }
  /// How much of both differs until they agree again, to their ends if they don't within a short way.
  static std::pair<qsizetype, qsizetype> nextAgreement(QStringView was, QStringView is) {
    constexpr qsizetype kFarthest = 48;
    constexpr qsizetype kAgreed = 5;
    for (qsizetype both = 1; both <= kFarthest; ++both) {
      for (qsizetype a = qMax<qsizetype>(0, both - is.size()); a <= qMin(both, was.size()); ++a) {
        const QStringView restWas = was.sliced(a);
        const QStringView restIs = is.sliced(both - a);
        const bool agree = restWas.first(qMin(kAgreed, restWas.size())) == restIs.first(qMin(kAgreed, restIs.size()));
        if (agree && (restWas.isEmpty() || !restWas[0].isLowSurrogate())) {
          return {a, both - a};
        }
      }
    }
    return {was.size(), is.size()};
  }

  /// One hunk, found from the back, so that of several like letters the one at `sure` is the one that came or went.
  void add(Part was, Part is, qsizetype sure) {
    const qsizetype limit = std::max<qsizetype>(0, qMin(was.size(), is.size()) - sure);
    qsizetype behind = sameLettersBehind(was.text().last(limit), is.text().last(limit));
    behind = sameLooksBehind(was, is, behind);
    if (behind > 0 && was.text()[was.size() - behind].isLowSurrogate()) {
      --behind;
    }
    was.to -= behind;
    is.to -= behind;
    const qsizetype rest = qMin(was.size(), is.size());
    qsizetype front = sameLettersInFront(was.text().first(rest), is.text().first(rest));
    front = sameLooksInFront(was, is, front);
    if (front > 0 && was.text()[front - 1].isHighSurrogate()) {
      --front;
    }
    was.from += front;
    is.from += front;
    if (was.size() > 0 || is.size() > 0) {
      takeDown(was, is);
    }
  }

  void takeDown(const Part& was, const Part& is) {
    const bool sameWords = was.text() == is.text();
    change_.hunks.push_back(
        {static_cast<int>(origin_ + is.from), static_cast<int>(is.size()), static_cast<int>(was.size()), sameWords});
    if (!sameWords) {
      change_.text += was.text();
    }
    const Spans looks = cutOut(was_.letters, was.from, was.to);
    const qsizetype start = change_.letters.end();
    for (qsizetype i = 0; i < looks.count(); ++i) {
      change_.letters.pushMerged(start + looks[i].end, looks[i].format);
    }
  }

  TextChange& change_;
  const TextStretch& was_;
  const TextStretch& is_;
  qsizetype origin_;
};

bool sameStretch(const TextStretch& a, const TextStretch& b) {
  return a.text == b.text && a.blocks == b.blocks && a.letters.count() == b.letters.count() &&
         sameLooksInFront({a, 0, a.text.size()}, {b, 0, b.text.size()}, a.text.size()) == a.text.size();
}

QTextCursor select(QTextCursor& cursor, qsizetype from, qsizetype length) {
  cursor.setPosition(static_cast<int>(from));
  cursor.setPosition(static_cast<int>(from + length), QTextCursor::KeepAnchor);
  return cursor;
}

/// Puts letters and looks back; paragraphs are formatted afterwards.
class Restorer {
 public:
  Restorer(QTextCursor& cursor, LookTable& looks, RichTextBox::Colour colour, const QPalette& palette)
      : cursor_(cursor), looks_(looks), colour_(colour), palette_(palette) {}

  /// The hunk's text and looks begin at these places.
  void restore(const TextChange& change, const TextChange::Hunk& hunk, qsizetype textAt, qsizetype lookAt) {
    const Spans looks = cutOut(change.letters, lookAt, lookAt + hunk.before);
    if (!hunk.sameWords) {
      select(cursor_, hunk.at, hunk.length).removeSelectedText();
    }
    for (qsizetype i = 0; i < looks.count(); ++i) {
      const qsizetype start = looks.startOf(i);
      const qsizetype length = looks[i].end - start;
      if (hunk.sameWords) {
        select(cursor_, hunk.at + start, length).setCharFormat(look(looks[i].format));
      } else {
        insert(QStringView(change.text).sliced(textAt + start, length), look(looks[i].format));
      }
    }
  }

  void format(int number, const TextStretch::Block& wanted) {
    const QTextBlock block = cursor_.document()->findBlockByNumber(number);
    if (!block.isValid()) {
      return;
    }
    cursor_.setPosition(block.position());
    if (looks_.ofParagraph(block) != wanted.paragraph) {
      cursor_.setBlockFormat(RichTextDocument::toQt(looks_.paragraph(wanted.paragraph)));
    }
    if (looks_.ofEnd(block) != wanted.end) {
      cursor_.setBlockCharFormat(look(wanted.end));
    }
  }

 private:
  QTextCharFormat look(int number) const {
    CharFormat format = looks_.letters(number);
    format.colour = looks_.keepsColours() ? format.colour : colour_;
    return RichTextDocument::toQt(format, palette_);
  }

  void insert(QStringView text, const QTextCharFormat& format) {
    for (qsizetype at = 0; at < text.size();) {
      const qsizetype found = text.indexOf(QChar(QChar::ParagraphSeparator), at);
      const qsizetype end = found < 0 ? text.size() : found;
      if (end > at) {
        cursor_.insertText(text.sliced(at, end - at).toString(), format);
      }
      if (found >= 0) {
        cursor_.insertBlock();
      }
      at = end + 1;
    }
  }

  QTextCursor& cursor_;
  LookTable& looks_;
  RichTextBox::Colour colour_;
  const QPalette& palette_;
};

}  // namespace

std::optional<TextChange> DocumentCopy::follow(const QTextDocument& document, int from, int removed, int added,
                                               LookTable& looks) {
  const qsizetype sizeBefore = whole_.text.size();
  const qsizetype sizeNow = document.characterCount() - 1;
  // Told lengths may take in the end of the last paragraph. What stands behind the change is the same.
  const qsizetype tail = std::max<qsizetype>(0, qMin(sizeNow - from - added, sizeBefore - from - removed));
  const QTextBlock first = document.findBlock(static_cast<int>(qMin<qsizetype>(from, sizeNow)));
  const QTextBlock last = document.findBlock(static_cast<int>(sizeNow - tail));
  const int count = last.blockNumber() - first.blockNumber() + 1;
  const TextStretch is = TextStretch::of(document, first.blockNumber(), count, looks);

  const qsizetype start = first.position();
  const qsizetype end = start + is.text.size() + sizeBefore - sizeNow;
  const auto firstBlock = whole_.blocks.begin() + first.blockNumber();
  const auto behindBlocks = whole_.blocks.end() - (document.blockCount() - last.blockNumber() - 1);
  const TextStretch was{
      whole_.text.mid(start, end - start), cutOut(whole_.letters, start, end), {firstBlock, behindBlocks}};
  if (sameStretch(was, is)) {
    return {};
  }

  TextChange change;
  change.firstBlock = first.blockNumber();
  Differences(change, was, is, start).find(qMax<qsizetype>(0, from - start));
  change.text.squeeze();
  change.hunks.shrink_to_fit();
  const bool staysInParagraphs = was.blocks == is.blocks && (was.blocks.size() == 1 || was.text != is.text);
  if (!staysInParagraphs || was.text.isEmpty() || is.text.isEmpty()) {
    change.blocks = was.blocks;
  }

  const qsizetype gone = firstBlock - whole_.blocks.begin();
  whole_.blocks.erase(firstBlock, behindBlocks);
  whole_.blocks.insert(whole_.blocks.begin() + gone, is.blocks.begin(), is.blocks.end());
  whole_.text.replace(start, end - start, is.text);
  Spans letters = is.letters;
  const bool hasEnd = end < sizeBefore;
  if (hasEnd) {
    letters.pushMerged(is.text.size() + 1, is.lookOfLastEnd());
  }
  putIn(whole_.letters, start, end + (hasEnd ? 1 : 0), letters);
  return change;
}

bool DocumentCopy::isWhatWasBefore(const TextChange& change) const {
  return change.hunks.size() == 1 && change.hunks[0].length == 0 &&
         sameStretch({change.text, change.letters, change.blocks}, whole_);
}

void putBack(QTextCursor cursor, const TextChange& change, LookTable& looks, RichTextBox::Colour colour,
             const QPalette& palette) {
  Restorer restorer(cursor, looks, colour, palette);
  qsizetype textAt = change.text.size();
  qsizetype lookAt = change.letters.end();
  std::for_each(change.hunks.rbegin(), change.hunks.rend(), [&](const TextChange::Hunk& hunk) {
    textAt -= hunk.sameWords ? 0 : hunk.before;
    lookAt -= hunk.before;
    restorer.restore(change, hunk, textAt, lookAt);
  });
  for (size_t i = 0; i < change.blocks.size(); ++i) {
    restorer.format(change.firstBlock + static_cast<int>(i), change.blocks[i]);
  }
}
