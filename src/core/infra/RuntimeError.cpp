#include "core/infra/RuntimeError.h"

#include <array>
#include <cerrno>
#include <new>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Described {
  int number;
  const char* text;
};

constexpr std::array kDescriptions{
    Described{RuntimeError::InvalidCall, "Invalid procedure call or argument"},
    Described{RuntimeError::Overflow, "Overflow"},
    Described{RuntimeError::OutOfMemory, "Out of memory"},
    Described{RuntimeError::OutOfBounds, "Subscript out of range"},
    Described{RuntimeError::TypeMismatch, "Type mismatch"},
    Described{RuntimeError::Internal, "Internal error"},
    Described{RuntimeError::BadFileName, "Bad file name or number"},
    Described{RuntimeError::FileNotFound, "File not found"},
    Described{RuntimeError::BadFileMode, "Bad file mode"},
    Described{RuntimeError::FileAlreadyOpen, "File already open"},
    Described{RuntimeError::DeviceError, "Device I/O error"},
    Described{RuntimeError::DiskFull, "Disk full"},
    Described{RuntimeError::InputPastEnd, "Input past end of file"},
    Described{RuntimeError::PermissionDenied, "Permission denied"},
    Described{RuntimeError::PathAccess, "Path/File access error"},
    Described{RuntimeError::PathNotFound, "Path not found"},
    Described{RuntimeError::NoObject, "Object variable or With block variable not set"},
    Described{RuntimeError::InvalidFileFormat, "Invalid file format"},
    Described{RuntimeError::DuplicateKey, "This key is already associated with an element of this collection"},
};

int numberOfErrno(int code) {
  switch (code) {
    case ENOENT:
      return RuntimeError::FileNotFound;
    case ENOTDIR:
      return RuntimeError::PathNotFound;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return RuntimeError::DiskFull;
    case ENAMETOOLONG:
    case EINVAL:
      return RuntimeError::BadFileName;
    case EIO:
      return RuntimeError::DeviceError;
    case EBUSY:
    case ETXTBSY:
      return RuntimeError::PermissionDenied;
    default:
      return RuntimeError::PathAccess;
  }
}

}  // namespace

RuntimeError::RuntimeError(int number) : RuntimeError(number, descriptionOf(number)) {}

RuntimeError::RuntimeError(int number, QString description, QString source)
    : number_(number), description_(std::move(description)), source_(std::move(source)), what_(description_.toUtf8()) {}

QString RuntimeError::descriptionOf(int number) {
  for (const Described& entry : kDescriptions) {
    if (entry.number == number) {
      return QString::fromLatin1(entry.text);
    }
  }
  return u"Application-defined or object-defined error"_s;
}

RuntimeError RuntimeError::of(const std::exception& failure) {
  if (const auto* own = dynamic_cast<const RuntimeError*>(&failure)) {
    return *own;
  }
  const bool lacksMemory = dynamic_cast<const std::bad_alloc*>(&failure) != nullptr;
  return lacksMemory ? RuntimeError(OutOfMemory) : RuntimeError(Internal, QString::fromUtf8(failure.what()));
}

RuntimeError RuntimeError::fromErrno(int code, const QString& path) {
  const int number = numberOfErrno(code);
  return {number, descriptionOf(number) + u": "_s + path};
}
