#pragma once

#include "core/spell/TextMarks.h"

#include <QStringView>

/// The place of the word at the caret, as a right click on a misspelling selects it: from behind the nearest blank or
/// line feed before the caret to the next blank or full stop, or to a carriage return that comes first; without one
/// double quote, "'", "?" and "!" at its end, looked for in this order. Its length is 0 where there is no word.
TextMark wordAtCaret(QStringView text, qsizetype caret);
