#pragma once

/// That a book has changed since its file was last written by a command for that. A command that writes what it has
/// changed leaves the mark, as a hint that something has been done, and says that it is on the disk.
class ChangeMark {
 public:
  ChangeMark& operator=(bool changed) {
    changed_ = changed;
    written_ = false;
    return *this;
  }
  operator bool() const { return changed_; }
  void setWritten() { written_ = true; }
  /// Something has changed that the file doesn't hold.
  bool isUnsaved() const { return changed_ && !written_; }

 private:
  bool changed_ = false;
  bool written_ = false;
};
