#pragma once

#include <QString>

/// Reads every file of an archive back, and says what was found.
void verifyAndTell(const QString& archive);
