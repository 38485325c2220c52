#include "core/infra/cSharedLogging.h"

#include "core/infra/Clock.h"
#include "core/infra/CodePage.h"
#include "core/infra/FileChannels.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedFileSubs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kQueueLimit = 20;
/// What a log that can't be written may hold back, so that it doesn't grow for ever.
constexpr qsizetype kMostHeldBack = 1000;
constexpr qint64 kMostBytes = 10 * 1024 * 1024;

const QString kFull = u"The log has reached 10 MB. Nothing more of this run is written"_s;
const QString kEnd = u"Program ended"_s;

QString decorated(const QString& message, const QString& routine, const QString& module) {
  return message + (routine.isEmpty() ? QString() : u" in "_s + routine) +
         (module.isEmpty() ? QString() : u" of module "_s + module);
}

/// An event is one line.
QString onOneLine(QString text) {
  return text.replace(u"\r\n"_s, u" "_s).replace(u'\r', u' ').replace(u'\n', u' ');
}

/// While the log itself is written, what fails there is not logged.
class Busy {
 public:
  explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }
  ~Busy() { flag_ = false; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  bool& flag_;
};

/// Beside the log, under a name of its own.
QString lastLogOf(const QString& path) {
  const QFileInfo log(path);
  const QString suffix = log.suffix();
  return log.path() + u'/' + log.completeBaseName() + u"_last"_s + (suffix.isEmpty() ? QString() : u'.' + suffix);
}

/// Whether a line of the log says no more and no less than that the program ended.
bool holdsEnd(const QByteArray& log) {
  const QByteArray end = ", " + kEnd.toLatin1();
  const QList<QByteArray> lines = log.split('\n');
  return std::any_of(lines.begin(), lines.end(), [&end](const QByteArray& line) {
    return line.sliced(qMax(line.indexOf(", "), 0)).trimmed() == end.trimmed();
  });
}

}  // namespace

/// Closes the channel on every way out.
class cSharedLogging::OpenLog {
 public:
  OpenLog(int number, qint64 size, Written& written) : number_(number), size_(size), written_(written) {}
  ~OpenLog() {
    try {
      close();
    } catch (const RuntimeError&) {
      // A log that can't be written costs nothing but the lines.
    }
  }
  OpenLog(const OpenLog&) = delete;
  OpenLog& operator=(const OpenLog&) = delete;

  /// Throws when what was written has not reached the file.
  void close() {
    if (number_ > 0) {
      Channels().Close(std::exchange(number_, 0));
    }
  }

  /// A line that stands at the end of the file already is counted.
  void writeLine(const QString& text, const QDateTime& time) {
    const QString line = onOneLine(text);
    if (written_.lastText == line) {
      ++written_.repeats;
      written_.lastTime = time;
      return;
    }
    writeRepeats();
    writeWithinLimit(line, time);
    written_.lastText = line;
  }

  void writeRepeats() {
    const qint64 times = std::exchange(written_.repeats, 0);
    if (times > 0) {
      writeWithinLimit(u"last line repeated "_s + QString::number(times) + (times == 1 ? u" time"_s : u" times"_s),
                       written_.lastTime);
    }
  }

  /// However full the log is.
  void writeEnd() {
    writeRepeats();
    print(bytesOf(kEnd, Clock::now()));
  }

  void writeHeader() {
    const QStringList lines{u"Log file created "_s,
                            u"Operating System: "_s + Subs().GetWinPlatform(),
                            u"App: "_s + QFileInfo(QCoreApplication::applicationFilePath()).fileName(),
                            u"Version: "_s + Subs().AppVersion(),
                            u"Curdir: "_s + QDir::toNativeSeparators(QDir::currentPath()),
                            u"App path: "_s + Files().RemoveSlashFromEnd(Paths::executableFolder())};
    for (const QString& line : lines) {
      writeLine(line, Clock::now());
    }
  }

 private:
  QByteArray bytesOf(const QString& line, const QDateTime& time) const {
    return QByteArray::number(number_) + ' ' + CodePage::toMarkedBytes(time.toString(u"HH:mm:ss"_s) + u", "_s + line);
  }

  void print(const QByteArray& bytes) {
    Channels().PrintLine(number_, bytes);
    size_ += bytes.size() + 2;
  }

  void writeWithinLimit(const QString& line, const QDateTime& time) {
    if (written_.full) {
      return;
    }
    const QByteArray bytes = bytesOf(line, time);
    written_.full = size_ + bytes.size() > kMostBytes;
    print(written_.full ? bytesOf(kFull, time) : bytes);
  }

