#pragma once

#include <QByteArray>

/// Hands a text to the reader that the system has for files of its kind. What is in the way is told.
void viewInReader(const QByteArray& rtf);
