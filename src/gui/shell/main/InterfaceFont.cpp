#include "gui/shell/main/InterfaceFont.h"

#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/frmMain.h"

#include <QApplication>
#include <QFontDatabase>

using namespace Qt::StringLiterals;

bool useFormFont(frmMain& main, const QString& family) {
  QFont font = QApplication::font();
  if (family != kSystemFormFont) {
    if (!QFontDatabase::hasFamily(family)) {
      return false;
    }
    font.setFamily(family);
  }
  main.setFont(font);
  main.menus().checkElement(u"mnuFont"_s, family);
  return true;
}
