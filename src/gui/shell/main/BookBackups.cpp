#include "gui/shell/main/BookBackups.h"

#include "core/infra/FirstOf.h"
#include "core/infra/Paths.h"
#include "core/infra/ScanPause.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/BackupsProject.h"
#include "core/persist/BackupsView.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ProjectSession.h"
#include "gui/shell/main/StatusPanels.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/BackupCopies.h"
#include "gui/shell/windows/frmBackupViewer.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/ListView.h"

#include <QApplication>
#include <QCryptographicHash>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// One look could come before the window is painted.
constexpr int kQuietLooks = 2;

/// The time of the newest copy that was refused, of the book that is open.
QString seenKey() {
  const QByteArray path = Paths::identity(g_Project->FileWithPath).toUtf8();
  return u"CopiesSeen_"_s + QString::fromLatin1(QCryptographicHash::hash(path, QCryptographicHash::Sha1).toHex());
}

qint64 timeOf(const YoungerCopy& found) {
  return found.copy.Date.toMSecsSinceEpoch();
}

/// Those that weren't refused before.
QList<YoungerCopy> newCopies() {
  QList<YoungerCopy> found = youngerCopies(*g_Project);
  const qint64 seen = Settings().sGet(seenKey(), 0).toLongLong();
  found.removeIf([seen](const YoungerCopy& copy) { return timeOf(copy) <= seen; });
  return found;
}

void rememberSeen(const QList<YoungerCopy>& found) {
  const auto newest = std::max_element(
      found.begin(), found.end(), [](const YoungerCopy& a, const YoungerCopy& b) { return timeOf(a) < timeOf(b); });
  Settings().sSet(seenKey(), QString::number(timeOf(*newest)));
  Settings().SaveSettings(g_SettingsFile);
}

QString offerOf(const QList<YoungerCopy>& found) {
  QStringList scenes;
  for (const YoungerCopy& copy : found) {
    const QString line = copy.isOfPlan ? translated(u"%1 (copy of its title, description, goals and notes, %2)"_s)
                                       : translated(u"%1 (copy of %2)"_s);
    scenes.append(line.arg(titleInCopies(copy.scene.get()), Dates().ShortFormatDateTime(copy.copy.Date)));
  }
  return translated(
             u"Backup copies hold words that were never saved to the book:\n%1\n\nDo you want to look at them?"_s)
      .arg(firstOf(scenes).join(u'\n'));
}

}  // namespace

BookBackups::BookBackups(frmMain& main) : main_(main) {
  timer_.setObjectName(u"TimerBookBackups"_s);
  timer_.setParent(&main);
  timer_.setInterval(250ms);
  QObject::connect(&timer_, &QTimer::timeout, &main, guarded("TimerBookBackups_Timer", "frmMain", [this] { look(); }));
}

BookBackups::~BookBackups() = default;

void BookBackups::bookOpened() {
  main_.status().setBackupFailure({});
  archiveDue_ = true;
  copiesDue_ = true;
  quietLooks_ = 0;
  timer_.start();
}

void BookBackups::look() {
  quietLooks_ = isQuiet() ? quietLooks_ + 1 : 0;
  if (quietLooks_ < kQuietLooks) {
    return;
  }
  makeDue();
  if (std::exchange(copiesDue_, false)) {
    findYoungerCopies();
  }
  if (main_.Editing() && !youngerCopies_.isEmpty()) {
    return;  // a box would take the keys that are typed there
  }
  timer_.stop();
  offerYoungerCopies();
}

bool BookBackups::isQuiet() const {
  return main_.isVisible() && !main_.Closing && !ScanPause::isActive() && !g_Project->IsBusy() &&
         QApplication::activeModalWidget() == nullptr && QApplication::activePopupWidget() == nullptr &&
         !ListView::isDragging();
}

void BookBackups::makeDue() {
  if (!std::exchange(archiveDue_, false)) {
    return;
  }
  const BackupOutcome outcome = backUpProject(*g_Project, false, false);
  if (outcome.result == BackupOutcome::Result::Failed) {
    main_.status().setBackupFailure(outcome.causes);
    main_.showMessage(translated(u"Today's backup of the book failed: %1"_s).arg(translated(outcome.causes.value(0))));
  }
}

void BookBackups::bookLeaves() {
  timer_.stop();
  makeDue();
  copiesDue_ = false;
  youngerCopies_.clear();
  if (viewer_) {
    viewer_->close();
  }
}

void BookBackups::findYoungerCopies() {
  // In a book that was opened read-only whoever has it open is writing them.
  youngerCopies_ = g_Project->ReadOnly() ? QList<YoungerCopy>() : newCopies();
}

void BookBackups::offerYoungerCopies() {
  const QList<YoungerCopy> found = std::exchange(youngerCopies_, {});
  if (found.isEmpty()) {
    return;
  }
  // Whoever looks may not get to the end: only what was refused isn't offered again.
  if (toolkit().MsgBox(offerOf(found), Buttons::YesNo) == Answer::Yes) {
    showViewer(found.first().copy.Path);
  } else {
    rememberSeen(found);
  }
}

void BookBackups::showViewer(const QString& copy) {
  makeDue();
  if (!viewer_) {
    viewer_ = new frmBackupViewer(&main_);
    viewer_->setAttribute(Qt::WA_DeleteOnClose);
    viewer_->SelectedChapter = [&main = main_] { return main.panes().chapters().SelectedChapterID(); };
    QObject::connect(viewer_, &frmBackupViewer::bookChanged, &main_,
                     guarded("mnuAutobackups_Click", "frmMain", [&main = main_] {
                       main.ProjectChanged = true;
                       main.session().saveChange();
                       main.RefreshAll();
                       g_Project->UpdateCombosInEditorWindows();
                     }));
  }
  copy.isEmpty() ? viewer_->FillForm() : viewer_->ShowCopy(copy);
  viewer_->setWindowState(viewer_->windowState() & ~Qt::WindowMinimized);
  viewer_->show();
  viewer_->raise();
  viewer_->activateWindow();
}
