#include "support/SampleProject.h"

#include "core/infra/FolderLock.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsNote.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/Required.h"

#include <QDirIterator>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

std::shared_ptr<clsScene> makeScene(const QString& title, const QByteArray& text) {
  auto scene = std::make_shared<clsScene>();
  scene->Title = title;
  scene->setTextRTF(simpleRtf(text));
  scene->Status = 2;
  scene->Goal = u"To leave, or to stay: \"100%\" & <more>?"_s;
  return scene;
}

void addCast() {
  const QStringList names{u"Anna"_s, u"Zoë"_s, u"Пётр"_s};
  for (qsizetype i = 0; i < names.size(); ++i) {
    const auto character = std::make_shared<clsCharacter>();
    character->setTitle(names[i]);
    character->FullName = names[i] + u" Marsh"_s;
    character->major = i == 0;
    character->SortOrder = static_cast<qint16>(i + 1);
    g_Project->AddChar(character);
  }
  for (const QString& name : {u"The pier"_s, u"Café Röhm"_s}) {
    const auto location = std::make_shared<clsLocation>();
    location->Title = name;
    g_Project->AddLocation(location);
  }
  const auto item = std::make_shared<clsItem>();
  item->Title = u"A lamp"_s;
  g_Project->AddItem(item);
  const auto note = std::make_shared<clsNote>();
  note->Title = u"To do"_s;
  note->DescText = u"Line one\r\nLine two"_s;
  g_Project->AddNote(note);
}

void addChapters() {
  const QList<QStringList> chapters{{u"Arrival"_s, u"one two three"_s, u"four five"_s},
                                    {u"Departure"_s, u"six seven eight nine"_s, u"ten"_s},
                                    {u"Cut scenes"_s, u"eleven twelve"_s}};
  for (const QStringList& content : chapters) {
    const auto chapter = std::make_shared<clsChapter>();
    chapter->Title = content[0];
    chapter->DescText = u"What happens in "_s + content[0];
    g_Project->AddChapter(chapter);
    for (qsizetype i = 1; i < content.size(); ++i) {
      chapter->Addscene(makeScene(content[0] + u' ' + QString::number(i), content[i].toLatin1()));
    }
  }
  chapterAt(3)->Unused = true;
}

}  // namespace

void newProject() {
  // What is logged from now on stands alone.
  Logging().WriteActionsToLog();
  g_Project = std::make_unique<clsProject>();
  initChangeTables();
}

void makeSmallProject() {
  newProject();
  g_Project->Title = u"A small book"_s;
  g_Project->AuthorName = u"N. Öbody"_s;
  g_Project->DescText = u"Two lines,\r\nof which this is the second."_s;
  addCast();
  addChapters();
  const auto first = sceneAt(1);
  first->AddCharByID(2);
  first->AddCharByID(1);
  first->AddLocationByID(1);
  first->AddItemByID(1);
  first->Hour = 7;
  first->LastsMinutes = 45;
  first->Notes = u"Check the tide."_s;
  sceneAt(4)->Unused = true;
}

void makeLargerProject(int chapters, int scenesEach) {
  constexpr int kNotes = 60;
  makeSmallProject();
  for (int i = 1; i <= chapters; ++i) {
    const auto chapter = std::make_shared<clsChapter>();
    chapter->Title = u"Chapter %1"_s.arg(i);
    g_Project->AddChapter(chapter);
    for (int j = 1; j <= scenesEach; ++j) {
      const auto scene = makeScene(u"Scene %1.%2"_s.arg(i).arg(j), QByteArray("The tide was out. ").repeated(i + j));
      scene->Notes = u"What she can't know yet. "_s.repeated(kNotes);
      chapter->Addscene(scene);
    }
  }
}

QString saveSmallProject(const QString& folder) {
  makeSmallProject();
  g_Project->FileWithPath = folder + u"/Small.qn4"_s;
  g_Project->SaveQN4(false);
  return g_Project->FileWithPath;
}

std::shared_ptr<clsScene> sceneAt(qint32 index) {
  auto scene = g_Project->SceneByIndex(index);
  required(scene, u"scene %1"_s.arg(index));
  return scene;
}

std::shared_ptr<clsChapter> chapterAt(qint32 index) {
  auto chapter = g_Project->ChapterByIndex(index);
  required(chapter, u"chapter %1"_s.arg(index));
  return chapter;
}

QByteArray simpleRtf(const QByteArray& text) {
  return "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}\r\n\\pard\\f0\\fs20 " + text +
         "\\par\r\n}\r\n";
}

QMap<QString, QByteArray> filesBelow(const QString& folder) {
  QMap<QString, QByteArray> files;
  QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  while (walk.hasNext()) {
    const QString path = walk.next();
    const bool isArchive = path.contains(u"/Autobackups/"_s) && path.endsWith(u".zip"_s);
    const bool isLog = path.contains(u"/Logs/"_s);
    if (walk.fileName() != FolderLock::fileName() && !isArchive && !isLog) {
      files.insert(path.mid(folder.size() + 1), fileBytes(path));
    }
  }
  return files;
}

QByteArray fileBytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (file.open(QIODevice::WriteOnly)) {
    file.write(bytes);
  }
}
