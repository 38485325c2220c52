#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

class RuntimeError;

/// What the program did, in a text file of one line an event; trapped errors wait in a queue of twenty.
/// Logging never fails outward: a log that can't be written costs nothing but the lines.
///
/// A line that comes again and again is written once and counted: "last line repeated N times" stands before the next
/// other one. At 10 MB the log says so and takes nothing more: what went wrong first is what tells most.
class cSharedLogging {
 public:
  cSharedLogging() = default;
  /// Writes what is queued.
  ~cSharedLogging();
  cSharedLogging(const cSharedLogging&) = delete;
  cSharedLogging& operator=(const cSharedLogging&) = delete;

  /// When true every operation does nothing.
  bool NOLOGGING = false;

  /// Empty until first needed.
  QString CurrentLogFilename() const { return fileName_; }
  /// The log goes to this path, or to its file name in the program's folder when the folder doesn't exist.
  void OverrideLogFilename(const QString& path);

  /// Puts the log of the last run aside, beside the new one: "log_last.txt" for "log.txt". False when that run left one
  /// and did not come to its end.
  bool KeepLastLog();
  /// The last line of a run that comes to its end.
  void LogEnd();
  /// Writes one line at once; a new file begins with a header, unless the old one can't be erased.
  void LogEvent(const QString& text, bool newFile = false);
  void LogToFile(const QString& file, const QString& text, bool newFile = false);
  void LogError(const RuntimeError& error, const QString& routine, const QString& comment);
  /// Queues "<message> in <routine> of module <module>", with "DBG: " in front.
  void AddDebug(const QString& message, const QString& routine = {}, const QString& module = {});
  /// The same without the prefix.
  void AddAction(const QString& message, const QString& routine = {}, const QString& module = {});
  /// Flushes the queue, each message with the time of its adding, and tells how often the last line came again; it
  /// stays when the file can't be opened.
  void WriteActionsToLog();
  /// The newest queued message, or empty.
  QString CurrentAction() const;

 private:
  struct Action {
    QString text;
    QDateTime time;
  };

  /// What stands at the end of a file, and what was left out behind it.
  struct Written {
    QString file;
    std::optional<QString> lastText;
    qint64 repeats = 0;
    QDateTime lastTime;
    bool full = false;
  };
  class OpenLog;

  const QString& neededFileName();
  void enqueue(const QString& text);
  /// Opens the file and has it written. False when any of it may not have reached it.
  template <class Write>
  bool append(const QString& file, bool newFile, const Write& write);
  void flush(bool withRepeats);

  QString fileName_;
  QList<Action> queue_;
  Written written_;
  /// Set while the log is written: what fails meanwhile has nowhere to be told.
  bool busy_ = false;
};

/// The application's one log, made at first use.
cSharedLogging& Logging();
