#include "core/persist/LostAndFound.h"

#include "core/infra/cSharedFileSubs.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/SceneFolder.h"
#include "core/text/Rtf.h"
#include "core/text/cSharedHTML.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kFirstWords = 60;
constexpr qsizetype kTitle = 40;

/// Empty for a project that has no file: that has no folder either. One that is a link to elsewhere isn't looked into.
QString rtfFolder() {
  const bool hasNone =
      g_Project->FileWithPath.isEmpty() || SceneFolder::leadsOut(*g_Project, g_Project->RTFFolder() + u'.');
  return hasNone ? QString() : g_Project->RTFFolder();
}

/// Names that some system takes for the same file are the same here.
QString asName(const QString& fileName) {
  return fileName.toCaseFolded();
}

QString cutAtWord(const QString& line, qsizetype most) {
  qsizetype end = line.lastIndexOf(u' ', most);
  if (end < most / 2) {
    end = line[most - 1].isHighSurrogate() ? most - 1 : most;
  }
  return line.first(end) + u'\u2026';
}

/// The beginning of a text on one line, cut behind a word where it is longer.
QString beginningOf(QStringView text, qsizetype most) {
  QString line;
  for (const QChar c : text) {
    if (!c.isSpace() && c.category() != QChar::Other_Control) {
      line.append(c);
    } else if (!line.isEmpty() && !line.endsWith(u' ')) {
      line.append(u' ');
    }
    if (line.size() > most) {
      return cutAtWord(line, most);
    }
  }
  return line.trimmed();
}

/// A name that we made says nothing, so the text speaks for itself.
QString titleOf(const QString& fileName, const QString& text) {
  const QString name = Files().FileWithoutExt(fileName);
  const QString number = name.startsWith(u"RTF_"_s, Qt::CaseInsensitive) ? name.mid(4) : QString();
  const bool isOurs =
      !number.isEmpty() && std::all_of(number.begin(), number.end(), [](QChar c) { return c.isDigit(); });
  const QString beginning = isOurs ? beginningOf(text, kTitle) : QString();
  return beginning.isEmpty() ? name : beginning;
}

/// Null when there is no text to be had.
std::shared_ptr<clsScene> sceneOfFile(const LostText& file) {
  auto scene = std::make_shared<clsScene>();
  if (!scene->TakeRTFFile(file.fileName)) {
    const auto text = LostAndFound::textOf(file);
    if (!text) {
      return nullptr;
    }
    scene->setTextRTF(*text);
  }
  scene->Title = titleOf(file.fileName, scene->ConvertedToBodyText());
  return scene;
}

/// Null when it has left the project.
std::shared_ptr<clsScene> sceneOf(const LostText& lost) {
  auto scene = g_Project->SceneByID(lost.sceneID);
  return scene->InScenes() ? scene : nullptr;
}

void addFiles(std::vector<LostText>& lost, const QSet<QString>& named) {
  QList<FileObject> files;
  if (const QString folder = rtfFolder(); Files().FolderExists(folder)) {
    Files().FillFileObjects(folder, u"rtf"_s, files);
  }
  for (const FileObject& file : files) {
    if (!named.contains(asName(file.Name)) && !QFileInfo(file.Path).isSymLink()) {
      lost.push_back({LostText::Kind::File, 0, file.Name, file.Name, file.Date});
    }
  }
}

}  // namespace

bool clsScene::TakeRTFFile(const QString& name) {
  if (!SceneFolder::isNameForProjectFile(name)) {
    return false;
  }
  const QString before = std::exchange(rtfFilename_, name);
  if (!LoadRTF()) {
    rtfFilename_ = before;
    return false;
  }
  wordsStale_ = true;
  rtfChanged_ = false;
  return true;
}

namespace LostAndFound {

std::vector<LostText> find() {
  QSet<qint32> placed;
  for (const auto& chapter : g_Project->Chapters) {
    for (const qint32 id : chapter->SceneIDs()) {
      placed.insert(id);
    }
  }
  std::vector<LostText> lost;
  QSet<QString> named;
  for (const auto& scene : g_Project->Scenes) {
    const QString& file = scene->RTFFilename();
    named.insert(asName(file));
    if (!placed.contains(scene->ID())) {
      const bool mayHaveFile = !file.isEmpty() && !g_Project->FileWithPath.isEmpty();
      lost.push_back({LostText::Kind::Scene, scene->ID(), calledScene(scene->Title), file,
                      mayHaveFile ? Files().FileDate(scene->RTFFileWithPath()) : QDateTime()});
    }
  }
  addFiles(lost, named);
  return lost;
}

std::optional<QByteArray> textOf(const LostText& lost) {
  if (lost.kind == LostText::Kind::Scene) {
    const auto scene = sceneOf(lost);
    return scene ? std::optional(scene->TextRTF()) : std::nullopt;
  }
  QByteArray text;
  return Files().LoadTextFile(rtfFolder() + lost.fileName, text) ? std::optional(text) : std::nullopt;
}

std::optional<TextGlance> glanceAt(const LostText& lost) {
  if (lost.kind == LostText::Kind::Scene) {
    const auto scene = sceneOf(lost);
    return scene
               ? std::optional<TextGlance>({scene->Wordcount(), beginningOf(scene->ConvertedToBodyText(), kFirstWords)})
               : std::nullopt;
  }
  const auto rtf = textOf(lost);
  if (!rtf) {
    return {};
  }
  const QString text = rtfToPlainText(*rtf);
  return TextGlance{Html().CalcWordCount(text), beginningOf(text, kFirstWords)};
}

bool putIntoChapter(const LostText& lost, clsChapter& chapter) {
  const auto scene = lost.kind == LostText::Kind::Scene ? sceneOf(lost) : sceneOfFile(lost);
  if (!scene) {
    return false;
  }
  chapter.Addscene(scene);
  g_SceneChanges.MarkUpdated(scene->ID());
  return true;
}

bool mayBeRemoved(const clsScene& scene) {
  if (scene.RTFFilename().isEmpty()) {
    return scene.TextRTF().isEmpty() && !scene.TextUnread();
  }
  return !scene.RTFChanged() && !g_Project->FileWithPath.isEmpty() && Files().FileExists(scene.RTFFileWithPath());
}

}  // namespace LostAndFound
