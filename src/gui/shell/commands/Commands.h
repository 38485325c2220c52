#pragma once

class frmMain;

/// Gives the main window all its groups of commands.
void addCommands(frmMain& main);
