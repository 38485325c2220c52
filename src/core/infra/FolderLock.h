#pragma once

#include <QString>

#include <memory>
#include <optional>

/// Says in a folder who works on the files in it, for as long as the object lives: a file with host, user, process and
/// time, which other copies of the program look for, on this machine and on others that share the folder. What a
/// process left behind that has died on this machine counts for nothing.
class FolderLock {
 public:
  struct Holder {
    QString host;
    QString user;
    QString process;
    /// As it is shown, in local time.
    QString since;
    /// On this machine.
    bool isHere = false;
  };
  enum class Claim { IfFree, InAnyCase };

  /// With InAnyCase the folder is ours by name too, unless the other one is alive on this machine.
  explicit FolderLock(const QString& folder, Claim claim = Claim::IfFree);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  /// Who works on it already; nobody when the lock is ours, or when the folder takes no files.
  const std::optional<Holder>& other() const { return other_; }

  static QString fileName() { return QStringLiteral(".quillane.lock"); }

 private:
  struct Handle;

  std::unique_ptr<Handle> handle_;
  std::optional<Holder> other_;
};
