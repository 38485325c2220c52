#pragma once

#include <QString>

/// The next of four pieces of advice; the first follows the last.
QString nextWritingTip();
