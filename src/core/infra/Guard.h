#pragma once

#include <QString>

#include <exception>
#include <utility>

/// The one facility that catches a failing statement: it logs the failure under the routine's own name and
/// the caller goes on with the next statement.
///
///     Guard guard("BackupProject", "clsProject");
///     guard([&] { zip.AddFile(FileWithPath); });
class Guard {
 public:
  /// Names of routine and module as they stand in the log; plain literals that outlive the guard.
  Guard(const char* routine, const char* module) : routine_(routine), module_(module) {}

  /// Runs one statement. False when it failed; the failure has been logged by then.
  template <class Statement>
  bool operator()(Statement&& statement) const {
    try {
      std::forward<Statement>(statement)();
      return true;
    } catch (...) {
      report(std::current_exception());
      return false;
    }
  }
  /// The same. Empty when it went well, else why it failed, as it may be told to the user.
  template <class Statement>
  QString causeOf(Statement&& statement) const {
    try {
      std::forward<Statement>(statement)();
      return {};
    } catch (...) {
      report(std::current_exception());
      return descriptionOf(std::current_exception());
    }
  }

 private:
  static QString descriptionOf(const std::exception_ptr& failure);
  void report(const std::exception_ptr& failure) const;

  const char* routine_;
  const char* module_;
};
