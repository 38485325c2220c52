#include "core/infra/HelperLibrary.h"

#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"

#include <QLibrary>

using namespace Qt::StringLiterals;

QFunctionPointer helperRoutine(const char* library, const char* routine) {
  const QString path = Paths::helperLibrary(QString::fromLatin1(library));
  const QFunctionPointer found = QLibrary::resolve(path, routine);
  if (found == nullptr) {
    throw RuntimeError(RuntimeError::FileNotFound,
                       toldText(RuntimeError::descriptionOf(RuntimeError::FileNotFound) + u": %1"_s, {path}));
  }
  return found;
}
