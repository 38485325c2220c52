#pragma once

#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"

/// For a name that no dialog has asked about: true when no file has it, or that one may go.
inline bool mayReplace(const QString& path) {
  const QString question = translated(QStringLiteral("%1 is there already. Do you want to replace it?")).arg(path);
  return !Files().FileExists(path) || toolkit().MsgBox(question, Buttons::NoUnlessYes) == Answer::Yes;
}
