#pragma once

/// From now on the progress of the book is logged behind each save, and the writer is asked about a publishing script
/// that nobody was asked about yet: when the program is at rest, never in the middle of a save or another question.
void logProgressBehindSaves();
