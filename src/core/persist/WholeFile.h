#pragma once

#include <QByteArrayView>

/// Whether a project file holds all that it should: its closing root line, no block or element that is cut short, no
/// zeros. What was cut off, or never reached the disk, may still read as a smaller book.
bool isWholeProjectFile(QByteArrayView text);
