#pragma once

#include "core/reports/PrintReport.h"

inline constexpr int kFewestCards = 6;
inline constexpr int kMostCards = 16;

/// A card for each used scene of the job's used chapters, in two columns of half as many on a page; an odd number
/// makes cards of that height, as many as fit whole.
PrintDocument PrintSummaryCards(const ReportJob& job, int cardsPerPage);
