#pragma once

#include <QIcon>

/// An icon of the program's set for the rows of a list. In a selected row it takes the colour of the selected text:
/// its own would sink into the highlight.
QIcon rowIcon(const char* key);
