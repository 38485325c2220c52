#pragma once

#include <QString>

class RuntimeError;

/// The way to the error reporter, for the rare failures that the user has to see. Both wait until it is closed.
class cSHAREDShowError {
 public:
  void ShowErr(const QString& text, const QString& helpTopic = {}) const;
  /// "Error <number> - <description> in <routine> of <module>".
  void ShowErrObj(const RuntimeError& error, const QString& routine, const QString& module,
                  const QString& helpTopic = {}) const;
};

/// The application's one instance.
cSHAREDShowError& ShowError();
