#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

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

  void LogEvent(const QString& text, bool newFile = false);
  void LogToFile(const QString& file, const QString& text, bool newFile = false);
  void LogError(const RuntimeError& error, const QString& routine, const QString& comment);
  void AddDebug(const QString& message, const QString& routine = {}, const QString& module = {});
  void AddAction(const QString& message, const QString& routine = {}, const QString& module = {});
  void WriteActionsToLog();
  /// The newest queued message, or empty.
  QString CurrentAction() const;

 private:
  struct Action {
    QString text;
    QDateTime time;
  };

  QString fileName_;
  QList<Action> queue_;
};

/// The application's one log, made at first use.
cSharedLogging& Logging();
