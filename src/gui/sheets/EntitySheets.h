#pragma once

/// Makes the sheets of chapters, characters, locations and items known to the model.
void registerSheets();
/// What is typed on open sheets goes into the book, without a question. False when nothing is.
bool keepTypedOnSheets();
