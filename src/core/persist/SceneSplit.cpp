#include "core/persist/SceneSplit.h"

#include "core/infra/FileStamp.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/SceneFile.h"

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Scenes = std::vector<std::shared_ptr<clsScene>>;

/// Who tells a scene that was cut out of one that nobody tells.
constexpr qint32 kFirstCharacter = 1;

Scenes makeScenes(const std::vector<QByteArray>& texts) {
  Scenes scenes;
  for (const QByteArray& text : texts) {
    scenes.push_back(std::make_shared<clsScene>());
    scenes.back()->Title = u"Scene"_s;
    scenes.back()->setTextRTF(text);
    scenes.back()->ForceWordcount();
  }
  return scenes;
}

/// Empty when all of them are on the disk, with their names.
QString writeTexts(const Scenes& scenes) {
  Files().MkMissingDirNoRecurse(g_Project->RTFFolder());
  for (const auto& scene : scenes) {
    SceneFile file(*scene);
    file.save(true, {});
    if (scene->RTFChanged()) {
      return file.failure().isEmpty() ? shownText(u"The text of a new scene could not be written."_s) : file.failure();
    }
  }
  return Guard("SplitScene", "clsScene").causeOf([] { flushFolderToDisk(g_Project->RTFFolder()); });
}

QStringList filesOf(const Scenes& scenes) {
  QStringList files;
  for (const auto& scene : scenes) {
    if (!scene->RTFFilename().isEmpty()) {
      files.append(scene->RTFFileWithPath());
    }
  }
  return files;
}

void erase(const QStringList& files) {
  for (const QString& file : files) {
    Files().EraseFile(file);
  }
}

void takeIn(const clsScene& source, clsChapter& chapter, qint32 position, const Scenes& scenes) {
  const auto& cast = g_Project->Chars;
  const bool hasFirst =
      std::any_of(cast.begin(), cast.end(), [](const auto& one) { return one->ID() == kFirstCharacter; });
  const qint32 viewpoint = source.ViewPointID() == 0 && hasFirst ? kFirstCharacter : source.ViewPointID();
  for (const auto& scene : scenes) {
    chapter.InsertScene(scene, position++);
    if (viewpoint != 0 && scene->CharCount() == 0) {
      scene->SetViewpointByID(viewpoint);
    }
    g_SceneChanges.MarkUpdated(scene->ID());
  }
}

void takeOut(clsChapter& chapter, const Scenes& scenes) {
  for (const auto& scene : scenes) {
    chapter.RemoveSceneByID(scene->ID());
    g_Project->RemoveSceneByID(scene->ID());
  }
}

/// False too where the file was left to another program that has written it: it doesn't name what is new.
bool saveBook() {
  return g_Project->SaveQN4(false) && !g_Project->ReloadWanted();
}

}  // namespace

namespace SceneSplit {

std::vector<RichText> cut(const RichText& text, QStringView separator) {
  std::vector<RichText> pieces;
  const QStringView units = text.text();
  qsizetype end = units.size();
  while (!separator.isEmpty() && end >= separator.size()) {
    const qsizetype at = units.lastIndexOf(separator, end - separator.size());
    if (at < 0) {
      break;
    }
    const qsizetype start = at + separator.size();
    RichText piece = text.slice(start, end - start);
    if (text.paragraph(text.paragraphAt(at)).start < at) {
      // What belongs to one paragraph alone stays with its beginning.
      piece.formatParagraphs(0, 0, [](ParagraphFormat& format) {
        format.pageBreakBefore = false;
        format.list.start = 0;
      });
    }
    pieces.push_back(std::move(piece));
    end = at;
  }
  pieces.push_back(text.slice(0, end));
  std::reverse(pieces.begin(), pieces.end());
  return pieces;
}

QString addBehind(clsScene& source, const std::vector<QByteArray>& texts) {
  return addBehind(source, makeScenes(texts));
}

QString addBehind(clsScene& source, const std::vector<std::shared_ptr<clsScene>>& scenes) {
  const auto chapter = g_Project->ChapterByID(source.BelongsToChID);
  const QString cause = writeTexts(scenes);
  const QStringList files = filesOf(scenes);
  if (!cause.isEmpty()) {
    erase(files);
    return cause;
  }
  const FileStamp before = FileStamp::lookAt(g_Project->FileWithPath);
  // At the end where the chapter doesn't list the source.
  const qint32 index = chapter->SceneIndex(source.ID());
  takeIn(source, *chapter, index == 0 ? chapter->SceneCount() + 1 : index + 1, scenes);
  if (saveBook()) {
    return {};
  }
  takeOut(*chapter, scenes);
  // A project file that was written all the same names them.
  if (FileStamp::lookAt(g_Project->FileWithPath).looksLike(before)) {
    erase(files);
  }
  return shownText(u"The project file could not be saved."_s);
}

}  // namespace SceneSplit
