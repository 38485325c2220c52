#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The content of the first file in an archive that has this name, in whatever folder and letters. Nothing when there
/// is none, when the archive can't be read, or for content beyond 1 GB.
std::optional<QByteArray> readFromZip(const QString& archive, const QString& name);
