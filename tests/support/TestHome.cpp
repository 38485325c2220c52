#include "support/TestHome.h"

#include "core/infra/Paths.h"
#include "core/infra/cSharedLogging.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QProcess>

using namespace Qt::StringLiterals;

TestHome::TestHome() {
  const QString home = folder_.path();
  qputenv("HOME", home.toLocal8Bit());
  qputenv("XDG_RUNTIME_DIR", home.toLocal8Bit());
  qputenv("XDG_CONFIG_HOME", (home + u"/config"_s).toLocal8Bit());
  qputenv("XDG_DATA_HOME", (home + u"/data"_s).toLocal8Bit());
  qputenv("TZ", "UTC");
  // No proxy of this machine stands between a test and its servers.
  qputenv("no_proxy", "*");
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
  // The helper libraries are looked for in the program's folder: the test's one links to the built ones.
  const QDir built(QCoreApplication::applicationDirPath());
  QDir(home).mkdir(u"program"_s);
  for (const QString& name : {u"qnHtml.dll"_s, u"qnHtml2.dll"_s, u"Hash.dll"_s}) {
    QFile::link(built.filePath(name), home + u"/program/"_s + name);
  }
  Paths::overrideFolders(home + u"/program"_s);
}

/// What is still queued for the log goes with the home; nothing is written beside the test program.
TestHome::~TestHome() {
  Logging().WriteActionsToLog();
  Logging().NOLOGGING = true;
  Paths::overrideFolders({});
}

QString ScratchFolder::path(const QString& name) const {
  return name.isEmpty() ? folder_.path() : folder_.filePath(name);
}

/// Beside the source tree, or beside the folder that holds several of them.
QString sharedFolder() {
  for (const QString& beside : {u"/../shared"_s, u"/../../shared"_s}) {
    const QString folder = QDir::cleanPath(QStringLiteral(QUILLANE_SOURCE_DIR) + beside);
    if (QFileInfo::exists(folder + u"/novels"_s)) {
      return folder;
    }
  }
  return {};
}

QString makeNovel(const QString& folder, const QString& novel, const QStringList& options) {
  const QString shared = sharedFolder();
  QProcess python;
  python.start(
      u"python3"_s,
      QStringList{shared + u"/tools/make_project.py"_s, shared + u"/novels/"_s + novel + u".txt"_s, folder} + options);
  return python.waitForFinished(120000) && python.exitCode() == 0 ? folder + u'/' + novel + u".qn4"_s : QString();
}
