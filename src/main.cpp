#include "Version.h"
#include "core/infra/Guard.h"
#include "core/infra/Maker.h"
#include "gui/shell/life/EndSignals.h"
#include "gui/shell/life/GuardedApplication.h"
#include "gui/shell/life/HelpKey.h"
#include "gui/shell/life/InstanceCheck.h"
#include "gui/shell/life/RegisterWindows.h"
#include "gui/shell/main/InterfaceLanguage.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Icons.h"
#include "gui/toolkit/QtToolkit.h"
#include "gui/toolkit/ReadableHints.h"

using namespace Qt::StringLiterals;

namespace {

/// Everything behind the program's name is one path; a shell may have parted it at its blanks.
QString commandLine() {
  return QCoreApplication::arguments().mid(1).join(u' ');
}

/// Drawn in the sizes that title bars and switchers show: the desktop is handed every size that an icon has, and
/// larger ones would take longer to draw than the rest of a start's boxes.
QIcon windowIcon() {
  QIcon result;
  for (const int size : {16, 32, 48}) {
    result.addPixmap(icon("quillane").pixmap(QSize(size, size), 1));
  }
  return result;
}

int run() {
  Guard("Form_Initialize", "frmMain")(loadStoredLanguage);
  InstanceCheck instance;
  if (!Form_Initialize(instance)) {
    return 0;
  }
  frmMain main(commandLine());
  main.AnotherCopyRuns = !instance.isAlone();
  main.Form_Load();
  if (main.Closing) {
    return 0;
  }
  main.show();
  const EndSignals signals([&main] { main.EndAtOnce(); });
  // The end of the desktop's session: it asks before it ends us.
  QObject::connect(qApp, &QGuiApplication::commitDataRequest, &main,
                   guarded("commitDataRequest", "frmMain", &main, &frmMain::SaveAtOnce));
  return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
#ifndef Q_OS_MACOS
  // The menu bar stays in its window. Asking the desktop for another place means a session bus, and where there is
  // none a process that looks for one: longer than the rest of the start.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
#endif
  GuardedApplication application(argc, argv);
  const ReadableHints hints;
  const HelpKey helpKey;
  QCoreApplication::setApplicationName(u"quillane4"_s);
  QCoreApplication::setOrganizationName(QString::fromLatin1(Maker::kName));
  QCoreApplication::setApplicationVersion(QStringLiteral(QUILLANE_VERSION));
  QGuiApplication::setDesktopFileName(u"quillane4"_s);

  // The main window ends the program itself; a box that closes before it is shown shall not.
  QGuiApplication::setQuitOnLastWindowClosed(false);

  QtToolkit screen;
  installToolkit(&screen);
  registerWindows();
  QGuiApplication::setWindowIcon(windowIcon());
  const int result = run();
  letBookGo();
  installToolkit(nullptr);
  return result;
}
