#pragma once

#include <QString>

/// The script in a book's folder Logs that puts the page where others can read it. It runs behind each save, once the
/// writer has said so: it may have come with somebody else's book. One that does nothing never runs.
namespace PublishingScript {

/// "copyto.bat", or what stands for it on this system.
QString name();
/// For a page that was written just now: runs it where that was allowed. True where nobody was asked yet whether this
/// script may run in this folder.
bool run();
/// Asks, keeps the answer, and runs it after a Yes.
void ask();

}  // namespace PublishingScript
