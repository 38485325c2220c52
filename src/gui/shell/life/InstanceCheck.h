#pragma once

#include <QString>

#include <memory>

class QFile;
class QLockFile;

/// Tells whether this user runs the program already. Each copy holds a share of the lock, which goes with the object,
/// and with a process that crashed: whoever comes while any copy runs is told so.
class InstanceCheck {
 public:
  InstanceCheck();
  ~InstanceCheck();

  /// Takes a share. False when another copy holds one too. A place where no lock can be made counts as free.
  bool acquire();
  /// What acquire said.
  bool isAlone() const { return alone_; }
  /// The lock file's full path, one for each user.
  static QString lockPath();

 private:
  bool take();

  bool alone_ = true;
  /// One of the two, as the platform has it.
  std::unique_ptr<QFile> file_;
  std::unique_ptr<QLockFile> lock_;
};

/// The question to whom a copy runs already, before any window is built. False when the process is to end at once.
bool Form_Initialize(InstanceCheck& instance);
