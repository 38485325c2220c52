#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QSize>

#include <optional>

/// A device-independent bitmap as it stands in other data: without the head that a file of its own begins with.
struct DeviceBitmap {
  QByteArrayView info;  ///< Head, masks and palette.
  QByteArrayView bits;
  QSize size;  ///< Pixels, both positive.
  int bitsPerPixel = 0;
};

/// The bitmap that begins with the bytes, its bits behind its palette; nothing when it is none. Missing bits are no
/// fault here.
std::optional<DeviceBitmap> deviceBitmap(QByteArrayView bytes);

/// The whole file of a bitmap; empty when bits are missing.
QByteArray bitmapFile(const DeviceBitmap& bitmap);

/// The largest bitmap that the records of a metafile put on the page; nothing when it draws by other means alone.
std::optional<DeviceBitmap> bitmapOfMetafile(QByteArrayView bytes);
std::optional<DeviceBitmap> bitmapOfEnhancedMetafile(QByteArrayView bytes);

/// In twips, from the head of a metafile; empty where it isn't stated.
QSize sizeOfMetafile(QByteArrayView head);
QSize sizeOfEnhancedMetafile(QByteArrayView head);
