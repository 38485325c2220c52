#include "gui/shell/MainWindow.h"

#include "core/infra/Clock.h"
#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/SceneEditor.h"
#include "core/model/clsProject.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/life/RegisterWindows.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/SceneTabs.h"
#include "gui/toolkit/InputShield.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QTest>

#include <chrono>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

QString settingsPath() {
  return Paths::programFolder() + u"Quillane4.ini"_s;
}

}  // namespace

void ShellTest::SetUp() {
  registerWindows();
  toolkit.makeHold = [] { return std::make_unique<InputShield>(); };
  Settings().DeleteAllSettings();
  QFile::remove(settingsPath());
  QFile::remove(Paths::programFolder() + u"log.txt"_s);
}

void ShellTest::TearDown() {
  window_.reset();
  // The scenes go before their windows: they hold on to them.
  newProject();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QList<frmEditor*> left;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (auto* found = dynamic_cast<frmEditor*>(widget)) {
      left.append(found);
    }
  }
  qDeleteAll(left);
  sceneEditorFactory() = nullptr;
  Clock::set({});
}

QString ShellTest::smallProject(const QString& name) {
  QDir().mkpath(folder.path(name));
  // No run of the program saved it: that would have left a log.
  Logging().NOLOGGING = true;
  const QString path = saveSmallProject(folder.path(name));
  Logging().NOLOGGING = false;
  newProject();
  Settings().DeleteAllSettings();
  return path;
}

void ShellTest::writeSettings(const QStringList& lines) {
  writeFile(settingsPath(), (lines.join(u"\r\n"_s) + u"\r\n"_s).toLatin1());
}

QString ShellTest::settingsText() const {
  return QString::fromLatin1(fileBytes(settingsPath()));
}

QString ShellTest::logText() const {
  return QString::fromLatin1(fileBytes(Paths::programFolder() + u"log.txt"_s));
}

frmMain& ShellTest::start(const QString& commandLine) {
  window_.reset();
  window_ = std::make_unique<frmMain>(commandLine);
  window_->endProcess = [this] { ++ended; };
  for (const QString& timer : {u"TimerBookBackups"_s, u"TimerDisk"_s}) {
    required(window_->findChild<QTimer*>(timer), timer).setInterval(std::chrono::hours(1));
  }
  if (prepare) {
    prepare(*window_);
  }
  window_->Form_Load();
  if (!window_->Closing) {
    window_->show();
    EXPECT_TRUE(waitUntilActive(*window_));
    EXPECT_TRUE(soon([this] { return window_->findChild<QWidget*>(u"txtBody"_s) != nullptr; }));
  }
  return *window_;
}

frmMain& ShellTest::startWith(const QString& project) {
  if (!QFile::exists(settingsPath())) {
    writeSettings({u"AskedAboutAutoUpdates,-1"_s});
  }
  return start(project);
}

void ShellTest::endProgram() {
  window().EndProgram();
  window_.reset();
}

void ShellTest::trigger(const char* entry) {
  control<QAction>(entry).trigger();
}

bool ShellTest::isEnabled(const char* entry) {
  return control<QAction>(entry).isEnabled();
}

bool ShellTest::isShown(const char* entry) {
  return control<QAction>(entry).isVisible();
}

QString ShellTest::panel(const char* key) {
  return control<QLabel>(key).text();
}

QStringList ShellTest::row(const char* listName, int index) {
  ListView& view = list(listName);
  QStringList texts;
  for (int column = 0; column < view.rows().columnCount(); ++column) {
    texts.append(indexOf(view, index, column).data().toString());
  }
  return texts;
}

QModelIndex ShellTest::indexOf(ListView& list, int row, int column) {
  const QModelIndex index = list.model()->index(row, column);
  return index.isValid() ? index
                         : throw std::out_of_range(u"row %1 in %2"_s.arg(row).arg(list.objectName()).toStdString());
}

void ShellTest::completeDisplay() {
  if (window_ && !window_->Closing) {
    window_->panes().scenes().tabStrip1().completeDisplay();
  }
}

QPoint ShellTest::placeOf(ListView& view, int row) {
  if (row < 0) {
    return {5, view.viewport()->height() - 2};
  }
  const QModelIndex index = indexOf(view, row);
  view.scrollTo(index);
  const QPoint centre = view.visualRect(index).center();
  return {std::min(centre.x(), view.viewport()->width() / 2), centre.y()};
}

void ShellTest::click(ListView& view, int row, Qt::KeyboardModifiers modifiers) {
  QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, placeOf(view, row));
}

void ShellTest::doubleClick(ListView& view, int row) {
  click(view, row);
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, placeOf(view, row));
}

bool ShellTest::soon(const std::function<bool()>& holds) {
  return waitFor(holds);
}

frmEditor* ShellTest::editor() const {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* found = dynamic_cast<frmEditor*>(widget);
    if (found != nullptr && found->isVisible()) {
      return found;
    }
  }
  return nullptr;
}

frmEditor& ShellTest::openEditor() const {
  return required(editor(), u"editor window"_s);
}
