#pragma once

#include <QtGlobal>

/// A colour as the model has it, in blue-green-red order; the parts from 0 to 255.
constexpr quint32 rgb(quint32 red, quint32 green, quint32 blue) {
  return red | green << 8U | blue << 16U;
}
