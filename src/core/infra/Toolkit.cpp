#include "core/infra/Toolkit.h"

#include "core/infra/SilentToolkit.h"

namespace {

Toolkit*& installed() {
  static Toolkit* current = nullptr;
  return current;
}

}  // namespace

Toolkit& toolkit() {
  static SilentToolkit silent;
  return installed() == nullptr ? silent : *installed();
}

void installToolkit(Toolkit* toolkit) {
  installed() = toolkit;
}
