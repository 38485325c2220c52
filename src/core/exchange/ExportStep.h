#pragma once

#include <QtGlobal>

#include <functional>

/// Called in front of each scene of an export, with how many were begun by then. What it throws ends the export.
using ExportStep = std::function<void(qint32 scene)>;
