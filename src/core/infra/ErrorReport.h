#pragma once

#include <QString>

/// The texts of the error reporter as functions of what it knows.
struct ErrorReport {
  /// What failed, and what the user says about it; a comment counts only when the user has typed.
  QString error;
  QString comment;
  bool commented = false;
  QString log;
  QString logPath;
  int year = 0;
  QString version;
  QString platform;

  /// Fills in year, version and platform as they are now, and the log that is in use; "No log file" without one.
  static ErrorReport about(const QString& error);

  /// A "mailto:" link whose body is escaped and cut to 400 characters.
  QString mailLink() const;
  /// The same report whole, as plain text with directions in front, for mailing by hand.
  QString plainText() const;
  /// "bugs<year>@<domain>".
  QString mailbox() const;

 private:
  QString whatFailed() const;
  QString title() const;
};
