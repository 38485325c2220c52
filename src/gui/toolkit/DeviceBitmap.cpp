#include "gui/toolkit/DeviceBitmap.h"

#include <QtEndian>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

using Found = std::optional<DeviceBitmap>;

/// The number at an offset; 0 beyond the end.
template <class Number>
Number numberAt(QByteArrayView bytes, qsizetype at) {
  const bool isInside = at >= 0 && at <= bytes.size() - qsizetype{sizeof(Number)};
  return isInside ? qFromLittleEndian<Number>(bytes.data() + at) : Number{0};
}

/// A stretch of the bytes, cut where they end.
QByteArrayView stretch(QByteArrayView bytes, qint64 at, qint64 length) {
  const qint64 first = std::min<qint64>(at, bytes.size());
  return bytes.sliced(first, std::min<qint64>(length, bytes.size() - first));
}

constexpr quint32 kCoreHead = 12;
constexpr quint32 kInfoHead = 40;
constexpr quint32 kLongestHead = 124;
enum Compression : quint32 { kPlain = 0, kRuns8 = 1, kRuns4 = 2, kMasks = 3 };

bool isDepth(int bitsPerPixel) {
  return bitsPerPixel == 1 || bitsPerPixel == 4 || bitsPerPixel == 8 || bitsPerPixel == 16 || bitsPerPixel == 24 ||
         bitsPerPixel == 32;
}

qint64 coloursOf(QByteArrayView info, int bitsPerPixel) {
  const qint64 all = bitsPerPixel <= 8 ? qint64{1} << bitsPerPixel : 0;
  const qint64 stated = numberAt<quint32>(info, 32);
  return stated == 0 || (all != 0 && stated > all) ? all : stated;
}

/// The bytes in front of the bits.
qint64 infoLength(QByteArrayView info, int bitsPerPixel) {
  const quint32 head = numberAt<quint32>(info, 0);
  if (head == kCoreHead) {
    return head + (bitsPerPixel <= 8 ? qint64{3} << bitsPerPixel : 0);
  }
  const bool hasMasks = head == kInfoHead && numberAt<quint32>(info, 16) == kMasks;
  return head + (hasMasks ? 12 : 0) + coloursOf(info, bitsPerPixel) * 4;
}

/// What the head says, as yet without a look at what follows it.
Found readHead(QByteArrayView info) {
  const quint32 head = numberAt<quint32>(info, 0);
  const bool isCore = head == kCoreHead;
  if ((!isCore && (head < kInfoHead || head > kLongestHead)) || head > info.size()) {
    return std::nullopt;
  }
  DeviceBitmap bitmap;
  const qint64 width = isCore ? numberAt<quint16>(info, 4) : numberAt<qint32>(info, 4);
  // A negative height is that of lines from the top down.
  const qint64 height = isCore ? numberAt<quint16>(info, 6) : std::abs(qint64{numberAt<qint32>(info, 8)});
  bitmap.bitsPerPixel = numberAt<quint16>(info, isCore ? 10 : 14);
  if (width <= 0 || height <= 0 || height > std::numeric_limits<int>::max() || !isDepth(bitmap.bitsPerPixel)) {
    return std::nullopt;
  }
  bitmap.size = {static_cast<int>(width), static_cast<int>(height)};
  return bitmap;
}

/// A bitmap whose two parts stand apart.
Found deviceBitmap(QByteArrayView info, QByteArrayView bits) {
  Found bitmap = readHead(info);
  if (!bitmap || infoLength(info, bitmap->bitsPerPixel) > info.size()) {
    return std::nullopt;
  }
  bitmap->info = info;
  bitmap->bits = bits;
  return bitmap;
}

bool isShort(const DeviceBitmap& bitmap) {
  const bool isCore = numberAt<quint32>(bitmap.info, 0) == kCoreHead;
  const quint32 compression = isCore ? kPlain : numberAt<quint32>(bitmap.info, 16);
  if (compression == kRuns8 || compression == kRuns4) {
    return false;
  }
  const qint64 line = (qint64{bitmap.size.width()} * bitmap.bitsPerPixel + 31) / 32 * 4;
  // Some leave out what fills up the last line.
  return line > (bitmap.bits.size() + 3) / bitmap.size.height();
}

void keepLarger(Found& largest, const Found& other) {
  const auto rank = [](const DeviceBitmap& bitmap) {
    return std::pair(qint64{bitmap.size.width()} * bitmap.size.height(), bitmap.bitsPerPixel);
  };
  if (other && !isShort(*other) && (!largest || rank(*other) > rank(*largest))) {
    largest = other;
  }
}

