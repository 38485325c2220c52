#pragma once

#include "core/exchange/BookWalk.h"

#include <QByteArray>

/// The manuscript as one RTF text: the scenes with their formats, between titles and marks in the font that most of the
/// first one has.
QByteArray ExportToRTF(const ManuscriptOptions& options, const ExportStep& step);
