#pragma once

#include <QString>

#include <exception>

/// What a failing statement throws: one of the numbers below and a text for the log.
class RuntimeError : public std::exception {
 public:
  enum Number {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    OutOfBounds = 9,
    TypeMismatch = 13,
    Internal = 51,
    BadFileName = 52,
    FileNotFound = 53,
    BadFileMode = 54,
    FileAlreadyOpen = 55,
    DeviceError = 57,
    DiskFull = 61,
    InputPastEnd = 62,
    PermissionDenied = 70,
    PathAccess = 75,
    PathNotFound = 76,
    NoObject = 91,
    InvalidFileFormat = 321,
    DuplicateKey = 457
  };

  /// With the number's usual description.
  explicit RuntimeError(int number);
  /// The source is the routine that raises it, where callers know it by that.
  RuntimeError(int number, QString description, QString source = {});

  int number() const { return number_; }
  const QString& description() const { return description_; }
  const QString& source() const { return source_; }
  const char* what() const noexcept override { return what_.constData(); }

  /// The usual description of a number; "Application-defined or object-defined error" for an unknown one.
  static QString descriptionOf(int number);
  /// Any failure as an error of ours: itself, 7 for want of memory, else 51 with what it says.
  static RuntimeError of(const std::exception& failure);
  /// The error that stands for a failed system call's errno, with the path in its description.
  static RuntimeError fromErrno(int code, const QString& path);

 private:
  int number_;
  QString description_;
  QString source_;
  QByteArray what_;
};
