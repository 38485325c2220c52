#pragma once

#include <QString>

class frmMain;

/// Shows the main window in this font and checks its entry in the menu; a font that isn't installed leaves the
/// system's own. False in that case. "MS Sans Serif" stands for the system's own font everywhere.
bool useFormFont(frmMain& main, const QString& family);
