#include "core/infra/Guard.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLogging.h"

using namespace Qt::StringLiterals;

namespace {

/// "<description> (<number>)", whatever kind of exception it was.
QString describe(const std::exception_ptr& failure) {
  const auto text = [](const RuntimeError& error) {
    return error.description() + u" ("_s + QString::number(error.number()) + u')';
  };
  try {
    std::rethrow_exception(failure);
  } catch (const std::exception& error) {
    return text(RuntimeError::of(error));
  } catch (...) {
    return text(RuntimeError(RuntimeError::Internal));
  }
}

}  // namespace

void Guard::report(const std::exception_ptr& failure) const {
  Logging().AddDebug(describe(failure), QString::fromLatin1(routine_), QString::fromLatin1(module_));
}
