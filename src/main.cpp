#include "Version.h"
#include "core/infra/Maker.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/life/GuardedApplication.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/Icons.h"
#include "gui/toolkit/QtToolkit.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Everything behind the program's name is one path; a shell may have parted it at its blanks.
QString commandLine() {
  return QCoreApplication::arguments().mid(1).join(u' ');
}

}  // namespace

int main(int argc, char** argv) {
#ifndef Q_OS_MACOS
  // The menu bar stays in its window. Asking the desktop for another place means a session bus, and where there is
  // none a process that looks for one: longer than the rest of the start.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
#endif
  GuardedApplication application(argc, argv);
  QCoreApplication::setApplicationName(u"quillane4"_s);
  QCoreApplication::setOrganizationName(QString::fromLatin1(Maker::kName));
  QCoreApplication::setApplicationVersion(QStringLiteral(QUILLANE_VERSION));
  QGuiApplication::setDesktopFileName(u"quillane4"_s);

  // The main window ends the program itself; a box that closes before it is shown shall not.
  QGuiApplication::setQuitOnLastWindowClosed(false);

  QtToolkit screen;
  installToolkit(&screen);
  registerSceneEditor();
  int result = 0;
  {
    frmMain main(commandLine());
    if (main.Form_Initialize()) {
      main.Form_Load();
      if (!main.Closing) {
        main.show();
        // Drawn in many sizes, so not before there is something to see.
        QTimer::singleShot(100, &main, [] { QGuiApplication::setWindowIcon(icon("quillane")); });
        result = QCoreApplication::exec();
      }
    }
  }
  installToolkit(nullptr);
  return result;
}
