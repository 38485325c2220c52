#pragma once

#include <QColor>
#include <QIcon>

#include <optional>

/// The colour that a picture takes on in a mode; nothing where it keeps its own.
using Tint = std::optional<QColor> (*)(QIcon::Mode mode);

/// A picture whose shape is drawn in one colour. The tint is asked whenever the icon is drawn, so that it follows the
/// palette.
QIcon tinted(const QIcon& picture, Tint tint);
