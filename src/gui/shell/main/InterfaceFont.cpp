#include "gui/shell/main/InterfaceFont.h"

#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/frmMain.h"

#include <QApplication>
#include <QFontDatabase>

using namespace Qt::StringLiterals;

bool useFormFont(frmMain& main, const QString& family) {
  const bool systemFont = family == u"MS Sans Serif"_s;
  const bool known = systemFont || QFontDatabase::hasFamily(family);
  QFont font = QApplication::font();
  if (known && !systemFont) {
    font.setFamily(family);
  }
  main.setFont(font);
  main.menus().checkElement(u"mnuFont"_s, family);
  return known;
}
