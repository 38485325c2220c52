#include "gui/shell/life/HelpKey.h"

#include "core/infra/Guard.h"
#include "core/infra/HelpFile.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>

HelpKey::HelpKey() {
  qApp->installEventFilter(this);
}

const std::vector<std::pair<const char*, const char*>>& HelpKey::pages() {
  static const std::vector<std::pair<const char*, const char*>> table{
      {"frmMain", "main-window"},
      {"frmEditor", "scene-editor"},
      {"frmEditorSettings", "backups"},
      {"frmEditChapter", "sheets"},
      {"frmEditCharacter", "sheets"},
      {"frmEditLocation", "sheets"},
      {"frmEditItem", "sheets"},
      {"frmList", "cast"},
      {"frmStoryboard", "storyboard"},
      {"frmChart", "ratings-chart"},
      {"frmWordTarget", "word-target"},
      {"frmEditProject", "project-settings"},
      {"frmSceneList", "scene-list"},
      {"frmOverview", "scene-list"},
      {"frmFind", "find"},
      {"frmGlobalReplace", "replace"},
      {"frmProblemWords", "problem-words"},
      {"frmWordCount", "word-usage"},
      {"frmPrinterSetup", "printing"},
      {"frmPrintPreview", "printing"},
      {"frmImportWIP", "imports"},
      {"frmProjectWizard", "first-book"},
      {"frmBackupViewer", "backups"},
      {"frmLostAndFound", "backups"},
      {"fSHAREDUpdater", "preferences"},
      {"fSHAREDProxy", "preferences"},
      {"frmAbout", "files"},
      {"fSHAREDErrorRpt", "when-something-fails"},
      {"fSHAREDLogViewer", "when-something-fails"},
  };
  return table;
}

QString HelpKey::pageFor(const QWidget& control) {
  for (const QWidget* window = control.window(); window != nullptr;
       window = window->parentWidget() == nullptr ? nullptr : window->parentWidget()->window()) {
    if (const QString own = window->property(HelpFile::kPage).toString(); !own.isEmpty()) {
      return own;
    }
    const auto found = std::find_if(pages().begin(), pages().end(), [&](const auto& line) {
      return window->objectName() == QLatin1String(line.first);
    });
    if (found != pages().end()) {
      return QString::fromLatin1(found->second);
    }
  }
  return {};
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) {
    return false;
  }
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier || !HelpFile::isInstalled()) {
    return false;
  }
  Guard("Form_KeyDown", "HelpKey")([&] { HelpFile::open(pageFor(static_cast<const QWidget&>(*watched))); });
  return true;
}
