#include "gui/shell/commands/ExportRun.h"

#include "core/exchange/BookWalk.h"
#include "core/infra/FirstOf.h"
#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"

using namespace Qt::StringLiterals;

namespace {

/// What ends a work that the user wants no more of.
struct Stopped {};

/// False when it was stopped.
bool wasDone(const ExportJob& job) {
  LongWork work(*g_Project, shownText(u"Exporting"_s), false, LongWork::Stop::Offered);
  try {
    job.work([&work](qint32 scene) {
      work.showIfLong();
      work.setCaption(shownText(u"Exporting scene %1"_s), scene);
      if (work.stopWanted()) {
        throw Stopped();
      }
    });
    return true;
  } catch (const Stopped&) {
    return false;
  }
}

bool holdsTheBook(const QString& path) {
  return Paths::areSame(path, g_Project->FileWithPath) ||
         (!g_Project->FileWithPath.isEmpty() && Paths::areSame(Files().PathOnly(path), g_Project->RTFFolder()));
}

}  // namespace

bool runExport(const ExportJob& job) {
  bool done = false;
  const QString cause = Guard(job.routine, job.module).causeOf([&] { done = wasDone(job); });
  if (done) {
    return true;
  }
  const QString end = cause.isEmpty() ? translated(u"The export was stopped, and %1 was not written."_s)
                                      : translated(u"%1 could not be written."_s);
  const QString former =
      Files().FileExists(job.path) ? translated(u" The file that is there is the former one."_s) : QString();
  toolkit().MsgBox(end.arg(job.path) + former + (cause.isEmpty() ? QString() : u"\n\n"_s + translated(cause)));
  return false;
}

void writeExport(const QString& path, QByteArrayView bytes) {
  Files().ReplaceFile(path, bytes, ReplacementFile::Durability::ContentOnDisk);
}

QString askForExportFile(const FileQuestion& question) {
  for (;;) {
    QString path = toolkit().SaveFileDialog(question);
    if (path.isEmpty() || !holdsTheBook(path)) {
      return path;
    }
    toolkit().MsgBox(
        translated(u"%1 is where the book itself is kept. Please choose another name or folder."_s).arg(path));
  }
}

QString folderForExports() {
  return g_Project->FileWithPath.isEmpty() ? QString() : g_Project->Path();
}

QString placeOfExport(const QString& name) {
  if (g_Project->HasPlace()) {
    return g_Project->Path() + name;
  }
  return askForExportFile({shownText(u"Specify a .TXT file to export to"_s), u"*.txt"_s, name, folderForExports()});
}

QString missingTexts(bool withUnused) {
  return missingTexts(unreadTexts(withUnused));
}

QString missingTexts(const QStringList& unread) {
  QStringList missing;
  if (!unread.isEmpty()) {
    missing.append(
        translated(u"The text of %1 could not be read when the book was opened, and is missing in the file:"_s)
            .arg(countedScenes(unread.size())) +
        u'\n' + firstOf(unread).join(u'\n'));
  }
  if (g_Project->EditorsHoldUnsaved()) {
    missing.append(translated(u"What isn't saved yet in open editor windows is not in it."_s));
  }
  return missing.join(u"\n\n"_s);
}
