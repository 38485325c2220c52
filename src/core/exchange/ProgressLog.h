#pragma once

#include <QString>

/// What is kept of a book's progress in the folder Logs beside it: a file of word counts for each day, and a page for
/// others to read, made of a template that the writer may change. Called behind each save of the book. It writes
/// nothing for a book without a place, and follows no link out of its folder; what fails is logged and no more.
void WriteProgressLog();

/// The script in that folder that puts the page where others can read it. It runs behind each save, once the writer has
/// said so: it may have come with somebody else's book. One that does nothing never runs.
namespace PublishingScript {

/// "copyto.bat", or what stands for it on this system.
QString name();
/// Nobody was asked yet whether this script may run in this folder.
bool isUnasked();
/// Asks, keeps the answer, and runs it after a Yes.
void ask();
/// Runs it where that was allowed.
void run();

}  // namespace PublishingScript
