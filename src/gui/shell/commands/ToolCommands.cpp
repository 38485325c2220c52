#include "gui/shell/commands/ToolCommands.h"

#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedFileSubs.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/frmAbout.h"
#include "gui/toolkit/fSHAREDLogViewer.h"

#include <QApplication>
#include <QFontDatabase>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kHelpFile = "Quillane3.chm";

}  // namespace

void ToolCommands::mnuViewLog_Click() {
  fSHAREDLogViewer::open(&main_);
}

bool ToolCommands::useFormFont(const QString& family) {
  const bool systemFont = family == u"MS Sans Serif"_s;
  const bool known = systemFont || QFontDatabase::hasFamily(family);
  QFont font = QApplication::font();
  if (known && !systemFont) {
    font.setFamily(family);
  }
  main_.setFont(font);
  main_.menus().checkElement(u"mnuFont"_s, family);
  return known;
}

void ToolCommands::mnuFont_Click(const QString& family) {
  Settings().sSet(u"FormFont"_s, family);
  if (!useFormFont(family)) {
    main_.showMessage(u"The font "_s + family + u" isn't installed on this computer."_s);
  }
}

void ToolCommands::mnuLanguage_Click(int index) {
  if (index == 0) {
    main_.menus().checkElement(u"mnuLanguage"_s, u"English"_s);
  }
}

void ToolCommands::mnuAbout_Click() {
  frmAbout::showOver(main_);
}

void ToolCommands::mnuManual_Click() {
  toolkit().MsgBox(u"There are no help files for Quillane 4 yet. For now, you'll get the Quillane 3 help instead."_s);
  const QString file = Paths::installed(QString::fromLatin1(kHelpFile));
  if (!Files().FileExists(file)) {
    main_.showMessage(u"The help file "_s + file + u" isn't there."_s);
    return;
  }
  toolkit().openDocument(file);
}

void ToolCommands::mnuCheckVersion_Click() {
  if (main_.Editing()) {
    toolkit().MsgBox(u"Please close all editor windows first"_s);
    return;
  }
  main_.saveIfChanged();
  main_.stopUpdateCheck();
  main_.CheckForUpdate(false);
}
