#pragma once

class frmMain;

/// Hides the way to the check in a build that has no address for it.
void offerUpdateCheck(frmMain& main);
/// Looks for a new version in the window that there is for it; a silent check speaks only when there is one.
void checkForUpdate(frmMain& main, bool silent);
/// The check that the program makes by itself, when it may and a week has gone by; and the question whether to see what
/// it has found.
void checkForUpdateByItself(frmMain& main);
