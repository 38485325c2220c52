#pragma once

#include "core/exchange/ExportStep.h"

#include <QByteArray>

/// A file with the texts of the book and n in the place of every plain letter: nobody can read them, and they have the
/// same words.
QByteArray ExportToNano(bool withUnused, const ExportStep& step);
