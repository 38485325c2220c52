#pragma once

#include <QByteArray>
#include <QString>

class cSHAREDInternet;

/// Downloads an installer, which no redirection leads to another host or off the secure connection. Empty when it
/// stands at the path whole and can be run; else what is told of why not, in English, and no new file stands there.
QString downloadInstaller(cSHAREDInternet& internet, const QString& address, const QString& path);

/// The same for one that the program itself will start: nothing of what stood at the path before is left, neither
/// where a link leads nor who may write to it.
QString downloadOwnInstaller(cSHAREDInternet& internet, const QString& address, const QString& path);

/// Whether a file is still the one that has come, by the SHA-256 of that.
bool isStillThat(const QString& path, const QByteArray& hash);
