#include "core/infra/RuntimeError.h"

#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"

#include <array>
#include <cerrno>
#include <new>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Described {
  int number;
  const char16_t* text;
};

constexpr std::array kDescriptions{
    Described{RuntimeError::InvalidCall, shownText(u"Invalid procedure call or argument")},
    Described{RuntimeError::Overflow, shownText(u"Overflow")},
    Described{RuntimeError::OutOfMemory, shownText(u"Out of memory")},
    Described{RuntimeError::OutOfBounds, shownText(u"Subscript out of range")},
    Described{RuntimeError::TypeMismatch, shownText(u"Type mismatch")},
    Described{RuntimeError::Internal, shownText(u"Internal error")},
    Described{RuntimeError::BadFileName, shownText(u"Bad file name or number")},
    Described{RuntimeError::FileNotFound, shownText(u"File not found")},
    Described{RuntimeError::BadFileMode, shownText(u"Bad file mode")},
    Described{RuntimeError::FileAlreadyOpen, shownText(u"File already open")},
    Described{RuntimeError::DeviceError, shownText(u"Device I/O error")},
    Described{RuntimeError::DiskFull, shownText(u"Disk full")},
    Described{RuntimeError::InputPastEnd, shownText(u"Input past end of file")},
    Described{RuntimeError::PermissionDenied, shownText(u"Permission denied")},
    Described{RuntimeError::PathAccess, shownText(u"Path/File access error")},
    Described{RuntimeError::PathNotFound, shownText(u"Path not found")},
    Described{RuntimeError::NoObject, shownText(u"Object variable or With block variable not set")},
    Described{RuntimeError::InvalidFileFormat, shownText(u"Invalid file format")},
    Described{RuntimeError::DuplicateKey,
              shownText(u"This key is already associated with an element of this collection")},
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

RuntimeError::RuntimeError(int number) : RuntimeError(number, toldText(descriptionOf(number))) {}

RuntimeError::RuntimeError(int number, QString description, QString source)
    : number_(number), description_(std::move(description)), source_(std::move(source)), what_(description_.toUtf8()) {}

QString RuntimeError::descriptionOf(int number) {
  for (const Described& entry : kDescriptions) {
    if (entry.number == number) {
      return QString::fromUtf16(entry.text);
    }
  }
  return shownText(u"Application-defined or object-defined error"_s);
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
  return {number, toldText(descriptionOf(number) + u": %1"_s, {path})};
}
