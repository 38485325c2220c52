#include "core/exchange/WorkImport.h"

#include "core/exchange/ImportedBook.h"
#include "core/exchange/TextParts.h"
#include "core/infra/cSharedLang.h"
#include "core/model/ChapterNumbers.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/Rtf.h"
#include "core/text/cSharedHTML.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// In any line, as writers know it. The word of another language has to begin one.
constexpr QStringView kHeading = u"chapter ";
constexpr QStringView kSceneBreak = u"* * *";
constexpr QStringView kLineEnd = u"\r\n";

// What our own exports put between the texts. As text the lines that are to be centred say so.
constexpr QStringView kPageBreak = u"[PB]\r\n";
constexpr QStringView kCentre = u"<center>";
constexpr QStringView kCentredTitle = u"<center>*";
constexpr QStringView kInstructions = u"   Formatting instructions (delete these lines)\r\n";
constexpr QStringView kRule = u"--------------------------------------------------\r\n";

/// Our own exports begin with instructions, between two rules. They are no part of the book.
qsizetype behindInstructions(QStringView plain) {
  const qsizetype first = plain.startsWith(kInstructions) ? plain.indexOf(kRule) : -1;
  const qsizetype second = first < 0 ? -1 : plain.indexOf(kRule, first + kRule.size());
  return second < 0 ? 0 : second + kRule.size();
}

bool isIndent(QChar unit) {
  return unit == u' ' || unit == u'\t';
}

bool isLineStart(QStringView text, qsizetype at) {
  return at == 0 || text[at - 1] == u'\n';
}

/// With nothing before it but blanks, or the marks of our export.
bool beginsLine(QStringView text, qsizetype at) {
  at -= text.first(at).endsWith(kCentredTitle) ? kCentredTitle.size() : 0;
  while (at > 0 && isIndent(text[at - 1])) {
    --at;
  }
  return isLineStart(text, at);
}

/// By a letter that is rare: a comparison that ignores case costs more than all else at each place.
std::vector<qsizetype> headingsIn(QStringView plain, qsizetype from) {
  constexpr qsizetype kRare = 3;
  static_assert(kHeading[kRare] == u'p');
  const char16_t* const units = plain.utf16();
  std::vector<qsizetype> bounds;
  for (qsizetype at = from; at + kHeading.size() <= plain.size(); ++at) {
    if ((units[at + kRare] | 0x20) == u'p' &&
        plain.sliced(at, kHeading.size()).compare(kHeading, Qt::CaseInsensitive) == 0) {
      bounds.push_back(at);
    }
  }
  return bounds;
}

/// Where the headings begin, and the end of the text.
std::vector<qsizetype> chapterBounds(QStringView plain, qsizetype from, const QStringList& words) {
  std::vector<qsizetype> bounds = headingsIn(plain, from);
  for (const QString& word : words.sliced(1)) {
    const QString heading = word + u' ';
    const auto english = static_cast<std::ptrdiff_t>(bounds.size());
    for (qsizetype at = from; (at = plain.indexOf(heading, at, Qt::CaseInsensitive)) >= 0; at += heading.size()) {
      if (beginsLine(plain, at)) {
        bounds.push_back(at);
      }
    }
    std::inplace_merge(bounds.begin(), bounds.begin() + english, bounds.end());
  }
  bounds.push_back(plain.size());
  return bounds;
}

/// Each "* * *", one that begins in another too.
std::vector<qsizetype> sceneBreaks(QStringView chapter) {
  std::vector<qsizetype> marks;
  for (qsizetype at = chapter.indexOf(u'*'); at >= 0; at = chapter.indexOf(u'*', at + 1)) {
    if (chapter.sliced(at).startsWith(kSceneBreak)) {
      marks.push_back(at);
    }
  }
  return marks;
}

/// Without so many of the empty lines in front of the line that begins here.
qsizetype beforeEmptyLines(QStringView text, qsizetype at, qsizetype atMost) {
  const qsizetype size = kLineEnd.size();
  for (; atMost > 0 && at >= size && isLineStart(text, at - size) && text.first(at).endsWith(kLineEnd); --atMost) {
    at -= size;
  }
  return at;
}

