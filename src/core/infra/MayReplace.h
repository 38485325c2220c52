#pragma once

#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"

/// For a name that no dialog has asked about: true when no file has it, or that one may go.
inline bool mayReplace(const QString& path) {
  const QString question = path + QStringLiteral(" already exists. Do you want to replace it?");
  return !Files().FileExists(path) || toolkit().MsgBox(question, Buttons::NoUnlessYes) == Answer::Yes;
}
