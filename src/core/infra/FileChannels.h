#pragma once

#include "core/infra/NativeFile.h"
#include "core/infra/RuntimeError.h"

#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <map>
#include <memory>
#include <optional>

/// The open files by number: the lowest free number from 1 is given to the next one. Output is buffered.
/// Once a write has failed the channel stays failed: every later Print and the Close throw the same, so that no file
/// with a hole in it counts as written. Every operation throws RuntimeError: 52 for a number that isn't open, 54 for
/// one opened the other way, 55 for a file that is open already, and the system's refusals as NativeFile tells them.
class FileChannels {
 public:
  enum class Mode { Input, Output, Append, Replace };

  FileChannels() = default;
  ~FileChannels();
  FileChannels(const FileChannels&) = delete;
  FileChannels& operator=(const FileChannels&) = delete;

  /// Output truncates the file in place, Append makes a missing one. Replace writes beside the file, which stands there
  /// whole until the new one is closed: then that takes its place.
  int Open(const QString& path, Mode mode);
  void Print(int number, QByteArrayView bytes);
  /// Text goes through the code page.
  void Print(int number, QStringView text);
  /// With CR LF behind.
  void PrintLine(int number, QByteArrayView bytes = {});
  void PrintLine(int number, QStringView text);
  /// The rest of an input file.
  QByteArray ReadAll(int number);
  /// The next line of an input file without its end (CR LF, CR or LF); 62 past the end of the file.
  QByteArray LineInput(int number);
  bool EndOfFile(int number);
  /// The number is free afterwards, also when the last bytes could not be written and this throws.
  void Close(int number);
  /// As Close, once all that was printed has reached the disk. What a replaced file is known by now.
  FileStamp CloseToDisk(int number);
  /// Throws away what was printed to a file that was to be replaced; of others it closes what there is.
  void Abandon(int number);
  /// Of all that was printed so far to a file that is to be replaced.
  quint64 hashOf(int number);
  /// Why nothing more can be printed to this file; empty when it can.
  QString failureOf(int number);

  bool isOpen(const QString& path) const;

 private:
  struct Channel {
    /// One of the two.
    std::unique_ptr<NativeFile> file;
    std::unique_ptr<ReplacementFile> replacement;
    Mode mode = Mode::Input;
    QString path;
    /// What waits to be written, or what was read ahead.
    QByteArray buffer;
    std::optional<RuntimeError> failure;
  };

  FileStamp close(int number, bool toDisk);
  Channel& channel(int number);
  Channel& reader(int number);
  Channel& writer(int number);
  static void write(Channel& to, QByteArrayView bytes);

  std::map<int, Channel> open_;
};

/// The application's one table of open files, made at first use.
FileChannels& Channels();
