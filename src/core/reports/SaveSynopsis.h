#pragma once

#include "core/reports/PrintReport.h"

/// Writes the descriptions of the range's used scenes to a text file in the project's folder, over the one that is
/// there. Its path; throws RuntimeError when it can't be written.
QString SaveSynopsis(const ChapterRange& chapters);
