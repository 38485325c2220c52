#include "core/infra/FileChannels.h"

#include "core/infra/CodePage.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype kBufferSize = 65536;

NativeFile::Mode nativeMode(FileChannels::Mode mode) {
  return mode == FileChannels::Mode::Input    ? NativeFile::Mode::Read
         : mode == FileChannels::Mode::Output ? NativeFile::Mode::Truncate
                                              : NativeFile::Mode::Append;
}

}  // namespace

FileChannels::~FileChannels() {
  while (!open_.empty()) {
    try {
      // What was to replace a file and wasn't closed is not whole.
      open_.begin()->second.replacement ? Abandon(open_.begin()->first) : Close(open_.begin()->first);
    } catch (const RuntimeError&) {
      // At the end of the process there is nobody left to tell.
    }
  }
}

bool FileChannels::isOpen(const QString& path) const {
  if (open_.empty()) {
    return false;
  }
  const QString wanted = Paths::identity(path);
  return std::any_of(open_.begin(), open_.end(), [&](const auto& entry) { return entry.second.path == wanted; });
}

int FileChannels::Open(const QString& path, Mode mode) {
  if (mode != Mode::Input && isOpen(path)) {
    throw RuntimeError(RuntimeError::FileAlreadyOpen);
  }
  int number = 1;
  while (open_.count(number) > 0) {
    ++number;
  }
  Channel opened;
  opened.mode = mode;
  if (mode == Mode::Replace) {
    opened.replacement = std::make_unique<ReplacementFile>(path);
  } else {
    opened.file = std::make_unique<NativeFile>(path, nativeMode(mode));
  }
  // A new file has the name by which it is known again once it is there.
  opened.path = Paths::identity(path);
  open_.emplace(number, std::move(opened));
  return number;
}

FileChannels::Channel& FileChannels::channel(int number) {
  const auto found = open_.find(number);
  if (found == open_.end()) {
    throw RuntimeError(RuntimeError::BadFileName);
  }
  return found->second;
}

FileChannels::Channel& FileChannels::reader(int number) {
  Channel& found = channel(number);
  if (found.mode != Mode::Input) {
    throw RuntimeError(RuntimeError::BadFileMode);
  }
  return found;
}

FileChannels::Channel& FileChannels::writer(int number) {
  Channel& found = channel(number);
  if (found.mode == Mode::Input) {
    throw RuntimeError(RuntimeError::BadFileMode);
  }
  return found;
}

void FileChannels::write(Channel& to, QByteArrayView bytes) {
  if (to.failure) {
    throw *to.failure;
  }
  try {
    to.replacement ? to.replacement->write(bytes) : to.file->write(bytes);
  } catch (const RuntimeError& error) {
    to.failure = error;
    throw;
  }
}

void FileChannels::Print(int number, QByteArrayView bytes) {
  Channel& to = writer(number);
  if (to.failure) {
    throw *to.failure;
  }
  if (to.buffer.size() + bytes.size() < kBufferSize) {
    to.buffer.append(bytes);
    return;
  }
  write(to, std::exchange(to.buffer, {}));
  write(to, bytes);
}

void FileChannels::Print(int number, QStringView text) {
  Print(number, QByteArrayView(CodePage::toBytes(text)));
}

void FileChannels::PrintLine(int number, QByteArrayView bytes) {
  Print(number, bytes);
  Print(number, QByteArrayView("\r\n"));
}

void FileChannels::PrintLine(int number, QStringView text) {
  PrintLine(number, QByteArrayView(CodePage::toBytes(text)));
}

QByteArray FileChannels::ReadAll(int number) {
  Channel& from = reader(number);
  QByteArray rest = std::exchange(from.buffer, {});
  for (QByteArray more = from.file->read(kBufferSize); !more.isEmpty(); more = from.file->read(kBufferSize)) {
    rest.append(more);
  }
  return rest;
}

QByteArray FileChannels::LineInput(int number) {
  Channel& from = reader(number);
  if (EndOfFile(number)) {
    throw RuntimeError(RuntimeError::InputPastEnd);
  }
  qsizetype end = 0;
  const auto endsLine = [](char c) { return c == '\r' || c == '\n'; };
  for (;;) {
    end = std::find_if(from.buffer.cbegin() + end, from.buffer.cend(), endsLine) - from.buffer.cbegin();
    // A CR at the end of what was read may have its LF still to come.
    if (end + 1 < from.buffer.size()) {
      break;
    }
    const QByteArray more = from.file->read(kBufferSize);
    if (more.isEmpty()) {
      break;
    }
    from.buffer.append(more);
  }
  QByteArray line = from.buffer.first(end);
  const bool pair = from.buffer.mid(end, 2) == "\r\n";
  from.buffer.remove(0, end + (pair ? 2 : 1));
  return line;
}

bool FileChannels::EndOfFile(int number) {
  Channel& from = reader(number);
  if (from.buffer.isEmpty()) {
    from.buffer = from.file->read(kBufferSize);
  }
  return from.buffer.isEmpty();
}

void FileChannels::Abandon(int number) {
  const Channel closing = std::move(channel(number));
  open_.erase(number);
}

quint64 FileChannels::hashOf(int number) {
  Channel& to = writer(number);
  write(to, std::exchange(to.buffer, {}));
  return to.replacement ? to.replacement->hash() : 0;
}

QString FileChannels::failureOf(int number) {
  const std::optional<RuntimeError>& failure = channel(number).failure;
  return failure ? failure->description() : QString();
}

void FileChannels::Close(int number) {
  close(number, false);
}

FileStamp FileChannels::CloseToDisk(int number) {
  return close(number, true);
}

FileStamp FileChannels::close(int number, bool toDisk) {
  Channel closing = std::move(channel(number));
  open_.erase(number);
  if (closing.mode != Mode::Input) {
    write(closing, closing.buffer);
  }
  if (closing.replacement) {
    return closing.replacement->commit(toDisk ? ReplacementFile::Durability::OnDisk
                                              : ReplacementFile::Durability::Cached);
  }
  if (toDisk) {
    closing.file->flushToDisk();
  }
  closing.file->close();
  return {};
}

FileChannels& Channels() {
  static FileChannels channels;
  return channels;
}
