#pragma once

#include <QString>

class cSHAREDInternet;

/// Downloads an installer. Empty when it stands at the path whole; else what is told of why not, and no new file stands
/// there.
QString downloadInstaller(cSHAREDInternet& internet, const QString& address, const QString& path);
