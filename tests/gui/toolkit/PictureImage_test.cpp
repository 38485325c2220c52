#include "gui/toolkit/PictureImage.h"

#include "support/Mutations.h"
#include "support/TestHome.h"

#include <QBuffer>
#include <QFile>
#include <QLoggingCategory>
#include <QtEndian>

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// 8 by 4, red on the left and blue on the right.
QImage sample() {
  QImage image(8, 4, QImage::Format_RGB32);
  image.fill(Qt::blue);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width() / 2; ++x) {
      image.setPixelColor(x, y, Qt::red);
    }
  }
  return image;
}

QByteArray fileOf(const QImage& image, const char* format) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  EXPECT_TRUE(image.save(&buffer, format, 100));
  return buffer.data();
}

QByteArray bitmapOf(const QImage& image) {
  return fileOf(image, "BMP").mid(14);
}

template <class Number>
QByteArray number(Number value) {
  QByteArray bytes(sizeof value, '\0');
  qToLittleEndian(value, bytes.data());
  return bytes;
}

QByteArray zeros(qsizetype count) {
  return QByteArray(count, '\0');
}

QByteArray metafileRecord(quint16 type, const QByteArray& content) {
  return number(quint32((content.size() + 7) / 2)) + number(type) + content + zeros(content.size() % 2);
}

QByteArray metafile(const QByteArray& records) {
  return number<quint16>(1) + number<quint16>(9) + zeros(14) + metafileRecord(0x0103, "\x08") + records +
         metafileRecord(0, {});
}

/// 200 by 100 at 100 to the inch.
QByteArray placeable(const QByteArray& file) {
  return number(0x9AC6CDD7U) + zeros(2) + number<qint16>(50) + number<qint16>(-20) + number<qint16>(250) +
         number<qint16>(80) + number<quint16>(100) + zeros(6) + file;
}

QByteArray enhancedRecord(quint32 type, const QByteArray& content) {
  return number(type) + number(quint32(content.size() + 8)) + content;
}

/// `front` bytes of a record before the place of the bitmap, which is in two parts.
QByteArray enhancedBitmap(quint32 type, quint32 front, const QByteArray& bitmap) {
  const QByteArray info = bitmap.first(40);
  const quint32 behind = front + 40;
  const QByteArray parts =
      number(behind) + number(40U) + number(behind + 48) + number(quint32(bitmap.size() - info.size()));
  return enhancedRecord(type, zeros(front - 8) + parts + zeros(24) + info + zeros(8) + bitmap.sliced(40));
}

/// The frame is 1 inch by half of one.
QByteArray enhanced(const QByteArray& records) {
  return enhancedRecord(1, zeros(16) + zeros(8) + number(2540U) + number(1270U) + " EMF" + zeros(44)) + records +
         enhancedRecord(14, zeros(12));
}

/// A text that is a picture alone. Pictures are views into it.
class Text {
 public:
  Text(const QByteArray& words, const QByteArray& file)
      : text_("\\pict" + words + ' ' + file.toHex() + "}{\\nonshppict{\\pict 00}") {}

  RtfPicture picture() const { return findRtfPicture(text_).value_or(RtfPicture()); }
  QSize size() const { return pictureSize(picture()); }
  QImage image() const { return pictureImage(picture()); }

 private:
  QByteArray text_;
};

bool isSample(const QImage& image) {
  const auto isNear = [](QColor a, QColor b) {
    return std::abs(a.red() - b.red()) < 30 && std::abs(a.green() - b.green()) < 30 &&
           std::abs(a.blue() - b.blue()) < 30;
  };
  return image.size() == QSize(8, 4) && isNear(image.pixelColor(0, 0), Qt::red) &&
         isNear(image.pixelColor(7, 3), Qt::blue);
}

struct Sample {
  const char* name;
  QByteArray words;
  QByteArray file;
  QSize size;  ///< Of its own, in twips.
};

