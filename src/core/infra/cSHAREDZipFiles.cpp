#include "core/infra/cSHAREDZipFiles.h"

#include "core/infra/NativeFile.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/ZipImage.h"
#include "core/infra/ZipLibrary.h"
#include "core/infra/ZipNames.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"

#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

ZipImage::File readFile(const QString& path, const QString& name) {
  ZipImage::File file{name, {}, {}};
  std::optional<QByteArray> content = readWholeFile(path, Links::Followed, &file.stamp);
  if (!content) {
    throw RuntimeError(RuntimeError::FileNotFound);
  }
  file.content = *std::move(content);
  return file;
}

}  // namespace

void cSHAREDZipFiles::Setup() {
  files_.clear();
  known_.clear();
}

void cSHAREDZipFiles::AddFile(const QString& File) {
  if (known_.contains(File)) {
    throw RuntimeError(kAlreadyInList, shownText(u"File is already in Zip List"_s), u"CGZip::AddFile"_s);
  }
  known_.insert(File);
  files_.append(File);
}

void cSHAREDZipFiles::RemoveFile(const QString& File) {
  if (!known_.remove(File)) {
    throw RuntimeError(kNotInList, shownText(u"File is not in Zip List"_s), u"CGZip::RemoveFile"_s);
  }
  files_.removeOne(File);
}

bool cSHAREDZipFiles::Zip(const QString& File, const QString& ZipName) {
  Setup();
  AddFile(File);
  ZipFileName = ZipName;
  return MakeZipFile() == ZIP_ER_OK;
}

int cSHAREDZipFiles::MakeZipFile() {
  message_.clear();
  failures_.clear();
  taken_.clear();
  try {
    return pack();
  } catch (const std::exception& failure) {
    const RuntimeError error = RuntimeError::of(failure);
    Logging().AddDebug(error.description() + u" ("_s + QString::number(error.number()) + u')', u"MakeZipFile"_s,
                       u"cSharedZipFiles"_s);
    throw RuntimeError(error.number(), error.description(), u"CGZipFiles::MakeZipFile"_s);
  }
}

int cSHAREDZipFiles::pack() {
  const ZipLibrary& library = ZipLibrary::get();
  if (Encrypted) {
    return fail(ZIP_ER_NOPASSWD, ZipFileName, library.describe(ZIP_ER_NOPASSWD));
  }
  std::optional<QByteArray> old;
  try {
    old = readWholeFile(Paths::native(ZipFileName));
  } catch (const RuntimeError& error) {
    return fail(ZIP_ER_READ, ZipFileName, error.description());
  }
  ZipImage image(old.value_or(QByteArray()));
  const int code = addBatches(image);
  if (!image.isChanged()) {
    return code;
  }
  try {
    Files().ReplaceFile(ZipFileName, image.bytes());
  } catch (const RuntimeError& error) {
    return fail(ZIP_ER_WRITE, ZipFileName, error.description());
  }
  return code;
}

int cSHAREDZipFiles::addBatches(ZipImage& image) {
  int code = ZIP_ER_OK;
  const QStringList files = filesToPack();
  for (qsizetype first = 0; first < files.size(); first += kBatch) {
    code = addBatch(image, files.mid(first, kBatch));
  }
  return code;
}

int cSHAREDZipFiles::addBatch(ZipImage& image, const QStringList& files) {
  int code = ZIP_ER_OK;
  QList<ZipImage::File> batch;
  for (const QString& path : files) {
    const QString name = memberName(path);
    if (taken_.contains(name)) {
      code = fail(ZIP_ER_EXISTS, path, toldText(shownText(u"another file has its name in the archive"_s)));
      continue;
    }
    taken_.insert(name);
    if (isUpToDate(image, name, path)) {
      continue;
    }
    try {
      batch.append(readFile(path, name));
      print(u"adding: "_s + name);
    } catch (const RuntimeError& error) {
      const bool isFolder = QFileInfo(path).isDir();
      code = fail(ZIP_ER_OPEN, path, isFolder ? toldText(shownText(u"it is a folder"_s)) : error.description());
    }
  }
  if (const int added = image.add(batch); added != ZIP_ER_OK) {
    code = fail(added, ZipFileName, ZipLibrary::get().describe(added));
  }
  return code;
}

bool cSHAREDZipFiles::isUpToDate(const ZipImage& image, const QString& name, const QString& path) const {
  const FileStamp there = FileStamp::lookAt(path);
  return (KeepUnchanged && image.hasUnchanged(name, there)) || (UpdatingZip && image.hasAsYoung(name, there));
}

QStringList cSHAREDZipFiles::filesToPack() const {
  QStringList found;
  for (const QString& listed : files_) {
    const QString path = Paths::native(listed);
    if (path.isEmpty()) {
      continue;
    }
    if (!RecurseFolders || !QFileInfo(path).isDir()) {
      found.append(path);
      continue;
    }
    const QDir::Filters hidden = IncludeSystemFiles ? QDir::Hidden | QDir::System : QDir::Filters();
    QDirIterator files(path, QDir::Files | hidden, QDirIterator::Subdirectories);
    QStringList below;
    while (files.hasNext()) {
      below.append(QDir::toNativeSeparators(files.next()));
    }
    below.sort();
    found += below;
  }
  return found;
}

QString cSHAREDZipFiles::memberName(const QString& file) const {
  return ZipNames::of(file, IgnorePath ? QString() : RootDirectory);
}

int cSHAREDZipFiles::fail(int code, const QString& file, const QString& cause) {
  failures_.append({file, cause});
  print(u"zip error: "_s + file + u": "_s + cause);
  return code;
}

void cSHAREDZipFiles::print(const QString& text) {
  message_ += text + u'\n';
  Subs().RegularDoEvents();
}
