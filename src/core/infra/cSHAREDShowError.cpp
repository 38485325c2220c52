#include "core/infra/cSHAREDShowError.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/Toolkit.h"

using namespace Qt::StringLiterals;

void cSHAREDShowError::ShowErr(const QString& text, const QString& helpTopic) const {
  toolkit().ShowErrorReport(text, helpTopic);
}

void cSHAREDShowError::ShowErrObj(const RuntimeError& error, const QString& routine, const QString& module,
                                  const QString& helpTopic) const {
  ShowErr(
      toldText(u"Error %1 - %2 in %3 of %4"_s, {QString::number(error.number()), error.description(), routine, module}),
      helpTopic);
}

cSHAREDShowError& ShowError() {
  static cSHAREDShowError showError;
  return showError;
}