qsizetype behindEmptyLines(QStringView text, qsizetype at, qsizetype atMost) {
  for (; atMost > 0 && text.sliced(at).startsWith(kLineEnd); --atMost) {
    at += kLineEnd.size();
  }
  return at;
}

/// A mark of scenes as our export to text writes it.
bool isOurBreak(QStringView chapter, qsizetype mark) {
  return chapter.first(mark).endsWith(kCentre) && isLineStart(chapter, mark - kCentre.size());
}

/// The scene in front of a break ends here: blanks that only put the mark in its place go with it.
qsizetype endBefore(QStringView chapter, qsizetype mark) {
  if (isOurBreak(chapter, mark)) {
    return beforeEmptyLines(chapter, mark - kCentre.size(), 1);
  }
  qsizetype at = mark;
  while (at > 0 && isIndent(chapter[at - 1])) {
    --at;
  }
  return isLineStart(chapter, at) ? at : mark;
}

/// And the one behind it begins here.
qsizetype beginBehind(QStringView chapter, qsizetype mark) {
  qsizetype at = mark + kSceneBreak.size();
  while (at < chapter.size() && isIndent(chapter[at])) {
    ++at;
  }
  if (!chapter.sliced(at).startsWith(kLineEnd)) {
    return mark + kSceneBreak.size();
  }
  return behindEmptyLines(chapter, at + kLineEnd.size(), isOurBreak(chapter, mark) ? 1 : 0);
}

/// What our own exports put around a chapter's title. How many empty lines there are is known, so those that belong to
/// a text stay.
struct Frame {
  qsizetype begin = 0;
  bool isText = false;
};

/// The frame that a heading stands in; nothing in a manuscript that isn't ours.
std::optional<Frame> frameAround(QStringView text, qsizetype heading) {
  const bool isText = text.first(heading).endsWith(kCentredTitle);
  const qsizetype line = heading - (isText ? kCentredTitle.size() : 0);
  if (!isLineStart(text, line)) {
    return {};
  }
  const qsizetype end = beforeEmptyLines(text, line, line);
  const qsizetype begin = end - kPageBreak.size();
  if (!text.first(end).endsWith(kPageBreak) || !isLineStart(text, begin)) {
    return {};
  }
  return Frame{beforeEmptyLines(text, begin, isText ? 3 : 1), isText};
}

/// Where the text of a chapter begins: a heading that says nothing but the chapter's title isn't said again.
qsizetype behindTitle(QStringView text, qsizetype heading, qint32 number, const Frame& frame) {
  const qsizetype found = text.indexOf(kLineEnd, heading);
  const qsizetype end = found < 0 ? text.size() : found;
  QStringView said = text.sliced(heading, end - heading).trimmed();
  said.chop(frame.isText && said.endsWith(u'*') ? 1 : 0);
  return ChapterNumbers::titles(number).contains(said, Qt::CaseInsensitive)
             ? behindEmptyLines(text, end, frame.isText ? 4 : 3)
             : heading;
}

struct Chapters {
  /// The end of what stands in front of the first.
  qsizetype begin = 0;
  std::vector<TextRange> texts;
};

Chapters chaptersOf(QStringView plain, qsizetype begin) {
  const std::vector<qsizetype> bounds = chapterBounds(plain, begin, ChapterNumbers::words());
  Chapters chapters{bounds.front(), {}};
  for (size_t i = 0; i + 1 < bounds.size(); ++i) {
    const std::optional<Frame> frame = frameAround(plain, bounds[i]);
    if (frame && i > 0) {
      TextRange& former = chapters.texts.back();
      former.to = std::max(former.from, frame->begin);
    } else if (frame) {
      chapters.begin = std::max(begin, frame->begin);
    }
    const qsizetype from = frame ? behindTitle(plain, bounds[i], static_cast<qint32>(i) + 1, *frame) : bounds[i];
    // Behind the last text our export to text has an empty line.
    const bool isWhole = i + 2 == bounds.size() && !(frame && frame->isText);
    chapters.texts.push_back({from, bounds[i + 1], isWhole});
  }
  return chapters;
}

