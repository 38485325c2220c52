#pragma once

#include "core/exchange/ExportStep.h"

#include <QString>

/// The descriptions of all scenes, chapter by chapter, of the chapters from the first to the last place, which count
/// from 1.
QString ExportDescriptionsByChapter(qint32 first, qint32 last, const ExportStep& step);
