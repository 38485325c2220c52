#pragma once

#include "core/exchange/ExportStep.h"

#include <QString>

/// Titles and descriptions of the whole book between the tags that an outline is imported by.
QString ExportOutline(const ExportStep& step);
