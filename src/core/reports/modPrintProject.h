#pragma once

#include "core/reports/PrintReport.h"

#include <QList>

// The story itself on paper: as a manuscript, or scene by scene with what was planned of it.

/// The chapters of the job that are used, each from a fresh page.
PrintDocument PrintProject(const ReportJob& job);
/// These chapters, used or not.
PrintDocument PrintChapters(const ReportJob& job, const QList<qint32>& chapterIDs);
/// These scenes, each from a fresh page.
PrintDocument PrintScenes(const ReportJob& job, const QList<qint32>& sceneIDs);