QList<Sample> samples() {
  const QImage image = sample();
  const QByteArray bitmap = bitmapOf(image);
  const QByteArray small = bitmapOf(image.copy(0, 0, 2, 2));
  const QByteArray indexed = bitmapOf(image.convertToFormat(QImage::Format_Indexed8));
  QByteArray shortened = bitmap;
  shortened.chop(1);
  return {
      {"png", "\\pngblip", fileOf(image, "PNG"), {120, 60}},
      {"jpeg", "\\jpegblip", fileOf(image, "JPG"), {120, 60}},
      {"jpeg called png", "\\pngblip", fileOf(image, "JPG"), {120, 60}},
      {"bitmap", "\\dibitmap0", bitmap, {120, 60}},
      {"bitmap with a palette", "\\dibitmap0\\picw3\\pich3", indexed, {120, 60}},
      {"bitmap without its last byte", "\\dibitmap0", shortened, {120, 60}},
      {"bitmap as a file", "\\dibitmap0", fileOf(image, "BMP"), {120, 60}},
      {"metafile, the largest bitmap",
       "\\wmetafile8\\picw2540\\pich1270",
       metafile(metafileRecord(0x0940, zeros(16) + small) + metafileRecord(0x0F43, zeros(22) + bitmap) +
                metafileRecord(0x0940, zeros(16) + small)),
       {1440, 720}},
      {"metafile, stretched", "\\wmetafile8", metafile(metafileRecord(0x0B41, zeros(20) + indexed)), {480, 480}},
      {"metafile, plain",
       "\\wmetafile8",
       placeable(metafile(metafileRecord(0x0940, zeros(16) + bitmap))),
       {2880, 1440}},
      {"metafile, to the device", "\\wmetafile8", metafile(metafileRecord(0x0D33, zeros(18) + bitmap)), {480, 480}},
      {"enhanced, stretched bits", "\\emfblip", enhanced(enhancedBitmap(81, 48, bitmap)), {1440, 720}},
      {"enhanced, to the device", "\\emfblip", enhanced(enhancedBitmap(80, 48, bitmap)), {1440, 720}},
      {"enhanced, plain", "\\emfblip", enhanced(enhancedBitmap(76, 84, bitmap)), {1440, 720}},
      {"enhanced, stretched", "\\emfblip", enhanced(enhancedBitmap(77, 84, bitmap)), {1440, 720}},
  };
}

TEST(PictureImage, OfEachKindIsShown) {
  for (const Sample& test : samples()) {
    SCOPED_TRACE(test.name);
    const Text text(test.words, test.file);
    EXPECT_TRUE(isSample(text.image()));
    EXPECT_EQ(text.size(), test.size);
  }
}

TEST(PictureImage, SizeIsTheStatedOneWithinLimits) {
  const QByteArray png = fileOf(sample(), "PNG");
  struct Case {
    QByteArray words;
    QByteArray file;
    QSize size;
  };
  const Case cases[] = {
      {"\\pngblip\\picwgoal1000\\pichgoal300\\picscalex50\\picw9\\pich9", png, {500, 300}},
      {"\\pngblip\\picwgoal1000\\picscaley10", png, {1000, 50}},
      {"\\pngblip\\pichgoal1000\\picscaley10", png, {2000, 100}},
      {"\\pngblip\\piccropl30\\picscaley200", png, {90, 120}},
      {"\\pngblip\\picw10\\pich20", "\x89PNG", {150, 300}},
      {"\\macpict\\picw10\\pich20", "01", {150, 300}},
      {"\\macpict", "", {480, 480}},
      {"\\pngblip\\picwgoal2147483647\\pichgoal1\\picscalex32767", png, {31680, 15}},
      {"\\pngblip\\picwgoal63360\\pichgoal31680", png, {31680, 15840}},
      {"\\pngblip\\picwgoal1\\picscalex1\\picscaley1", png, {15, 15}},
      {"\\wmetafile8\\picw2147483647\\pich-2147483647", "", {480, 480}},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(Text(test.words, test.file).size(), test.size) << test.words.constData();
  }
}

TEST(PictureImage, IsCroppedInTheMeasureOfItsGoal) {
  const QByteArray png = fileOf(sample(), "PNG");
  const QImage right = Text("\\pngblip\\picwgoal800\\pichgoal800\\picscalex10\\piccropl400\\piccropt200", png).image();
  EXPECT_EQ(right.size(), QSize(4, 3));
  EXPECT_EQ(right.pixelColor(0, 0), QColor(Qt::blue));
  const QImage left = Text("\\pngblip\\piccropr105\\piccropb15", png).image();
  EXPECT_EQ(left.size(), QSize(1, 3));
  EXPECT_EQ(left.pixelColor(0, 0), QColor(Qt::red));
  EXPECT_TRUE(isSample(Text("\\pngblip\\piccropl60\\piccropr60\\piccropb-5", png).image()));
}

