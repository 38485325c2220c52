#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/LongWork.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/OlderFiles.h"
#include "core/persist/ProjectLoader.h"
#include "core/persist/ProjectRepair.h"

#include <QDir>

#include <algorithm>
#include <array>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

// The conversion of a generation-3 project. Its files stay as they are; once the new project file is on the disk, the
// old one gets another name.

namespace {

QString whyNotRead(const QString& file) {
  return translated(
             u"The Quillane 3 project %1 can't be converted: neither its list of chapters nor that of scenes could "
             "be read from the folder Data beside it. (If you moved the QN3 file without its folders Data and "
             "RTF, just put it back where it was.) Nothing was changed."_s)
      .arg(file);
}

QString notSaved(const QString& file) {
  return translated(
             u"The converted project was not saved, so nothing has changed: your Quillane 3 project is still %1"_s)
      .arg(file);
}

QString readOnlyNotice(const QString& file) {
  return translated(
             u"The Quillane 3 project %1 can't be opened read-only, since it is converted to Quillane 4 format. "
             "Please open it again when nobody else has it open."_s)
      .arg(file);
}

QString convertedNotice(const QString& name) {
  return translated(
             u"READ THIS CAREFULLY!\nYour Quillane 3 project has been converted to Quillane 4. Your old project "
             "file has been renamed to %1.bak\nIf you want to revert to Quillane 3, make a copy of the entire "
             "project folder and rename %1.bak to %1"_s)
      .arg(name);
}

QString keptNotice(const QString& file, const QString& converted) {
  return translated(
             u"READ THIS CAREFULLY!\nYour Quillane 3 project has been converted to Quillane 4, and is %1 now. Your "
             "old project file has kept its name: %2"_s)
      .arg(converted, file);
}

/// The folder of the texts before the conversion is saved.
class OldTexts {
 public:
  explicit OldTexts(const clsProject& project)
      : project_(project), folder_(project.RTFFolder()), wasThere_(QDir(folder_).exists()), names_(namesNow()) {}

  /// Empty files that a failed save has made for texts that are missing would be taken for these the next time.
  void removeNew() const {
    for (const auto& scene : project_.Scenes) {
      const QString& name = scene->RTFFilename();
      if (!name.isEmpty() && !names_.contains(name) && scene->TextUnread()) {
        Files().EraseFile(folder_ + name);
      }
    }
    if (!wasThere_) {
      QDir().rmdir(folder_);
    }
  }

 private:
  QStringList namesNow() const { return QDir(folder_).entryList(QDir::AllEntries | QDir::Hidden | QDir::System); }

  const clsProject& project_;
  QString folder_;
  bool wasThere_;
  QStringList names_;
};

/// The file is called ".bak" now. One of that name goes only once the new one is there.
bool tookBakName(const QString& file) {
  const QString kept = file + u".bak"_s;
  const QString aside = kept + u".former"_s;
  const bool hasFormer = Files().FileExists(kept);
  if (hasFormer && !Files().MoveFile(kept, aside)) {
    return false;
  }
  if (!Files().MoveFile(file, kept)) {
    if (hasFormer) {
      Files().MoveFile(aside, kept);
    }
    return false;
  }
  if (hasFormer) {
    Files().EraseFile(aside);
  }
  return true;
}

}  // namespace

bool ProjectLoader::convertQN3(const QString& file, bool showProgress) {
  if (!readQN3(file, showProgress) || !saveConverted(file)) {
    project_.Clear();
    return false;
  }
  tellFindings();
  return true;
}

bool ProjectLoader::readQN3(const QString& file, bool showProgress) {
  const BusyMark busy(project_);
  project_.Clear();
  if (!mayOpenFolder(file)) {
    return false;
  }
  if (project_.readOnly_) {
    toolkit().MsgBox(readOnlyNotice(file));
    return false;
  }
  bool isRead = false;
  Guard("ImportQN3", "clsProject")([&] { isRead = ImportQN3(file, showProgress); });
  project_.QN3FileMode = false;
  if (!isRead) {
    Logging().LogEvent(u"Load failed ... unable to convert "_s + file);
    toolkit().MsgBox(whyNotRead(file));
  }
  return isRead;
}

bool ProjectLoader::ImportQN3(const QString& file, bool showProgress) {
  LongWork work(project_, shownText(u"Loading Project"_s), showProgress);
  project_.QN3FileMode = true;
  project_.FileWithPath = file;
  project_.SourceFile = file;
  const std::optional<QByteArray> content = readWholeFile(Paths::native(file));
  const KeyedFile settings(content.value_or(QByteArray()));
  OlderFiles from(project_);
  project_.CopySettingsToVariables(settings, from);
  project_.ImportDescBioFiles(settings, from);
  clsProject& into = project_;
  struct Step {
    QString caption;
    std::function<bool()> read;
  };
  const std::array steps{
      Step{shownText(u"Loading Chapters"_s), [&] { return into.Chapters.ImportQN3(into.ChapterFile, from); }},
      Step{shownText(u"Loading Scenes"_s), [&] { return into.Scenes.ImportQN3(into.SceneFile, from); }},
      Step{shownText(u"Loading Locations"_s), [&] { return into.Locations.ImportQN3(into.LocationFile, from); }},
      Step{shownText(u"Loading Characters"_s), [&] { return into.Chars.ImportQN3(into.CharacterFile, from); }},
      Step{shownText(u"Loading Items"_s), [&] { return into.Items.ImportQN3(into.ItemFile, from); }},
  };
  std::array<bool, 5> isThere{};
  for (size_t i = 0; i < steps.size(); ++i) {
    work.setCaption(steps[i].caption);
    isThere[i] = steps[i].read();
  }
  findings_ = from.findings() + ProjectRepair(project_).run();
  work.setCaption(shownText(u"Loading Complete"_s));
  // The book stands in the old one's folder, and a save asks before it replaces what else is there.
  project_.storedIn_ = file;
  project_.freshlyRead_ = true;
  // A book of items alone is no conversion of one whose chapters and scenes are lost.
  const bool hasText = !into.ChapterFile.isEmpty() || !into.SceneFile.isEmpty();
  const auto last = hasText ? isThere.begin() + 2 : isThere.end();
  return std::find(isThere.begin(), last, true) != last;
}

bool ProjectLoader::saveConverted(const QString& file) {
  project_.FileWithPath = Files().FileWithoutExt(project_.SourceFile) + u".qn4"_s;
  const OldTexts before(project_);
  if (!project_.SaveQN4(true) || !Files().FileExists(project_.FileWithPath)) {
    before.removeNew();
    toolkit().MsgBox(notSaved(file));
    return false;
  }
  const bool isHere = Paths::areSame(Files().PathOnly(file), project_.Path());
  const bool isRenamed = isHere && tookBakName(file);
  toolkit().MsgBox(isRenamed ? convertedNotice(Files().FileOnly(file)) : keptNotice(file, project_.FileWithPath));
  return true;
}
