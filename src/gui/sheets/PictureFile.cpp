#include "gui/sheets/PictureFile.h"

#include "core/infra/cSharedLang.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostBytes = qint64{100} * 1024 * 1024;
/// As many as the reader takes in its own 256 MB.
constexpr qint64 kMostPixels = qint64{64} * 1024 * 1024;

const QString kNoFile = shownText(u"This file isn't there."_s);
const QString kTooLarge = shownText(u"This picture is too large to be shown."_s);
const QString kNoPicture = shownText(u"This file can't be shown as a picture."_s);

/// A file that ends when the patience does: a picture can be small and still take minutes.
class TimedFile : public QFile {
 public:
  TimedFile(const QString& path, std::chrono::milliseconds patience) : QFile(path), deadline_(patience) {}

 protected:
  qint64 readData(char* data, qint64 most) override {
    return deadline_.hasExpired() ? -1 : QFile::readData(data, most);
  }

 private:
  QDeadlineTimer deadline_;
};

bool isKnown(const QByteArray& format) {
  constexpr std::array known{"jpeg", "jpg", "gif", "bmp", "png"};
  return std::find(known.begin(), known.end(), format) != known.end();
}

}  // namespace

Picture readPicture(const QString& path, int mostSide, std::chrono::milliseconds patience) {
  if (path.isEmpty()) {
    return {};
  }
  const QFileInfo info(path);
  if (!info.isFile()) {
    return {{}, kNoFile};
  }
  if (info.size() > kMostBytes) {
    return {{}, kTooLarge};
  }
  TimedFile file(path, patience);
  // Unbuffered, so that the time is looked at with each piece that is asked for.
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
    return {{}, kNoPicture};
  }
  QImageReader reader(&file);
  if (!isKnown(reader.format())) {
    return {{}, kNoPicture};
  }
  const QSize size = reader.size();
  if (qint64{size.width()} * size.height() > kMostPixels) {
    return {{}, kTooLarge};
  }
  reader.setAutoTransform(true);
  if (size.width() > mostSide || size.height() > mostSide) {
    reader.setScaledSize(size.scaled(mostSide, mostSide, Qt::KeepAspectRatio));
  }
  QImage image = reader.read();
  return image.isNull() ? Picture{{}, kNoPicture} : Picture{std::move(image), {}};
}
