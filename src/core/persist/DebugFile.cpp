#include "core/persist/DebugFile.h"

#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ZipContents.h"
#include "core/infra/cSHAREDZipFiles.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/persist/modConstXML.h"

#include <algorithm>
#include <array>
#include <cerrno>

using namespace Qt::StringLiterals;
using namespace modConstXML;

namespace {

const Guard kGuard("mnuCreateDebug_Click", "frmMain");

struct Removed {
  Tag tag;
  QByteArrayView instead;
};

// Of the project, chapters, scenes, cast and notes.
constexpr std::array kRemoved{Removed{kDesc, "Description Removed"}, Removed{kBio, "Bio Removed"},
                              Removed{kGoals, "Goals Removed"},      Removed{kNotes, "Notes Removed"},
                              Removed{kGoal, "Goal Removed"},        Removed{kConflict, "Conflict Removed"},
                              Removed{kOutcome, "Outcome Removed"},  Removed{kSceneRTF, "Scene Removed"}};

QString memberOf(const QString& path) {
  return Files().FileOnly(path);
}

}  // namespace

DebugFile::DebugFile(const clsProject& project)
    : projectFile_(project.FileWithPath),
      textFolder_(project.RTFFolder()),
      root_(project.Path() + Files().FileWithoutExt(Files().FileOnly(project.FileWithPath))),
      file_(root_ + u"_qn4.dbg"_s),
      list_(root_ + u"_qn4_rtf.dbg"_s) {}

QByteArray DebugFile::withoutStory(const QByteArray& project) {
  const QByteArrayView text(project);
  QByteArray out;
  out.reserve(project.size());
  qsizetype copied = 0;
  for (qsizetype at = project.indexOf('<'); at >= 0; at = project.indexOf('<', at + 1)) {
    const auto* const found = std::find_if(kRemoved.begin(), kRemoved.end(), [&](const Removed& removed) {
      return Tags::startsWith(text.sliced(at), removed.tag.open);
    });
    if (found == kRemoved.end()) {
      continue;
    }
    const qsizetype content = at + found->tag.open.size();
    out.append(project.constData() + copied, content - copied);
    out.append(found->instead);
    const qsizetype end = Tags::find(text, found->tag.close, content);
    copied = at = end < 0 ? text.size() : end;
  }
  out.append(project.constData() + copied, project.size() - copied);
  return out;
}

QString DebugFile::listed() const {
  QList<FileObject> files;
  Files().FillFileObjects(textFolder_, u"rtf"_s, files);
  QString lines;
  qint32 index = 0;
  for (const FileObject& file : files) {
    lines += QStringList{QString::number(++index), file.Name, file.Date.toString(u"yyyy-MM-dd HH:mm:ss"_s),
                         QString::number(file.Size)}
                 .join(u' ') +
             u"\r\n"_s;
  }
  return lines;
}

void DebugFile::write() const {
  const std::optional<QByteArray> project = readWholeFile(projectFile_);
  if (!project) {
    throw RuntimeError::fromErrno(ENOENT, projectFile_);
  }
  Files().ReplaceFile(file_, withoutStory(*project));
  Files().ReplaceFile(list_, listed().toUtf8());
  Logging().LogEvent(u"Created debug files "_s + file_ + u" and "_s + list_);
}

/// A debug file that was made before: it holds nothing that this one doesn't.
bool DebugFile::mayReplace(const QString& archive) const {
  if (!Files().FileExists(archive)) {
    return !Files().FolderExists(archive);
  }
  bool isOurs = false;
  kGuard([&] {
    const QStringList members{memberOf(file_), memberOf(list_), memberOf(g_SettingsFile), u"log.txt"_s};
    const ZipContents contents(archive);
    isOurs = !contents.members().empty() &&
             std::all_of(contents.members().begin(), contents.members().end(),
                         [&](const ZipMember& member) { return members.contains(member.name); });
  });
  return isOurs;
}

bool DebugFile::zip() {
  archive_ = root_ + u".zip"_s;
  for (int number = 1; !mayReplace(archive_); ++number) {
    archive_ = root_ + (number == 1 ? u"_qn4.zip"_s : u"_qn4_%1.zip"_s.arg(number));
  }
  Files().EraseFile(archive_);
  const bool packed = pack();
  if (!packed) {
    Files().EraseFile(archive_);
  }
  return packed;
}

// The log comes last, with the lines about the others in it. There may be no settings yet.
bool DebugFile::pack() {
  const auto add = [this](const QString& path, const QString& line) {
    bool added = false;
    kGuard([&] { added = cSHAREDZipFiles().Zip(path, archive_); });
    if (added && !line.isEmpty()) {
      Logging().LogEvent(line);
    }
    return added;
  };
  if (!add(file_, u"Zipped debug file to "_s + archive_) || !add(list_, u"Added files list"_s)) {
    return false;
  }
  missing_.clear();
  if (Files().FileExists(g_SettingsFile) && !add(g_SettingsFile, u"Added Quillane4.ini"_s)) {
    missing_.append(memberOf(g_SettingsFile));
  }
  Logging().WriteActionsToLog();
  if (!add(Paths::programFolder() + u"log.txt"_s, {})) {
    missing_.append(u"log.txt"_s);
  }
  return true;
}
