#include "core/persist/NewBook.h"

#include "core/infra/Paths.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const QString kExtension = u".qn4"_s;
const QString kCannotBeMade = shownText(u"Unable to create project folder. Please choose another location."_s);

/// Room for the extension, the time and what copies put behind it, where a name has 255 bytes.
constexpr qsizetype kMostBytes = 200;

bool isForbidden(QChar character) {
  return QStringView(u"\\/:*?\"<>|").contains(character) || character.category() == QChar::Other_Control;
}

QString cutToFit(QString name) {
  while (name.toUtf8().size() > kMostBytes) {
    name.chop(name.back().isLowSurrogate() ? 2 : 1);
  }
  return name;
}

/// A dot in front would hide the file, and systems drop one at the end.
QString withoutOuterDots(const QString& name) {
  const auto isOuter = [](QChar character) { return character == u'.' || character == u' '; };
  qsizetype begin = 0;
  qsizetype end = name.size();
  while (begin < end && isOuter(name[begin])) {
    ++begin;
  }
  while (end > begin && isOuter(name[end - 1])) {
    --end;
  }
  return name.mid(begin, end - begin);
}

}  // namespace

QString NewBook::fileName() const {
  QString name = title;
  for (QChar& character : name) {
    if (isForbidden(character)) {
      character = u' ';
    }
  }
  name = withoutOuterDots(cutToFit(name.simplified()));
  return name.isEmpty() ? u"MyProject"_s : name;
}

QString NewBook::file() const {
  return folder + fileName() + kExtension;
}

QString NewBook::fileBeside(QTime now) const {
  constexpr int kMilliseconds = 1000;
  for (int seconds = now.msecsSinceStartOfDay() / kMilliseconds;; ++seconds) {
    QString path = folder + fileName() + u'-' + QString::number(seconds) + kExtension;
    if (!Files().FileExists(path)) {
      return path;
    }
  }
}

namespace NewBookFolder {

QString named(const QString& typed) {
  QString path = Paths::native(typed.trimmed());
  if (path.isEmpty()) {
    return path;
  }
  const QString home = u'~' + QString(Paths::separator());
  if (Files().AddSlashIfMissing(path).startsWith(home)) {
    path.replace(0, 1, QDir::homePath());
  }
  return Files().AddSlashIfMissing(
      QDir::toNativeSeparators(QDir::cleanPath(QDir(Paths::documentsFolder()).absoluteFilePath(path))));
}

QString nearestThere(const QString& folder) {
  QString path = Files().RemoveSlashFromEnd(folder);
  while (!QFileInfo::exists(path) && QFileInfo(path).absolutePath() != path) {
    path = QFileInfo(path).absolutePath();
  }
  return path;
}

QString whyNot(const QString& folder) {
  if (Files().FolderExists(folder + Files().NameOnDisk(folder, u"Rtf"_s))) {
    return shownText(u"There's already a project in that folder. Please choose another location."_s);
  }
  const QFileInfo nearest(nearestThere(folder));
  if (nearest.isDir() && nearest.isWritable()) {
    return {};
  }
  return Files().FolderExists(folder)
             ? shownText(u"Nothing can be written to that folder. Please choose another location."_s)
             : kCannotBeMade;
}

QString make(const QString& folder) {
  const QString reason = whyNot(folder);
  if (!reason.isEmpty()) {
    return reason;
  }
  Files().MkMissingDir(folder);
  return Files().FolderExists(folder) ? QString() : kCannotBeMade;
}

}  // namespace NewBookFolder
