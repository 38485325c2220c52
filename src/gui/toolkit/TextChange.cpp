#include "gui/toolkit/TextChange.h"

#include "gui/toolkit/RichTextDocument.h"

#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

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

/// What differs between two parts, found from the back, so that of several like letters the one at `sure` is the one
/// that came or went: up to there nothing has changed.
void addHunk(std::vector<TextChange::Hunk>& hunks, Part was, Part is, qsizetype sure, qsizetype origin) {
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
  if (was.size() == 0 && is.size() == 0) {
    return;
  }
  const bool sameLetters = was.text() == is.text();
  hunks.push_back({origin + is.from, is.size(), sameLetters ? QString() : was.text().toString(),
                   cutOut(was.stretch.letters, was.from, was.to)});
}

qsizetype endOfParagraph(const QString& text, qsizetype from) {
  const qsizetype found = text.indexOf(QChar(QChar::ParagraphSeparator), from);
  return found < 0 ? text.size() : found;
}

bool partsParagraphs(const TextChange::Hunk& hunk, const TextStretch& is, qsizetype origin) {
  const auto now = QStringView(is.text).sliced(hunk.at - origin, hunk.length);
  return hunk.text.contains(QChar(QChar::ParagraphSeparator)) || now.contains(QChar(QChar::ParagraphSeparator));
}

/// Paragraph by paragraph where there are as many as before: what was replaced all over a text is small then.
std::vector<TextChange::Hunk> hunksOf(const TextStretch& was, const TextStretch& is, qsizetype sure, qsizetype origin) {
  std::vector<TextChange::Hunk> hunks;
  if (was.text == is.text || was.blocks.size() != is.blocks.size()) {
    addHunk(hunks, {was, 0, was.text.size()}, {is, 0, is.text.size()}, sure, origin);
    return hunks;
  }
  qsizetype before = 0;
  qsizetype now = 0;
  for (size_t i = 0; i < is.blocks.size(); ++i) {
    const Part wasBlock{was, before, endOfParagraph(was.text, before)};
    const Part isBlock{is, now, endOfParagraph(is.text, now)};
    addHunk(hunks, wasBlock, isBlock, qMin(sure, qMin(wasBlock.size(), isBlock.size())), origin);
    sure = 0;
    before = wasBlock.to + 1;
    now = isBlock.to + 1;
  }
  return hunks;
}

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

  void restore(const TextChange::Hunk& hunk) {
    if (hunk.hasOtherLook()) {
      for (qsizetype i = 0; i < hunk.letters.count(); ++i) {
        const qsizetype start = hunk.letters.startOf(i);
        select(cursor_, hunk.at + start, hunk.letters[i].end - start).setCharFormat(look(hunk.letters[i].format));
      }
      return;
    }
    select(cursor_, hunk.at, hunk.length).removeSelectedText();
    for (qsizetype i = 0; i < hunk.letters.count(); ++i) {
      const qsizetype start = hunk.letters.startOf(i);
      insert(QStringView(hunk.text).sliced(start, hunk.letters[i].end - start), look(hunk.letters[i].format));
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
    format.colour = colour_;
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
  change.hunks = hunksOf(was, is, qMax<qsizetype>(0, from - start), start);
  const bool mayHaveChanged = was.blocks != is.blocks || was.text.isEmpty() || is.text.isEmpty() ||
                              std::any_of(change.hunks.begin(), change.hunks.end(),
                                          [&](const auto& hunk) { return partsParagraphs(hunk, is, start); });
  if (mayHaveChanged) {
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
         sameStretch({change.hunks[0].text, change.hunks[0].letters, change.blocks}, whole_);
}

void putBack(QTextCursor cursor, const TextChange& change, LookTable& looks, RichTextBox::Colour colour,
             const QPalette& palette) {
  Restorer restorer(cursor, looks, colour, palette);
  std::for_each(change.hunks.rbegin(), change.hunks.rend(),
                [&](const TextChange::Hunk& hunk) { restorer.restore(hunk); });
  for (size_t i = 0; i < change.blocks.size(); ++i) {
    restorer.format(change.firstBlock + static_cast<int>(i), change.blocks[i]);
  }
}
