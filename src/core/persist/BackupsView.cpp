#include "core/persist/BackupsView.h"

#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/ZipContents.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/SceneCopy.h"
#include "core/text/InlineObject.h"
#include "core/text/RichText.h"
#include "core/text/Rtf.h"

#include <QDate>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "Backups";

QString backupsOf(const clsProject& project) {
  return project.Path() + u"Autobackups"_s;
}

QList<FileObject> filesIn(const clsProject& project, const QString& folder, const QString& extension) {
  QList<FileObject> files;
  Files().FillFileObjects(Files().Combine(backupsOf(project), folder), extension, files);
  return files;
}

const QString kOriginal = u"_Original"_s;

/// What a scene's file is known by, whatever folder and letters it has.
QString keyOf(const QString& name) {
  return Files().FileWithoutExt(Files().FileOnly(name)).toLower();
}

/// The key of the file that a copy was made of: "rtf_00001" for "RTF_00001_Scene_2.rtf" and "RTF_00001_Original_2.rtf".
QString sourceOf(const QString& copy) {
  const QString key = keyOf(copy);
  const qsizetype end = std::max(key.lastIndexOf(u"_scene_"_s), key.lastIndexOf(kOriginal.toLower()));
  return end < 0 ? key : key.first(end);
}

using SceneCopy::isOfPlan;

/// Notes in the text too.
QString wordsOf(const RichText& text) {
  QString words = text.text();
  for (qsizetype i = 0; i < text.runCount(); ++i) {
    const auto& object = text.run(i).format->object;
    words += object && object->content ? u'\n' + wordsOf(*object->content) : QString();
  }
  return words;
}

/// The newest copy for each scene so far that is younger than what was saved.
class YoungerCopies {
 public:
  explicit YoungerCopies(const clsProject& project)
      : project_(project), planSaved_(Files().FileDate(project.FileWithPath)) {
    for (const auto& scene : project.Scenes) {
      if (!scene->RTFFilename().isEmpty()) {
        const QString key = keyOf(scene->RTFFilename());
        texts_.insert(key, {scene, {{}, {}, 0, Files().FileDate(scene->RTFFileWithPath())}});
        plans_.insert(key, {scene, {{}, {}, 0, planSaved_}, true});
      }
    }
  }

  /// A folder for each day: of days before something was saved nothing is looked at but the names, for there may be
  /// years of them.
  void lookInto(const QString& folder) {
    const QDate day = QDate::fromString(folder, Qt::ISODate);
    const QString path = Files().AddSlashIfMissing(Files().Combine(backupsOf(project_), folder));
    for (const QString& name : day.isValid() ? namesWith(path, ".rtf") : QStringList()) {
      if (SceneCopy::isOfUnsaved(name)) {
        lookAtUnsaved(name, path, day);
        continue;
      }
      auto& newest = isOfPlan(name) ? plans_ : texts_;
      const auto found = name.contains(kOriginal) ? newest.end() : newest.find(sourceOf(name));
      if (found != newest.end() && mayBeYounger(day, found->copy.Date)) {
        take(*found, fileAt(name, path));
      }
    }
  }

  QList<YoungerCopy> result() const {
    QList<YoungerCopy> copies;
    for (const auto& scene : project_.Scenes) {
      const QString key = keyOf(scene->RTFFilename());
      for (const YoungerCopy& found : {texts_.value(key), plans_.value(key)}) {
        if (found.scene == scene && !found.copy.Path.isEmpty() && hasOtherWords(found)) {
          copies.append(found);
        }
      }
    }
    return copies + unsaved_;
  }

 private:
  static bool mayBeYounger(const QDate& day, const QDateTime& saved) { return !saved.isValid() || day >= saved.date(); }

  static FileObject fileAt(const QString& name, const QString& path) {
    return {name, path + name, Files().FileSize(path + name), Files().FileDate(path + name)};
  }

  static void take(YoungerCopy& newest, const FileObject& copy) {
    if (copy.Date.isValid() && (!newest.copy.Date.isValid() || copy.Date > newest.copy.Date)) {
      newest.copy = copy;
    }
  }

  // A project that was saved since names the scene, if it was still there.
  void lookAtUnsaved(const QString& name, const QString& path, const QDate& day) {
    if (mayBeYounger(day, planSaved_)) {
      const FileObject copy = fileAt(name, path);
      if (copy.Size > 0 && copy.Date.isValid() && (!planSaved_.isValid() || copy.Date > planSaved_)) {
        unsaved_.append({nullptr, copy, isOfPlan(name)});
      }
    }
  }

