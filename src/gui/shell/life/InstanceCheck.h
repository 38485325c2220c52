#pragma once

#include <QString>

#include <memory>

class QFile;
class QLockFile;

/// Tells whether this user runs the program already. The lock goes with the object, and with a process that
/// crashed.
class InstanceCheck {
 public:
  InstanceCheck();
  ~InstanceCheck();

  /// False when another instance holds the lock. A place where no lock can be made counts as free.
  bool acquire();
  /// The lock file's full path, one for each user.
  static QString lockPath();

 private:
  /// One of the two, as the platform has it.
  std::unique_ptr<QFile> file_;
  std::unique_ptr<QLockFile> lock_;
};
