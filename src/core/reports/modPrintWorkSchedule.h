#pragma once

#include "core/reports/PrintReport.h"

/// What is to be promoted to which status, in which order and by which day: for all statuses that scenes can climb to
/// (item 0), or only for the scenes that stand at status `item` now. Each status gets its days from the deadlines.
PrintDocument PrintWorkSchedule(const ReportJob& job, int item);
