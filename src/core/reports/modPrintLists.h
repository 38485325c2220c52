#pragma once

#include "core/reports/PrintReport.h"

// The cast and the world of the story: all of them, unused ones too.

PrintDocument PrintCharList(const ReportJob& job);
PrintDocument PrintLocationList(const ReportJob& job);
PrintDocument PrintItemList(const ReportJob& job);