/// A record that puts a bitmap on the page, and where in it the bitmap is described.
struct BitmapRecord {
  quint32 type;
  qsizetype at;
};
constexpr BitmapRecord kRecords[] = {{0x0F43, 28}, {0x0B41, 26}, {0x0940, 22}, {0x0D33, 24}};
constexpr BitmapRecord kEnhancedRecords[] = {{81, 48}, {76, 84}, {77, 84}, {80, 48}};

template <size_t count>
qsizetype placeIn(const BitmapRecord (&records)[count], quint32 type) {
  const auto* const found = std::find_if(std::begin(records), std::end(records),
                                         [type](const BitmapRecord& record) { return record.type == type; });
  return found == std::end(records) ? -1 : found->at;
}

constexpr qsizetype kPlaceableHead = 22;
bool isPlaceable(QByteArrayView bytes) {
  return bytes.size() >= kPlaceableHead && numberAt<quint32>(bytes, 0) == 0x9AC6CDD7;
}

Found bitmapOfEnhancedRecord(QByteArrayView record, qsizetype at) {
  const auto part = [&](qsizetype place) {
    return stretch(record, numberAt<quint32>(record, place), numberAt<quint32>(record, place + 4));
  };
  return deviceBitmap(part(at), part(at + 8));
}

int twipsOf(qint64 length, qint64 perInch) {
  return static_cast<int>(std::clamp<qint64>(length * 1440 / perInch, 0, std::numeric_limits<int>::max()));
}

}  // namespace

std::optional<DeviceBitmap> deviceBitmap(QByteArrayView bytes) {
  Found bitmap = readHead(bytes);
  if (bitmap) {
    const qint64 length = infoLength(bytes, bitmap->bitsPerPixel);
    bitmap->info = stretch(bytes, 0, length);
    bitmap->bits = stretch(bytes, length, bytes.size());
  }
  return bitmap;
}

QByteArray bitmapFile(const DeviceBitmap& bitmap) {
  constexpr qsizetype head = 14;
  const qsizetype bits = head + bitmap.info.size();
  const qsizetype size = bits + bitmap.bits.size();
  if (isShort(bitmap) || size > std::numeric_limits<qint32>::max()) {
    return {};
  }
  QByteArray file("BM", 2);
  file.resize(head, '\0');
  qToLittleEndian(static_cast<quint32>(size), file.data() + 2);
  qToLittleEndian(static_cast<quint32>(bits), file.data() + 10);
  file.reserve(size + 3);
  file.append(bitmap.info).append(bitmap.bits);
  return file.append(3, '\0');
}

std::optional<DeviceBitmap> bitmapOfMetafile(QByteArrayView bytes) {
  bytes = isPlaceable(bytes) ? bytes.sliced(kPlaceableHead) : bytes;
  Found largest;
  constexpr qsizetype shortest = 6;
  qint64 length = std::max<qint64>(numberAt<quint16>(bytes, 2) * 2, shortest);
  for (qint64 at = length; at < bytes.size(); at += length) {
    length = qint64{numberAt<quint32>(bytes, at)} * 2;
    const quint16 type = numberAt<quint16>(bytes, at + 4);
    if (length < shortest || type == 0) {
      break;
    }
    const qsizetype place = placeIn(kRecords, type);
    if (place >= 0) {
      keepLarger(largest, deviceBitmap(stretch(stretch(bytes, at, length), place, length)));
    }
  }
  return largest;
}

std::optional<DeviceBitmap> bitmapOfEnhancedMetafile(QByteArrayView bytes) {
  constexpr quint32 endType = 14;
  Found largest;
  qint64 length = 0;
  for (qint64 at = 0; at < bytes.size(); at += length) {
    const quint32 type = numberAt<quint32>(bytes, at);
    length = numberAt<quint32>(bytes, at + 4);
    if (length < 8 || type == endType) {
      break;
    }
    const qsizetype place = placeIn(kEnhancedRecords, type);
    if (place >= 0) {
      keepLarger(largest, bitmapOfEnhancedRecord(stretch(bytes, at, length), place));
    }
  }
  return largest;
}

QSize sizeOfMetafile(QByteArrayView head) {
  const qint64 perInch = numberAt<quint16>(head, 14);
  if (!isPlaceable(head) || perInch == 0) {
    return {};
  }
  const auto corner = [&](qsizetype at) { return qint64{numberAt<qint16>(head, at)}; };
  return {twipsOf(corner(10) - corner(6), perInch), twipsOf(corner(12) - corner(8), perInch)};
}

QSize sizeOfEnhancedMetafile(QByteArrayView head) {
  constexpr qint64 framePerInch = 2540;
  const auto corner = [&](qsizetype at) { return qint64{numberAt<qint32>(head, at)}; };
  return {twipsOf(corner(32) - corner(24), framePerInch), twipsOf(corner(36) - corner(28), framePerInch)};
}
