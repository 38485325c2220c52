#pragma once

/// Makes the windows, and what else stands above them, known to those who ask for them without knowing them: the one
/// place where that happens.
void registerWindows();

/// The book goes, and editors that are open let go of their scenes. To be called while there is still an application:
/// at the process's end they would speak to a window system that has gone.
void letBookGo();
