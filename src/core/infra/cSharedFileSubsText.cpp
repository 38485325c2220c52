#include "core/infra/CodePage.h"
#include "core/infra/FileChannels.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kModule = "cSharedFileSubs";

/// False, with a line in the log, when the file is read-only and stays so.
bool readyForWriting(const QString& path, const QString& routine) {
  if (!Files().isReadonly(path) || Files().MakeReadWrite(path)) {
    return true;
  }
  Logging().AddDebug(path + u" is read only, can't change it to read write, can't update it"_s, routine,
                     QString::fromLatin1(kModule));
  return false;
}

int openChannel(const char* routine, const QString& path, FileChannels::Mode mode) {
  int number = -1;
  Guard(routine, kModule)([&] { number = Channels().Open(Paths::native(path), mode); });
  return number;
}

}  // namespace

bool cSharedFileSubs::LoadTextFile(const QString& Path, QByteArray& Text) const {
  std::optional<QByteArray> content;
  Guard("LoadTextFile", kModule)([&] { content = readWholeFile(Paths::native(Path)); });
  const bool found = content.has_value();
  Text = found ? *std::move(content) : QByteArray();
  return found;
}

bool cSharedFileSubs::LoadTextFile(const QString& Path, QString& Text) const {
  QByteArray bytes;
  const bool found = LoadTextFile(Path, bytes);
  Text = CodePage::fromBytes(bytes);
  return found;
}

FileStamp cSharedFileSubs::ReplaceFile(const QString& Path, QByteArrayView Bytes,
                                       ReplacementFile::Durability durability) const {
  const QString path = Paths::native(Path);
  if (!readyForWriting(path, u"ReplaceFile"_s)) {
    throw RuntimeError(RuntimeError::PathAccess);
  }
  ReplacementFile file(path);
  file.write(Bytes);
  return file.commit(durability);
}

bool cSharedFileSubs::WriteTextFile(const QString& Path, QByteArrayView Text) const {
  return Guard("WriteTextFile", kModule)([&] { ReplaceFile(Path, Text); });
}

bool cSharedFileSubs::WriteTextFile(const QString& Path, QStringView Text) const {
  return WriteTextFile(Path, QByteArrayView(CodePage::toBytes(Text)));
}

bool cSharedFileSubs::AppendToTextFile(const QString& Path, QByteArrayView Text) const {
  const int number = OpenAppendFile(Path);
  if (number < 0) {
    return false;
  }
  const Guard guard("AppendToTextFile", kModule);
  const bool printed = guard([&] { Channels().PrintLine(number, Text); });
  const bool closed = guard([&] { Channels().Close(number); });
  return printed && closed;
}

bool cSharedFileSubs::AppendToTextFile(const QString& Path, QStringView Text) const {
  return AppendToTextFile(Path, QByteArrayView(CodePage::toBytes(Text)));
}

int cSharedFileSubs::CreateOutputFile(const QString& Path) const {
  if (!readyForWriting(Path, u"CreateOutputFile"_s)) {
    return -1;
  }
  return openChannel("CreateOutputFile", Path, FileChannels::Mode::Output);
}

int cSharedFileSubs::CreateReplacementFile(const QString& Path, QString& cause) const {
  if (!readyForWriting(Path, u"CreateReplacementFile"_s)) {
    cause = RuntimeError(RuntimeError::PathAccess).description();
    return -1;
  }
  int number = -1;
  cause = Guard("CreateReplacementFile", kModule).causeOf([&] {
    number = Channels().Open(Paths::native(Path), FileChannels::Mode::Replace);
  });
  return number;
}

int cSharedFileSubs::OpenAppendFile(const QString& Path) const {
  if (!readyForWriting(Path, u"OpenAppendFile"_s)) {
    return -1;
  }
  return openChannel("OpenAppendFile", Path, FileChannels::Mode::Append);
}

int cSharedFileSubs::OpenFile(const QString& Path) const {
  return FileExists(Path) ? openChannel("OpenFile", Path, FileChannels::Mode::Input) : -1;
}
