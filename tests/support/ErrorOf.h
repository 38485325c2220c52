#pragma once

#include "core/infra/RuntimeError.h"

/// The number of the RuntimeError that a statement throws, 0 when it throws none.
template <class Statement>
int errorOf(const Statement& statement) {
  try {
    statement();
    return 0;
  } catch (const RuntimeError& error) {
    return error.number();
  }
}
