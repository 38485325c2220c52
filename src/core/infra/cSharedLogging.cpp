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

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kQueueLimit = 20;
/// What a log that can't be written may hold back, so that it doesn't grow for ever.
constexpr qsizetype kMostHeldBack = 1000;

QString decorated(const QString& message, const QString& routine, const QString& module) {
  return message + (routine.isEmpty() ? QString() : u" in "_s + routine) +
         (module.isEmpty() ? QString() : u" of module "_s + module);
}

/// An event is one line.
QString onOneLine(QString text) {
  return text.replace(u"\r\n"_s, u" "_s).replace(u'\r', u' ').replace(u'\n', u' ');
}

/// Closes the channel on every way out.
class OpenLog {
 public:
  explicit OpenLog(int number) : number_(number) {}
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

  void writeLine(const QString& text, const QDateTime& time) const {
    Channels().PrintLine(number_,
                         QByteArray::number(number_) + ' ' +
                             CodePage::toMarkedBytes(time.toString(u"HH:mm:ss"_s) + u", "_s + onOneLine(text)));
  }

  void writeHeader() const {
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
  int number_;
};

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

}  // namespace

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

void cSharedLogging::LogToFile(const QString& file, const QString& text, bool newFile) {
  if (NOLOGGING || busy_) {
    return;
  }
  const Busy busy(busy_);
  try {
    const bool fresh = newFile && Files().EraseFile(file) && !Files().FileExists(file);
    const int number = fresh ? Files().CreateOutputFile(file) : Files().OpenAppendFile(file);
    if (number < 0) {
      return;
    }
    const OpenLog log(number);
    if (fresh) {
      log.writeHeader();
    }
    log.writeLine(text, Clock::now());
  } catch (const std::exception&) {
    // Logging never fails outward.
  }
}

void cSharedLogging::LogError(const RuntimeError& error, const QString& routine, const QString& comment) {
  LogEvent(u"Error "_s + QString::number(error.number()) + u" ("_s + error.description() + u") in "_s + routine +
           u" of "_s + comment);
  WriteActionsToLog();
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
    WriteActionsToLog();
  }
  if (queue_.size() > kMostHeldBack) {
    queue_.removeFirst();
  }
}

void cSharedLogging::WriteActionsToLog() {
  if (NOLOGGING || busy_ || queue_.isEmpty()) {
    return;
  }
  const Busy busy(busy_);
  try {
    const int number = Files().OpenAppendFile(neededFileName());
    if (number < 0) {
      return;
    }
    OpenLog log(number);
    for (const Action& action : queue_) {
      log.writeLine(action.text, action.time);
    }
    log.close();
    queue_.clear();
  } catch (const std::exception&) {
    // The lines wait for the next attempt.
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
