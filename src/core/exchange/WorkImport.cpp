#include "core/exchange/WorkImport.h"

#include "core/exchange/ImportedBook.h"
#include "core/exchange/TextParts.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/Rtf.h"
#include "core/text/cSharedHTML.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kHeading = u"chapter ";
constexpr QStringView kSceneBreak = u"* * *";

/// Where the headings begin, and the end of the text. By a letter that is rare: a comparison that ignores case costs
/// more than all else at each place.
std::vector<qsizetype> chapterBounds(const QString& plain) {
  constexpr qsizetype kRare = 3;
  static_assert(kHeading[kRare] == u'p');
  const char16_t* const units = QStringView(plain).utf16();
  std::vector<qsizetype> bounds;
  for (qsizetype at = 0; at + kHeading.size() <= plain.size(); ++at) {
    if ((units[at + kRare] | 0x20) == u'p' &&
        QStringView(plain).sliced(at, kHeading.size()).compare(kHeading, Qt::CaseInsensitive) == 0) {
      bounds.push_back(at);
    }
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

bool isIndent(QChar unit) {
  return unit == u' ' || unit == u'\t';
}

/// The scene in front of a break ends here: blanks that only put the mark in its place go with it.
qsizetype endBefore(QStringView chapter, qsizetype mark) {
  qsizetype at = mark;
  while (at > 0 && isIndent(chapter[at - 1])) {
    --at;
  }
  return at == 0 || chapter[at - 1] == u'\n' ? at : mark;
}

/// And the one behind it begins here.
qsizetype beginBehind(QStringView chapter, qsizetype mark) {
  qsizetype at = mark + kSceneBreak.size();
  while (at < chapter.size() && isIndent(chapter[at])) {
    ++at;
  }
  return chapter.sliced(at).startsWith(u"\r\n") ? at + 2 : mark + kSceneBreak.size();
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
    scenes.push_back({std::min(beginBehind(chapter, *mark), end), end});
    end = endBefore(chapter, *mark);
    lastMark = *mark;
  }
  scenes.push_back({0, end});
  std::reverse(scenes.begin(), scenes.end());
  return scenes;
}

}  // namespace

std::optional<WorkImport> WorkImport::cut(const RichText& text, const std::function<bool()>& goOn) {
  const QString plain = text.plainText();
  const ReadPlaces places(text, plain);
  const std::vector<qsizetype> bounds = chapterBounds(plain);
  WorkImport work;
  work.wordsInFront = Html().CalcWordCount(QStringView(plain).first(bounds.front()));
  std::vector<TextRange> ranges;
  std::vector<size_t> lastScenes;
  for (size_t i = 0; i + 1 < bounds.size(); ++i) {
    const qsizetype begin = bounds[i];
    for (const TextRange& scene : scenesOf(QStringView(plain).sliced(begin, bounds[i + 1] - begin))) {
      const bool endsChapter = begin + scene.to == bounds[i + 1];
      ranges.push_back({places.behindLetterBefore(begin + scene.from),
                        endsChapter ? places.behindLetterBefore(begin + scene.to) : places.of(begin + scene.to)});
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
      scene->Title = u"Scene "_s + QString::number(chapter->SceneCount() + 1);
      scene->SetViewpointByID(narrator);
      chapter->Addscene(scene);
    }
  }
}
