#pragma once

#include "core/exchange/ExportStep.h"

#include <QByteArray>

/// Titles and descriptions of the whole book as a file, between the tags that an outline is imported by.
QByteArray ExportOutline(const ExportStep& step);
