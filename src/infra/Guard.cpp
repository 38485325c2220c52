#include "infra/Guard.h"

#include "infra/RuntimeError.h"
#include "infra/cSharedLogging.h"

#include <new>

using namespace Qt::StringLiterals;

namespace {

/// "<description> (<number>)", whatever kind of exception it was.
QString describe(const std::exception_ptr& failure) {
  const auto text = [](int number, const QString& description) {
    return description + u" ("_s + QString::number(number) + u')';
  };
  try {
    std::rethrow_exception(failure);
  } catch (const RuntimeError& error) {
    return text(error.number(), error.description());
  } catch (const std::bad_alloc&) {
    return text(RuntimeError::OutOfMemory, RuntimeError::descriptionOf(RuntimeError::OutOfMemory));
  } catch (const std::exception& error) {
    return text(RuntimeError::Internal, QString::fromUtf8(error.what()));
  } catch (...) {
    return text(RuntimeError::Internal, RuntimeError::descriptionOf(RuntimeError::Internal));
  }
}

}  // namespace

void Guard::report(const std::exception_ptr& failure) const {
  Logging().AddDebug(describe(failure), QString::fromLatin1(routine_), QString::fromLatin1(module_));
}
