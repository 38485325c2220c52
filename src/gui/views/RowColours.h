#pragma once

#include "gui/toolkit/Colours.h"

/// The text colours of chapter and scene rows: 24-bit numbers in blue-green-red order.
namespace RowColours {

inline constexpr quint32 kGreen = 32768;
inline constexpr quint32 kGrey = 8421504;
inline constexpr quint32 kOrange = 33023;
inline constexpr quint32 kRed = 192;

using Colours::readable;

}  // namespace RowColours
