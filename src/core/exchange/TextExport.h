#pragma once

#include "core/exchange/BookWalk.h"

/// The manuscript as plain text, which a word processor is to finish: it begins with how, and has marks for what plain
/// text can't say.
QString CombineFiles(const ManuscriptOptions& options, const ExportStep& step);
