#include "core/infra/Guard.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLogging.h"

using namespace Qt::StringLiterals;

namespace {

/// Whatever kind of exception it was.
RuntimeError errorOf(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const std::exception& error) {
    return RuntimeError::of(error);
  } catch (...) {
    return RuntimeError(RuntimeError::Internal);
  }
}

}  // namespace

QString Guard::descriptionOf(const std::exception_ptr& failure) {
  return errorOf(failure).description();
}

void Guard::report(const std::exception_ptr& failure) const {
  const RuntimeError error = errorOf(failure);
  Logging().AddDebug(error.description() + u" ("_s + QString::number(error.number()) + u')',
                     QString::fromLatin1(routine_), QString::fromLatin1(module_));
}