  int number_;
  qint64 size_;
  Written& written_;
};

cSharedLogging::~cSharedLogging() {
  WriteActionsToLog();
}

void cSharedLogging::OverrideLogFilename(const QString& path) {
  if (NOLOGGING) {
    return;
  }
  const bool folderThere = Files().FolderExists(Files().PathOnly(path));
  fileName_ = folderThere ? Paths::native(path) : Paths::programFolder() + Files().FileOnly(path);
}

const QString& cSharedLogging::neededFileName() {
  if (fileName_.isEmpty()) {
    fileName_ = Paths::programFolder() + u"log.txt"_s;
  }
  return fileName_;
}

void cSharedLogging::LogEvent(const QString& text, bool newFile) {
  if (!NOLOGGING) {
    LogToFile(neededFileName(), text, newFile);
  }
}

template <class Write>
bool cSharedLogging::append(const QString& file, bool newFile, const Write& write) {
  const Busy busy(busy_);
  Written before = written_;
  try {
    const bool fresh = newFile && Files().EraseFile(file) && !Files().FileExists(file);
    const qint64 size = fresh ? 0 : Files().FileSize(file);
    const int number = fresh ? Files().CreateOutputFile(file) : Files().OpenAppendFile(file);
    if (number < 0) {
      return false;
    }
    if (fresh || written_.file != file) {
      written_ = {};
      written_.file = file;
    }
    OpenLog log(number, size, written_);
    if (fresh) {
      log.writeHeader();
    }
    write(log);
    log.close();
    return true;
  } catch (const std::exception&) {
    // Logging never fails outward.
    written_ = std::move(before);
    return false;
  }
}

void cSharedLogging::LogToFile(const QString& file, const QString& text, bool newFile) {
  if (!NOLOGGING && !busy_) {
    append(file, newFile, [&](OpenLog& log) { log.writeLine(text, Clock::now()); });
  }
}

bool cSharedLogging::KeepLastLog() {
  if (NOLOGGING || busy_) {
    return true;
  }
  const Busy busy(busy_);
  const QString& path = neededFileName();
  QByteArray log;
  if (!Files().LoadTextFile(path, log)) {
    return true;
  }
  const QString last = lastLogOf(path);
  Files().EraseFile(last);
  Files().MoveFile(path, last);
  return holdsEnd(log);
}

void cSharedLogging::LogEnd() {
  if (NOLOGGING || busy_) {
    return;
  }
  flush(false);
  append(neededFileName(), false, [](OpenLog& log) { log.writeEnd(); });
}

void cSharedLogging::LogError(const RuntimeError& error, const QString& routine, const QString& comment) {
  LogEvent(u"Error "_s + QString::number(error.number()) + u" ("_s + error.description() + u") in "_s + routine +
           u" of "_s + comment);
  flush(false);
}

void cSharedLogging::AddDebug(const QString& message, const QString& routine, const QString& module) {
  enqueue(u"DBG: "_s + decorated(message, routine, module));
}

void cSharedLogging::AddAction(const QString& message, const QString& routine, const QString& module) {
  enqueue(decorated(message, routine, module));
}

void cSharedLogging::enqueue(const QString& text) {
  if (NOLOGGING || busy_) {
    return;
  }
  queue_.append({text, Clock::now()});
  if (queue_.size() > kQueueLimit) {
    flush(false);
  }
  if (queue_.size() > kMostHeldBack) {
    queue_.removeFirst();
  }
}

void cSharedLogging::WriteActionsToLog() {
  flush(true);
}

void cSharedLogging::flush(bool withRepeats) {
  if (NOLOGGING || busy_ || (queue_.isEmpty() && (!withRepeats || written_.repeats == 0))) {
    return;
  }
  const bool reached = append(neededFileName(), false, [&](OpenLog& log) {
    for (const Action& action : queue_) {
      log.writeLine(action.text, action.time);
    }
    if (withRepeats) {
      log.writeRepeats();
    }
  });
  // The lines wait for the next attempt otherwise.
  if (reached) {
    queue_.clear();
  }
}

QString cSharedLogging::CurrentAction() const {
  return queue_.isEmpty() ? QString() : queue_.constLast().text;
}

namespace {

/// The log is written to the very end of the process: what it needs is made before it, and so outlives it.
bool makeWhatTheLogNeeds() {
  Paths::programFolder();
  Clock::now();
  Channels();
  Files();
  Subs();
  return true;
}

}  // namespace

cSharedLogging& Logging() {
  static const bool ready = makeWhatTheLogNeeds();
  Q_UNUSED(ready)
  static cSharedLogging logging;
  return logging;
}
