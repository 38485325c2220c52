#pragma once

/// Makes the windows known to those who ask for them without knowing them: the one place where that happens.
void registerWindows();