  /// The colours of names and misspellings come and go without a save.
  static bool hasOtherWords(const YoungerCopy& found) {
    QByteArray text;
    if (!Files().LoadTextFile(found.copy.Path, text)) {
      return false;
    }
    if (found.isOfPlan) {
      return rtfToPlainText(text) != RichText::fromPlain(SceneCopy::planOf(*found.scene)).text();
    }
    const QByteArray saved = found.scene->TextRTF();
    return text != saved && wordsOf(readRtf(text)) != wordsOf(readRtf(saved));
  }

  const clsProject& project_;
  const QDateTime planSaved_;
  QHash<QString, YoungerCopy> texts_;
  QHash<QString, YoungerCopy> plans_;
  QList<YoungerCopy> unsaved_;
};

}  // namespace

QStringList backupFolders(const clsProject& project) {
  QStringList folders;
  if (!project.FileWithPath.isEmpty()) {
    Files().FillFolders(backupsOf(project), folders);
  }
  return folders;
}

QList<FileObject> backupCopies(const clsProject& project, const QString& folder) {
  return filesIn(project, folder, u"rtf"_s);
}

QList<FileObject> backupArchives(const clsProject& project, const QString& folder) {
  return filesIn(project, folder, u"zip"_s);
}

QString newestCompleteBackup(const clsProject& project) {
  const QString name = Files().FileWithoutExt(Files().FileOnly(project.FileWithPath)) + u"_complete.zip"_s;
  FileObject newest;
  for (const QString& folder : backupFolders(project)) {
    for (const FileObject& archive : backupArchives(project, folder)) {
      const bool isComplete = archive.Name.compare(name, Qt::CaseInsensitive) == 0;
      if (isComplete && (newest.Path.isEmpty() || archive.Date > newest.Date)) {
        newest = archive;
      }
    }
  }
  return newest.Path;
}

CopySources::CopySources(const clsProject& project) {
  for (const auto& scene : project.Scenes) {
    const QString key = keyOf(scene->RTFFilename());
    if (!key.isEmpty() && !scenes_.contains(key)) {
      scenes_.insert(key, scene);
    }
  }
}

// A member of an archive has the name of the scene's own file.
std::shared_ptr<clsScene> CopySources::sceneOf(const QString& copy) const {
  const auto own = scenes_.value(keyOf(copy));
  return own ? own : scenes_.value(sourceOf(copy));
}

std::shared_ptr<clsScene> sceneOfCopy(const clsProject& project, const QString& name) {
  return CopySources(project).sceneOf(name);
}

QList<YoungerCopy> youngerCopies(const clsProject& project) {
  YoungerCopies copies(project);
  for (const QString& folder : backupFolders(project)) {
    copies.lookInto(folder);
  }
  return copies.result();
}

bool deleteBackup(const clsProject& project, const QString& path) {
  const QString backups = Paths::identity(backupsOf(project)) + u'/';
  if (!Paths::identity(path).startsWith(backups)) {
    Logging().AddDebug(u"Not a backup of this book, and not deleted: "_s + path, u"deleteBackup"_s,
                       QString::fromLatin1(kModule));
    return false;
  }
  return Files().EraseFile(path);
}

ArchiveListing filesInBackup(const QString& archive) {
  ArchiveListing listing;
  listing.failure = Guard("filesInBackup", kModule).causeOf([&] {
    const ZipContents contents(archive);
    for (const ZipMember& member : contents.members()) {
      if (!member.isFolder()) {
        listing.files.append({member.name, member.date, member.size});
      }
    }
  });
  return listing;
}

RestoredFile readBackupCopy(const QString& path) {
  RestoredFile restored;
  restored.failure = Guard("readBackupCopy", kModule).causeOf([&] {
    std::optional<QByteArray> content = readWholeFile(path);
    if (!content) {
      throw RuntimeError(RuntimeError::FileNotFound);
    }
    restored.content = *std::move(content);
  });
  return restored;
}

RestoredFile restoreFromBackup(const QString& archive, const QString& name) {
  RestoredFile restored;
  restored.failure = Guard("restoreFromBackup", kModule).causeOf([&] {
    const ZipContents contents(archive);
    const QList<ZipMember>& members = contents.members();
    const auto found =
        std::find_if(members.begin(), members.end(), [&](const ZipMember& member) { return member.name == name; });
    if (found == members.end()) {
      throw RuntimeError(RuntimeError::FileNotFound, toldText(shownText(u"%1 is not in the archive"_s), {name}));
    }
    restored.content = contents.read(found - members.begin());
  });
  return restored;
}
