#pragma once

#include "core/exchange/BookWalk.h"

#include <QByteArray>

/// The manuscript as a file of plain text, which a word processor is to finish: it begins with how, and has marks for
/// what plain text can't say.
QByteArray CombineFiles(const ManuscriptOptions& options, const ExportStep& step);