TEST(PictureImage, OfDrawingsAndOtherFormatsIsNull) {
  const Text texts[] = {
      {"\\wmetafile8", metafile(metafileRecord(0x0213, zeros(4)))},
      {"\\emfblip", enhanced(enhancedRecord(54, zeros(8)))},
      {"\\macpict", fileOf(sample(), "PNG")},
      {"\\pngblip", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"5\" height=\"5\"/>"},
  };
  for (const Text& text : texts) {
    EXPECT_TRUE(text.image().isNull());
  }
}

TEST(PictureImage, ThatWouldTakeTooMuchMemoryIsRefused) {
  QByteArray bitmap = bitmapOf(sample().convertToFormat(QImage::Format_Indexed8));
  qToLittleEndian(5'000, bitmap.data() + 4);
  qToLittleEndian(5'000, bitmap.data() + 8);
  EXPECT_TRUE(Text("\\dibitmap0", bitmap).image().isNull()) << "bits are missing";
  EXPECT_EQ(Text("\\dibitmap0", bitmap).size(), QSize(31680, 31680));

  QByteArray jpeg = fileOf(sample(), "JPG");
  const qsizetype frame = jpeg.indexOf("\xFF\xC0");
  ASSERT_GT(frame, 0);
  qToBigEndian(quint32{0x2100'2100}, jpeg.data() + frame + 5);
  EXPECT_TRUE(Text("\\jpegblip", jpeg).image().isNull());
}

TEST(PictureImage, AnyBytesAreShownOrNot) {
  QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false"_s);
  std::minstd_rand random(7);
  const QList<QByteArray> snippets{zeros(4), QByteArray(4, '\xFF'), number(40U), number(0x0F43U), number(81U)};
  for (const Sample& test : samples()) {
    SCOPED_TRACE(test.name);
    const bool isMetafile = test.words.startsWith("\\wmetafile") || test.words.startsWith("\\emfblip");
    const int rounds = isMetafile ? 2000 : 300;
    for (qsizetype size = 0; size < test.file.size(); size += isMetafile ? 1 : 7) {
      const Text text(test.words, test.file.first(size));
      EXPECT_FALSE(text.size().isEmpty());
      text.image();
    }
    for (int i = 0; i < rounds; ++i) {
      const Text text(test.words, mutated(test.file, random, snippets));
      EXPECT_FALSE(text.size().isEmpty());
      text.image();
    }
  }
  QLoggingCategory::setFilterRules(QString());
}

TEST(PictureImage, OfOtherProgramsIsShown) {
  if (sharedFolder().isEmpty()) {
    GTEST_SKIP() << "the shared RTF files are absent";
  }
  struct Case {
    const char* file;
    QSize pixels;
    QSize twips;
  };
  const Case cases[] = {
      {"rtfpipe__Issue39", {340, 260}, {1632, 1248}}, {"rtfpipe__Issue37", {302, 231}, {3654, 2795}},
      {"rtfpipe__Issue33", {60, 60}, {360, 360}},     {"rtfparser-rs__file-with-image", {}, {6456, 3243}},
      {"rtfjs__simplepict", {134, 62}, {2010, 930}},  {"rtfjs__simplepng", {32, 23}, {480, 345}},
  };
  for (const Case& test : cases) {
    SCOPED_TRACE(test.file);
    QFile file(sharedFolder() + u"/rtf-corpus/"_s + QLatin1String(test.file) + u".rtf"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray rtf = file.readAll();
    const auto picture = findRtfPicture(rtf);
    ASSERT_TRUE(picture);
    EXPECT_EQ(pictureSize(*picture), test.twips);
    const QImage image = pictureImage(*picture);
    EXPECT_EQ(image.isNull() ? QSize() : image.size(), test.pixels);
  }
}

}  // namespace
