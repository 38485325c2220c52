#pragma once

#include "core/exchange/ExportStep.h"

#include <QString>

/// The texts of the book with n in the place of every plain letter: nobody can read them, and they have the same words.
QString ExportToNano(bool withUnused, const ExportStep& step);
