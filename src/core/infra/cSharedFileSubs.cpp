#include "core/infra/cSharedFileSubs.h"

#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <array>

using namespace Qt::StringLiterals;

// The work on path strings, and starting programs. Text files stand in cSharedFileSubsText.cpp, properties,
// folders and copying in cSharedFileSubsFolders.cpp.

namespace {

/// The position of the last separator, -1 when there is none.
qsizetype lastSeparator(QStringView path) {
  if (Paths::isOwnForm(path)) {
    return path.lastIndexOf(Paths::separator());
  }
  for (qsizetype i = path.size(); i-- > 0;) {
    if (Paths::isSeparator(path[i])) {
      return i;
    }
  }
  return -1;
}

/// The position of the next separator from a place on, or the end.
qsizetype nextSeparator(QStringView path, qsizetype from) {
  while (from < path.size() && !Paths::isSeparator(path[from])) {
    ++from;
  }
  return from;
}

bool endsInSeparator(QStringView path) {
  return !path.isEmpty() && lastSeparator(path) == path.size() - 1;
}

bool isNetworkPath(QStringView path) {
  return path.size() > 2 && Paths::isSeparator(path[0]) && Paths::isSeparator(path[1]);
}

/// The length of the "\\server\share" head.
qsizetype shareLength(QStringView path) {
  return nextSeparator(path, nextSeparator(path, 2) + 1);
}

/// Windows' scripts say by their names alone that they are some.
bool isBatchFile(const QFileInfo& file) {
  const QString extension = file.suffix().toLower();
  return Paths::separator() == u'\\' && (extension == u"bat"_s || extension == u"cmd"_s);
}

/// A file that may be run and is made for it. On a volume without such rights everything may be run, a text too.
bool isExecutable(const QString& path) {
  const QFileInfo info(path);
  if (info.isFile() && isBatchFile(info)) {
    return true;
  }
  QFile file(path);
  if (!info.isFile() || !info.isExecutable() || !file.open(QIODevice::ReadOnly)) {
    return false;
  }
  const QByteArray head = file.read(4);
  return head.startsWith("#!") || head ==
                                      "\x7F"
                                      "ELF";
}

/// The program to run for a path, or for a bare name that is one of the system's; empty for a document.
QString programOf(const QString& path) {
  if (QFileInfo::exists(path)) {
    return isExecutable(path) ? QFileInfo(path).absoluteFilePath() : QString();
  }
  return lastSeparator(path) < 0 ? QStandardPaths::findExecutable(path) : QString();
}

/// A document is opened in its program, which takes no parameter.
bool start(const QString& file, const QStringList& arguments) {
  const QString path = Paths::native(file);
  const QString program = programOf(path);
  return program.isEmpty() ? toolkit().openDocument(path) : toolkit().runProgram(program, arguments, false);
}

}  // namespace

QString cSharedFileSubs::PathOnly(const QString& Path) const {
  const QString folder = ExtractPath(Path);
  return folder.isEmpty() ? u'.' + QString(Paths::separator()) : folder;
}

QString cSharedFileSubs::ExtractPath(const QString& Path) const {
  return Paths::native(Path.left(lastSeparator(Path) + 1));
}

QString cSharedFileSubs::ExtOnly(const QString& Path) const {
  const qsizetype dot = Path.lastIndexOf(u'.');
  return dot < 0 ? QString() : Path.mid(dot + 1);
}

QString cSharedFileSubs::ExtOnlyWithDot(const QString& Path) const {
  const qsizetype dot = Path.lastIndexOf(u'.');
  return dot < 0 ? QString() : Path.mid(dot);
}

QString cSharedFileSubs::FileOnly(const QString& Path) const {
  return Path.mid(lastSeparator(Path) + 1);
}

QString cSharedFileSubs::FileWithoutExt(const QString& Path) const {
  return Path.left(Path.lastIndexOf(u'.'));
}

QString cSharedFileSubs::DriveOnly(const QString& Path) const {
  return Path.isEmpty() || Paths::isSeparator(Path[0]) ? QString() : Path.left(1);
}

QString cSharedFileSubs::FolderExDrive(const QString& Path) const {
  if (isNetworkPath(Path)) {
    return Path.mid(nextSeparator(Path, 2) + 1);
  }
  if (Path.size() > 1 && Path[1] == u':') {
    return Path.mid(Path.size() > 2 && Paths::isSeparator(Path[2]) ? 3 : 2);
  }
  return Path.mid(!Path.isEmpty() && Paths::isSeparator(Path[0]) ? 1 : 0);
}

QString cSharedFileSubs::AddSlashIfMissing(const QString& Path) const {
  return Path.isEmpty() || endsInSeparator(Path) ? Path : Path + Paths::separator();
}

QString cSharedFileSubs::AddForwardSlashIfMissing(const QString& Path) const {
  return Path.isEmpty() || Path.endsWith(u'/') ? Path : Path + u'/';
}

QString cSharedFileSubs::RemoveSlashFromEnd(const QString& Path) const {
  return Path.size() > 1 && endsInSeparator(Path) ? Path.chopped(1) : Path;
}

QString cSharedFileSubs::Combine(const QString& Path, const QString& File) const {
  const bool doubled = !Path.isEmpty() && !File.isEmpty() && Paths::isSeparator(File[0]);
  return AddSlashIfMissing(Path) + File.mid(doubled ? 1 : 0);
}

QString cSharedFileSubs::ExtractUNCShare(const QString& Path) const {
  return isNetworkPath(Path) ? Path.left(shareLength(Path)) : QString();
}

QString cSharedFileSubs::ExtractUNCPath(const QString& Path) const {
  return isNetworkPath(Path) ? Path.mid(shareLength(Path)) : Path;
}

QString cSharedFileSubs::LastFolder(const QString& Path) const {
  return FileOnly(RemoveSlashFromEnd(Path));
}

void cSharedFileSubs::CleanString(QString& Name) const {
  for (QChar& character : Name) {
    if (QStringView(u"\\/:*?<>|&,%\"").contains(character)) {
      character = u' ';
    }
  }
  constexpr std::array kDevices{u"PRN", u"CON", u"NUL", u"AUX"};
  for (const char16_t* device : kDevices) {
    if (Name == QStringView(device)) {
      Name.append(u'1');
      break;
    }
  }
  Name = Name.trimmed();
}

bool cSharedFileSubs::RunFile(const QString& File) const {
  return start(File, {});
}

bool cSharedFileSubs::RunFileWithParam(const QString& File, const QString& Param) const {
  return start(File, {Param});
}

bool cSharedFileSubs::RunFileHidden(const QString& File) const {
  const QString program = programOf(Paths::native(File));
  return !program.isEmpty() && toolkit().runProgram(program, {}, true);
}

cSharedFileSubs& Files() {
  static cSharedFileSubs files;
  return files;
}
