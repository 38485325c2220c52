#pragma once

#include "core/reports/PrintReport.h"

// The cast and the world of the story: all of them, unused ones too.

PrintDocument PrintCharList(const ReportJob& job);
PrintDocument PrintLocationList(const ReportJob& job);
PrintDocument PrintItemList(const ReportJob& job);

/// A text as it is, such as one of a window.
PrintDocument PrintPlainText(const ReportJob& job, const QString& text, const QString& title);
