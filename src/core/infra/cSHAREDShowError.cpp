#include "core/infra/cSHAREDShowError.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/Toolkit.h"

using namespace Qt::StringLiterals;

void cSHAREDShowError::ShowErr(const QString& text, const QString& helpTopic) const {
  toolkit().ShowErrorReport(text, helpTopic);
}

void cSHAREDShowError::ShowErrObj(const RuntimeError& error, const QString& routine, const QString& module,
                                  const QString& helpTopic) const {
  ShowErr(u"Error "_s + QString::number(error.number()) + u" - "_s + error.description() + u" in "_s + routine +
              u" of "_s + module,
          helpTopic);
}

cSHAREDShowError& ShowError() {
  static cSHAREDShowError showError;
  return showError;
}
