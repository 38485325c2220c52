#include "core/infra/Guard.h"
#include "core/infra/Maker.h"
#include "core/infra/cSHAREDShowError.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/modConstXML.h"
#include "core/text/TagView.h"

#include <QScopedValueRollback>

#include <array>
#include <functional>

using namespace Qt::StringLiterals;
using namespace modConstXML;

namespace {

constexpr auto kModule = "clsProject";

QString singleFileNotice() {
  return u"IMPORTANT!\nYou've loaded an all-in-one 'qnc4' project file. When it saves, it'll be saved as a regular "
         "'qn4' file with separate scene RTF files. If you want to update the qnc4 file instead, you need to click "
         "'Tools' then 'Backups' then 'Save project content to single file'"_s;
}

/// Names a few of the scenes, so that the box stays readable.
QString unreadNotice(const QStringList& titles) {
  constexpr qsizetype kNamed = 10;
  const QString more = titles.size() > kNamed ? u"\n..."_s : QString();
  return u"The text of these scenes could not be read, and they are empty now:\n"_s +
         titles.first(std::min(titles.size(), kNamed)).join(u'\n') + more;
}

QString loadFailure() {
  return u"There was an error loading this project. (If you moved the QN4 file and didn't move the RTF folder along "
         "with it, just put the QN4 file back where it was again.) Please submit an error report - and if possible, "
         "email your QN4 project file to "_s +
         QString::fromLatin1(Maker::kSupportAddress);
}

}  // namespace

bool clsProject::Load(const QString& file, bool showProgress) {
  if (busy_) {
    Logging().AddDebug(u"Not loaded while a load or save is under way: "_s + file, u"Load"_s,
                       QString::fromLatin1(kModule));
    return false;
  }
  const QScopedValueRollback busy(busy_, true);
  const QString extension = Files().ExtOnly(file).toLower();
  if (extension == u"qn3"_s) {
    toolkit().MsgBox(u"Quillane 3 projects can't be opened by this version yet."_s);
    Clear();
    return false;
  }
  const bool result = LoadQN4(file, showProgress);
  if (extension == u"qnc4"_s) {
    toolkit().MsgBox(singleFileNotice());
    tellUnreadTexts();
  }
  return result;
}

void clsProject::tellUnreadTexts() const {
  QStringList titles;
  for (const auto& scene : Scenes) {
    if (scene->TextUnread()) {
      titles.append(scene->Title);
    }
  }
  if (!titles.isEmpty()) {
    toolkit().MsgBox(unreadNotice(titles));
  }
}

bool clsProject::LoadQN4(const QString& file, bool showProgress) {
  Clear();
  QN3FileMode = false;
  Subs().BusyMouse();
  ProgressWindow_ = toolkit().makeProgressWindow();
  if (showProgress) {
    ProgressWindow_->Show();
  }
  setProgress(u"Loading Project"_s);
  FileWithPath = file;
  QByteArray text;
  Files().LoadTextFile(file, text);
  const bool singleFile = Files().ExtOnly(file).toLower() == u"qnc4"_s;
  bool result = false;
  Guard("LoadQN4", kModule)([&] { result = readBlocks(text, singleFile); });
  // The text is as large as all that has just been read from it.
  text = QByteArray();
  result ? finishLoad() : failLoad();
  ProgressWindow_.reset();
  Subs().NormalMouse();
  return result;
}

bool clsProject::readBlocks(QByteArrayView text, bool singleFile) {
  struct Step {
    QString caption;
    Tag block;
    QString what;
    std::function<bool(const TagView&)> read;
  };
  const std::array steps{
      Step{{}, kProject, u"extract project data from "_s, [this](const TagView& xml) { return CreateFromXML(xml); }},
      Step{u"Loading Chapters"_s, kChapters, u"extract chapter data from "_s,
           [this](const TagView& xml) { return Chapters.CreateFromXML(xml); }},
      Step{u"Loading Scenes"_s, kScenes, u"extract scene data / load scenes from "_s,
           [this, singleFile](const TagView& xml) { return Scenes.CreateFromXML(xml, singleFile); }},
      Step{u"Loading Locations"_s, kLocations, u"extract location data from "_s,
           [this](const TagView& xml) { return Locations.CreateFromXML(xml); }},
      Step{u"Loading Characters"_s, kCharacters, u"extract character data from "_s,
           [this](const TagView& xml) { return Chars.CreateFromXML(xml); }},
      Step{u"Loading Items"_s, kItems, u"extract items data from "_s,
           [this](const TagView& xml) { return Items.CreateFromXML(xml); }},
      Step{u"Loading Notes"_s, kProjectNotes, u"extract notes data from "_s,
           [this](const TagView& xml) { return Notes.CreateFromXML(xml); }},
  };
  const TagIndex index(text);
  const TagView whole(index);
  for (const Step& step : steps) {
    if (!step.caption.isEmpty()) {
      setProgress(step.caption);
    }
    if (!step.read(whole.block(step.block))) {
      Logging().LogEvent(u"Load failed ... unable to "_s + step.what + FileWithPath);
      return false;
    }
  }
  return true;
}

void clsProject::finishLoad() {
  setProgress(u"Loading Complete"_s);
  if (!IntegrityCheck()) {
    toolkit().MsgBox(u"Indexing error in project file"_s);
  }
}

void clsProject::failLoad() {
  Subs().NormalMouse();
  ShowError().ShowErr(loadFailure(), {});
  Clear();
}

// A look-up of a missing entity gives a blank object whose ID getter makes an ID, so a dangling reference passes:
// such a project opens without a word, and always has.
bool clsProject::IntegrityCheck() const {
  const Guard guard("IntegrityCheck", kModule);
  bool result = true;
  const auto check = [&](qint32 foundID, const QString& kind, qint32 id, const QString& title) {
    if (foundID == 0) {
      Logging().LogEvent(kind + u" ID "_s + QString::number(id) + u" is referenced by '"_s + title +
                         u"', but doesn't exist in the project"_s);
      result = false;
    }
  };
  for (const auto& chapter : Chapters) {
    for (const qint32 id : chapter->SceneIDs()) {
      guard([&] { check(SceneByID(id)->ID(), u"Scene"_s, id, chapter->Title); });
    }
  }
  const auto checkScenes = [&](const QString& kind, auto ids, auto find) {
    for (const auto& scene : Scenes) {
      const IDList& listed = (scene.get()->*ids)();
      for (qint32 i = listed.Count(); i >= 1; --i) {
        guard([&] { check((this->*find)(listed.at(i))->ID(), kind, listed.at(i), scene->Title); });
      }
    }
  };
  checkScenes(u"Character"_s, &clsScene::CharIDs, &clsProject::CharByID);
  checkScenes(u"Location"_s, &clsScene::LocationIDs, &clsProject::LocationByID);
  checkScenes(u"Item"_s, &clsScene::ItemIDs, &clsProject::ItemByID);
  return result;
}
