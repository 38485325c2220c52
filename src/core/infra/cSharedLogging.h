#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

class RuntimeError;

/// What the program did, in a text file of one line an event; trapped errors wait in a queue of twenty.
/// Logging never fails outward: a log that can't be written costs nothing but the lines.
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

  /// Writes one line at once; a new file begins with a header, unless the old one can't be erased.
  void LogEvent(const QString& text, bool newFile = false);
  void LogToFile(const QString& file, const QString& text, bool newFile = false);
  void LogError(const RuntimeError& error, const QString& routine, const QString& comment);
  /// Queues "<message> in <routine> of module <module>", with "DBG: " in front.
  void AddDebug(const QString& message, const QString& routine = {}, const QString& module = {});
  /// The same without the prefix.
  void AddAction(const QString& message, const QString& routine = {}, const QString& module = {});
  /// Flushes the queue, each message with the time of its adding; it stays when the file can't be opened.
  void WriteActionsToLog();
  /// The newest queued message, or empty.
  QString CurrentAction() const;

 private:
  struct Action {
    QString text;
    QDateTime time;
  };

  const QString& neededFileName();
  void enqueue(const QString& text);

  QString fileName_;
  QList<Action> queue_;
  /// Set while the log is written: what fails meanwhile has nowhere to be told.
  bool busy_ = false;
};

/// The application's one log, made at first use.
cSharedLogging& Logging();
