#pragma once

#include <QString>

#include <functional>

class clsProject;
class frmMain;

/// Puts other contents in the place of all that a project holds, and saves it. It becomes the open one; without a name
/// it is the open one. A file that isn't there becomes a new project. `fill` erases and fills it in memory; it is
/// called behind a complete backup of the project, or when the writer goes on without; the narrator is the first of its
/// characters then. False when that wasn't to be or could not be: all is as it was then, in memory too, and why has
/// been told.
bool replaceContents(frmMain& main, const QString& projectFile, const std::function<void(clsProject&)>& fill);
