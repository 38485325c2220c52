// The picture of a character: when it is read, how it is fitted, and what files can't do to the program.

#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "gui/sheets/PictureBox.h"
#include "gui/sheets/PictureFile.h"
#include "gui/sheets/SheetTest.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include <chrono>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr int kImageTab = 4;

QImage redImage(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::red);
  return image;
}

/// The beginning of a picture of this many dots to a side.
QByteArray bitmapHead(quint32 side) {
  QByteArray head("BM");
  const auto append = [&head](quint32 number, int bytes) {
    for (int i = 0; i < bytes; ++i) {
      head.append(i < 4 ? static_cast<char>(number >> (8 * i)) : '\0');
    }
  };
  for (const auto& [number, bytes] :
       {std::pair{0U, 8}, {54U, 4}, {40U, 4}, {side, 4}, {side, 4}, {1U, 2}, {32U, 2}, {0U, 24}}) {
    append(number, bytes);
  }
  return head;
}

/// A progressive JPEG in which one part stands many times over: little to read, and slow.
QByteArray manyScans() {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "jpg");
  writer.setProgressiveScanWrite(true);
  writer.write(redImage(2000, 2000));
  const qsizetype lastScan = bytes.lastIndexOf("\xff\xda");
  const QByteArray scan = bytes.sliced(lastScan, bytes.size() - 2 - lastScan);
  return bytes.first(lastScan) + scan.repeated(10'000) + bytes.last(2);
}

}  // namespace

TEST_F(SheetTest, ThePictureIsReadWhenItsTabIsSeenAndWhenThePathChanges) {
  const auto person = g_Project->CharByID(1);
  g_Project->FileWithPath = folder.path(u"Small.qn4"_s);
  redImage(40, 30).save(folder.path(u"anna.png"_s));
  redImage(3000, 1000).save(folder.path(u"large.jpg"_s));
  person->ImageFile = u"anna.png"_s;
  EXPECT_TRUE(during([&] { return person->Edit(0); },
                     [&](QDialog& sheet) {
                       auto& box = childOf<PictureBox>(sheet);
                       auto& path = childOf<QLineEdit>(sheet, u"txtImageFile"_s);
                       const auto& note = childOf<QLabel>(sheet, u"lblImage"_s);
                       auto& tabs = childOf<QTabWidget>(sheet, u"TabStrip1"_s);
                       tabs.setCurrentIndex(1);
                       EXPECT_TRUE(box.image().isNull());
                       tabs.setCurrentIndex(kImageTab);
                       EXPECT_EQ(box.image().size(), QSize(40, 30));
                       EXPECT_EQ(box.shownAt().size(), QSize(40, 30)) << "never larger than it is";
                       QFile::remove(folder.path(u"anna.png"_s));
                       tabs.setCurrentIndex(0);
                       tabs.setCurrentIndex(kImageTab);
                       EXPECT_FALSE(box.image().isNull()) << "read once";

                       toolkit.expectFile(folder.path(u"large.jpg"_s));
                       childOf<QPushButton>(sheet, u"cmdSelectImage"_s).click();
                       EXPECT_EQ(toolkit.fileQuestions.last().folder, g_Project->Path());
                       EXPECT_TRUE(toolkit.fileQuestions.last().filter.startsWith(u"*.jpg;*.gif;*.bmp"_s));
                       EXPECT_EQ(path.text(), folder.path(u"large.jpg"_s));
                       EXPECT_EQ(box.shownAt().width(), box.width());
                       EXPECT_NEAR(box.shownAt().height(), box.width() / 3, 1);

                       toolkit.expectFile({});
                       childOf<QPushButton>(sheet, u"cmdSelectImage"_s).click();
                       EXPECT_EQ(path.text(), folder.path(u"large.jpg"_s));

                       path.setText(folder.path(u"nowhere.bmp"_s));
                       EXPECT_TRUE(waitFor([&] { return box.image().isNull(); }));
                       EXPECT_EQ(note.text(), u"This file isn't there."_s);
                       QTest::keyClick(&path, Qt::Key_Return);
                     }));
  EXPECT_EQ(person->ImageFile, folder.path(u"nowhere.bmp"_s));
}

TEST_F(SheetTest, NoFileHoldsUpTheProgramOrTakesItsMemory) {
  const QString kTooLarge = u"This picture is too large to be shown."_s;
  const QString kNoPicture = u"This file can't be shown as a picture."_s;
  struct Case {
    QString name;
    QByteArray bytes;
    QString whyNot;
  };
  const Case cases[] = {
      {u"huge.bmp"_s, bitmapHead(9000), kTooLarge},
      {u"cut off.bmp"_s, bitmapHead(100), kNoPicture},
      {u"text.jpg"_s, "nothing of the kind", kNoPicture},
      {u"empty.png"_s, {}, kNoPicture},
      {u"drawing.png"_s, "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>", kNoPicture},
  };
  for (const Case& c : cases) {
    writeFile(folder.path(c.name), c.bytes);
    const Picture picture = readPicture(folder.path(c.name), 1000);
    EXPECT_TRUE(picture.image.isNull()) << c.name;
    EXPECT_EQ(picture.whyNot, c.whyNot) << c.name;
  }
  QFile large(folder.path(u"large.bmp"_s));
  ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(qint64{1} << 30));
  EXPECT_EQ(readPicture(large.fileName(), 1000).whyNot, kTooLarge);
  EXPECT_FALSE(readPicture(folder.path(), 1000).whyNot.isEmpty());
  EXPECT_TRUE(readPicture({}, 1000).whyNot.isEmpty());

  writeFile(folder.path(u"scans.jpg"_s), manyScans());
  QElapsedTimer time;
  time.start();
  readPicture(folder.path(u"scans.jpg"_s), 1000, 100ms);
  EXPECT_LT(time.elapsed(), 10'000) << "half a minute and more without an end";
}
