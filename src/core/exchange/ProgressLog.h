#pragma once

/// What is kept of a book's progress in the folder Logs beside it: a file of word counts for each day, and a page for
/// others to read, made of a template that the writer may change. Called behind each save of the book. It writes
/// nothing for a book without a place, and follows no link; what fails is logged and no more. True when the page was
/// written, and the writer is to be asked about its PublishingScript.
bool WriteProgressLog();
