#pragma once

#include <QImage>
#include <QString>

#include <chrono>

/// A picture as a file holds it, or why there is none to show: both empty for no path.
struct Picture {
  QImage image;
  QString whyNot;
};

/// Reads a JPEG, GIF, BMP or PNG file, whatever it is called, upright and made smaller until neither side is longer
/// than `mostSide` pixels. Files that are too large or hold more pixels than a picture has are left alone, and one
/// that takes longer than the patience is read no further: no file may hold up the program.
Picture readPicture(const QString& path, int mostSide, std::chrono::milliseconds patience = std::chrono::seconds(2));
