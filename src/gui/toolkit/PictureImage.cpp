#include "gui/toolkit/PictureImage.h"

#include "gui/toolkit/DeviceBitmap.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <cmath>

namespace {

using Kind = RtfPicture::Kind;

constexpr int kTwipsPerPixel = 15;
constexpr QSize kSmallest(kTwipsPerPixel, kTwipsPerPixel);
constexpr QSize kLargest(31680, 31680);
constexpr QSize kUnknown(480, 480);

constexpr qint64 kMostPixels = 64 << 20;
/// More are scaled down as they are read, where the format can.
constexpr qint64 kMostUsefulPixels = 24 << 20;

struct Signature {
  QByteArrayView bytes;
  const char* format;
};
/// What stands in a picture's data tells its format better than the word in front does. Nothing else is read: some
/// formats name files of their own.
constexpr Signature kSignatures[] = {{"\x89PNG", "png"}, {"\xFF\xD8", "jpeg"}, {"GIF8", "gif"}, {"BM", "bmp"}};

QByteArray formatOf(QByteArrayView file) {
  for (const Signature& entry : kSignatures) {
    if (file.startsWith(entry.bytes)) {
      return entry.format;
    }
  }
  return {};
}

/// Reads one of the formats above.
class FileReader {
 public:
  explicit FileReader(QByteArray file) : format_(formatOf(file)) {
    buffer_.setData(std::move(file));
    buffer_.open(QIODevice::ReadOnly);
    reader_.setAutoDetectImageFormat(false);
    reader_.setFormat(format_);
    reader_.setDevice(&buffer_);
  }

  QSize size() { return format_.isEmpty() ? QSize() : reader_.size(); }

  QImage image() {
    const QSize whole = size();
    const qint64 pixels = whole.isEmpty() ? 0 : qint64{whole.width()} * whole.height();
    if (pixels == 0 || pixels > kMostPixels) {
      return {};
    }
    if (pixels > kMostUsefulPixels) {
      reader_.setScaledSize(whole * std::sqrt(double(kMostUsefulPixels) / double(pixels)));
    }
    return reader_.read();
  }

 private:
  QByteArray format_;
  QBuffer buffer_;
  QImageReader reader_;
};

QSize fileSize(const RtfPicture& picture) {
  // The heads of photographs may stand behind a small copy of them and a colour profile.
  for (const qsizetype length : {qsizetype{4} << 10, qsizetype{256} << 10}) {
    const QByteArray head = rtfPictureHead(picture, length);
    const QSize size = FileReader(head).size();
    if (!size.isEmpty() || head.size() < length) {
      return size;
    }
  }
  return {};
}

QSize bitmapSize(const RtfPicture& picture) {
  const auto bitmap = deviceBitmap(rtfPictureHead(picture, 128));
  return bitmap ? bitmap->size : fileSize(picture);
}

int limited(qint64 twips) {
  return static_cast<int>(std::clamp<qint64>(twips, 0, 1 << 24));
}

/// Twips from another unit.
QSize twipsOf(QSize size, int twips, int units) {
  return {limited(qint64{size.width()} * twips / units), limited(qint64{size.height()} * twips / units)};
}

QSize headSize(const RtfPicture& picture) {
  constexpr qsizetype metafileHead = 64;
  switch (picture.kind) {
    case Kind::Png:
    case Kind::Jpeg:
      return twipsOf(fileSize(picture), kTwipsPerPixel, 1);
    case Kind::Bitmap:
      return twipsOf(bitmapSize(picture), kTwipsPerPixel, 1);
    case Kind::Metafile:
      return twipsOf(sizeOfMetafile(rtfPictureHead(picture, metafileHead)), 1, 1);
    case Kind::Enhanced:
      return twipsOf(sizeOfEnhancedMetafile(rtfPictureHead(picture, metafileHead)), 1, 1);
    case Kind::Other:
      break;
  }
  return {};
}

/// Of the whole picture before it is cropped and scaled, for want of a goal.
QSize ownSize(const RtfPicture& picture) {
  const QSize head = headSize(picture);
  if (!head.isEmpty()) {
    return head;
  }
  const bool isMetafile = picture.kind == Kind::Metafile || picture.kind == Kind::Enhanced;
  const QSize stated(picture.picw, picture.pich);
  const QSize size = isMetafile ? twipsOf(stated, 1440, 2540) : twipsOf(stated, kTwipsPerPixel, 1);
  return size.isEmpty() ? kUnknown : size;
}

/// The same with both goals; where one is missing it follows from the other.
RtfPicture withGoals(RtfPicture picture) {
  if (picture.picwgoal > 0 && picture.pichgoal > 0) {
    return picture;
  }
  const QSize own = ownSize(picture);
  if (picture.picwgoal > 0) {
    picture.pichgoal = std::max(limited(qint64{picture.picwgoal} * own.height() / own.width()), 1);
  } else if (picture.pichgoal > 0) {
    picture.picwgoal = std::max(limited(qint64{picture.pichgoal} * own.width() / own.height()), 1);
  } else {
    picture.picwgoal = own.width();
    picture.pichgoal = own.height();
  }
  return picture;
}

QImage cropped(const QImage& image, const RtfPicture& picture) {
  if (image.isNull() || (picture.piccropl | picture.piccropt | picture.piccropr | picture.piccropb) == 0) {
    return image;
  }
  const RtfPicture whole = withGoals(picture);
  const QMargins crop = rtfPictureCrop(whole);
  const auto across = [&](int twips) { return static_cast<int>(qint64{image.width()} * twips / whole.picwgoal); };
  const auto down = [&](int twips) { return static_cast<int>(qint64{image.height()} * twips / whole.pichgoal); };
  return image.copy(
      image.rect().marginsRemoved({across(crop.left()), down(crop.top()), across(crop.right()), down(crop.bottom())}));
}

QImage imageOf(const std::optional<DeviceBitmap>& bitmap) {
  return bitmap ? FileReader(bitmapFile(*bitmap)).image() : QImage();
}

QImage wholeImage(const RtfPicture& picture) {
  if (picture.kind == Kind::Other) {
    return {};
  }
  const QByteArray bytes = rtfPictureBytes(picture);
  if (picture.kind == Kind::Metafile) {
    return imageOf(bitmapOfMetafile(bytes));
  }
  if (picture.kind == Kind::Enhanced) {
    return imageOf(bitmapOfEnhancedMetafile(bytes));
  }
  const auto bitmap = picture.kind == Kind::Bitmap ? deviceBitmap(bytes) : std::nullopt;
  return bitmap ? imageOf(bitmap) : FileReader(bytes).image();
}

}  // namespace

QSize pictureSize(const RtfPicture& picture) {
  const QSize size = rtfPictureSize(withGoals(picture));
  const bool isTooLarge = size.width() > kLargest.width() || size.height() > kLargest.height();
  return (isTooLarge ? size.scaled(kLargest, Qt::KeepAspectRatio) : size).expandedTo(kSmallest);
}

QImage pictureImage(const RtfPicture& picture) {
  return cropped(wholeImage(picture), picture);
}