/// The scenes of a chapter. Of marks that run into each other the last one counts, so they are taken from the end.
std::vector<TextRange> scenesOf(QStringView chapter) {
  const std::vector<qsizetype> marks = sceneBreaks(chapter);
  std::vector<TextRange> scenes;
  qsizetype end = chapter.size();
  qsizetype lastMark = end;
  for (auto mark = marks.rbegin(); mark != marks.rend(); ++mark) {
    if (*mark + kSceneBreak.size() > lastMark) {
      continue;
    }
    scenes.push_back({std::min(beginBehind(chapter, *mark), end), end, false});
    end = endBefore(chapter, *mark);
    lastMark = *mark;
  }
  scenes.push_back({0, end, false});
  std::reverse(scenes.begin(), scenes.end());
  return scenes;
}

/// Word processors write the blanks of headings and marks as ones that don't break, which look the same: there they are
/// plain blanks. In the middle of a line they are the writer's.
QString withPlainBlanks(QString plain) {
  const QStringList words = ChapterNumbers::words();
  for (qsizetype at = plain.indexOf(QChar::Nbsp); at >= 0; at = plain.indexOf(QChar::Nbsp, at + 1)) {
    const QStringView before = QStringView(plain).first(at);
    const bool isInMark = before.endsWith(u'*') && QStringView(plain).sliced(at + 1).startsWith(u'*');
    const bool isInHeading = std::any_of(words.begin(), words.end(), [&](const QString& word) {
      return before.endsWith(word, Qt::CaseInsensitive) && isLineStart(plain, at - word.size());
    });
    if (isInMark || isInHeading) {
      plain[at] = u' ';
    }
  }
  return plain;
}

}  // namespace

std::optional<WorkImport> WorkImport::cut(const RichText& text, const std::function<bool()>& goOn) {
  const QString plain = withPlainBlanks(text.plainText());
  const ReadPlaces places(text, plain);
  const qsizetype begin = behindInstructions(plain);
  const Chapters chapters = chaptersOf(plain, begin);
  WorkImport work;
  work.wordsInFront = Html().CalcWordCount(QStringView(plain).sliced(begin, chapters.begin - begin));
  std::vector<TextRange> ranges;
  std::vector<size_t> lastScenes;
  for (const TextRange& chapter : chapters.texts) {
    for (const TextRange& scene : scenesOf(QStringView(plain).sliced(chapter.from, chapter.to - chapter.from))) {
      const qsizetype end = chapter.from + scene.to;
      ranges.push_back({places.behindLetterBefore(chapter.from + scene.from),
                        end == chapter.to ? places.behindLetterBefore(end) : places.of(end),
                        end == chapter.to && chapter.isWhole});
    }
    lastScenes.push_back(ranges.size());
  }
  work.chapters.resize(lastScenes.size());
  size_t chapter = 0;
  bool wanted = true;
  eachPart(text, ranges, [&](const RichText& scene) {
    wanted = wanted && goOn();
    if (!wanted) {
      return;
    }
    work.chapters[chapter].push_back(writeRtf(scene));
    work.words += Html().CalcWordCount(scene.plainText());
    ++work.scenes;
    chapter += static_cast<size_t>(work.scenes) == lastScenes[chapter] ? 1 : 0;
  });
  return wanted ? std::optional(std::move(work)) : std::nullopt;
}

void WorkImport::fill(clsProject& project) const {
  const qint32 narrator = ImportedBook::begin(project)->ID();
  for (const Chapter& texts : chapters) {
    const auto chapter = ImportedBook::addChapter(project);
    for (const QByteArray& text : texts) {
      const auto scene = std::make_shared<clsScene>();
      scene->setTextRTF(text);
      scene->Title = translated(u"Scene"_s) + u' ' + QString::number(chapter->SceneCount() + 1);
      scene->SetViewpointByID(narrator);
      chapter->Addscene(scene);
    }
  }
}
