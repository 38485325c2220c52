#pragma once

#include "core/reports/PrintReport.h"

// The book told scene by scene: used scenes of used chapters.

/// With the scenes' descriptions.
PrintDocument PrintSynopsis(const ReportJob& job);
/// Titles and viewpoints alone.
PrintDocument PrintSummary(const ReportJob& job);
/// Words, status and viewpoint, titles and descriptions.
PrintDocument PrintExpandedSynopsis(const ReportJob& job);
