#include "core/infra/Paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QString withSeparator(QString folder) {
  folder = QDir::toNativeSeparators(folder);
  return folder.endsWith(Paths::separator()) ? folder : folder + Paths::separator();
}

QString& overridden() {
  static QString folder;
  return folder;
}

/// A folder of ours beside that of the executables.
QString besideExecutables(const QString& folder, const QString& name) {
  return withSeparator(QDir::cleanPath(folder + u"/../"_s + name));
}

/// With a share folder of ours next to it the program is installed: whoever may write to the folder of
/// executables, as an administrator may, still keeps nothing of his own there.
bool isInstalled(const QString& folder) {
  return QFileInfo::exists(besideExecutables(folder, u"share/quillane4"_s));
}

QString decideProgramFolder() {
  const QString beside = QCoreApplication::applicationDirPath();
  if (QFileInfo(beside).isWritable() && !isInstalled(beside)) {
    return withSeparator(beside);
  }
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/quillane4"_s;
  QDir().mkpath(data);
  return withSeparator(data);
}

}  // namespace

namespace Paths {

QChar separator() {
  return QDir::separator();
}

bool isSeparator(QChar character) {
  return character == u'\\' || character == u'/';
}

bool isOwnForm(QStringView path) {
  return separator() == u'/' && path.startsWith(u'/') && !path.startsWith(u"//");
}

QString identity(const QString& path) {
  const QFileInfo file(QDir::cleanPath(QDir::fromNativeSeparators(path)));
  QString canonical = file.canonicalFilePath();
  if (!canonical.isEmpty()) {
    return canonical;
  }
  const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
  return folder.isEmpty() ? file.absoluteFilePath() : folder + u'/' + file.fileName();
}

bool areSame(const QString& path, const QString& other) {
  return path == other || identity(path) == identity(other);
}

QString native(const QString& path) {
  if (isOwnForm(path)) {
    return path;
  }
  QString result = path;
  return result.replace(separator() == u'/' ? u'\\' : u'/', separator());
}

QString programFolder() {
  static const QString folder = decideProgramFolder();
  return overridden().isEmpty() ? folder : overridden();
}

QString rescueFolder() {
  return programFolder() + u"Rescue"_s;
}

QString settingsFile() {
  return programFolder() + u"Quillane4.ini"_s;
}

QString executableFolder() {
  return overridden().isEmpty() ? withSeparator(QCoreApplication::applicationDirPath()) : overridden();
}

QStringList allInstalled(const QString& name) {
  const QString share = besideExecutables(executableFolder(), u"share/quillane4"_s);
  QStringList paths;
  for (const QString& folder : {programFolder(), executableFolder(), share}) {
    const QString path = folder + name;
    if (!paths.contains(path) && QFileInfo::exists(path)) {
      paths.append(path);
    }
  }
  return paths;
}

QString installed(const QString& name) {
  return allInstalled(name).value(0, programFolder() + name);
}

QString helperLibrary(const QString& name) {
  const QString beside = executableFolder() + name;
  const QString installed = besideExecutables(executableFolder(), u"lib/quillane4/helpers"_s) + name;
  return !QFileInfo::exists(beside) && QFileInfo::exists(installed) ? installed : beside;
}

QString documentsFolder() {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return withSeparator(QFileInfo(documents).isDir() ? documents : QDir::homePath());
}

QString temporaryFolder() {
  return withSeparator(QDir::tempPath());
}

void overrideFolders(const QString& folder) {
  overridden() = folder.isEmpty() ? folder : withSeparator(folder);
}

}  // namespace Paths
