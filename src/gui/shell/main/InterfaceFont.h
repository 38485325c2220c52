#pragma once

#include <QString>

class frmMain;

/// Stands for the system's own font everywhere.
inline const QString kSystemFormFont = QStringLiteral("MS Sans Serif");

/// Shows the main window in this font and checks its entry in the menu. False for a font that isn't installed: the one
/// that is in use stays so.
bool useFormFont(frmMain& main, const QString& family);
