#pragma once

#include "core/exchange/ExportStep.h"

#include <QByteArray>

/// A file with the descriptions of all scenes, chapter by chapter, of the chapters from the first to the last place,
/// which count from 1.
QByteArray ExportDescriptionsByChapter(qint32 first, qint32 last, const ExportStep& step);
