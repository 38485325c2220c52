#pragma once

#include <QString>

#include <functional>

class frmMain;

/// The road of every project that a person opens by hand: what the open book holds is settled first, then `choose` asks
/// for the file, and that is loaded. An empty path leaves the open book as it is.
void openChosen(frmMain& main, const std::function<QString()>& choose);
