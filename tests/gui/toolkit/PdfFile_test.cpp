#include "gui/toolkit/PdfFile.h"

#include "core/infra/RuntimeError.h"
#include "core/layout/PrintFlow.h"
#include "support/FailingDisk.h"
#include "support/ReadPdf.h"
#include "support/SampleProject.h"
#include "support/SquareLetters.h"
#include "support/TestHome.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class PdfFileTest : public ::testing::Test {
 protected:
  QString path() const { return folder_.path(u"Book.pdf"_s); }
  PrintDocument document(const QString& text) const {
    PrintFlow flow(measure_, {false, false, 12, u"Liberation Serif"_s});
    flow.newNumberedPage();
    flow.PrintText(text);
    return {u"Тайна & \"Letters\""_s, u"N. Öbody (ed.)"_s, flow.paper(), flow.takePages()};
  }

  ScratchFolder folder_;
  CountedProgress progress_;
  QtTextMeasure measure_;
};

}  // namespace

TEST_F(PdfFileTest, HoldsRealTextWithItsFontsTitleAndAuthor) {
  PdfFile(path()).print(document(u"The tide was out. Прилив, Ελλάδα.\r\n"_s.repeated(90)), progress_);
  EXPECT_EQ(progress_.steps, (QStringList{u"Writing page 1"_s, u"Writing page 2"_s}));
  const QString info = outputOf(u"pdfinfo"_s, {path()});
  if (info.isEmpty()) {
    GTEST_SKIP() << "no program here reads PDF files";
  }
  for (const QString& line : {u"Тайна & \"Letters\""_s, u"N. Öbody (ed.)"_s, u"(A4)"_s, u"Pages:           2"_s}) {
    EXPECT_TRUE(info.contains(line)) << info;
  }
  const QString text = outputOf(u"pdftotext"_s, {u"-layout"_s, path(), u"-"_s});
  EXPECT_EQ(text.count(u"The tide was out. Прилив, Ελλάδα."_s), 90);
  const QStringList fonts = outputOf(u"pdffonts"_s, {path()}).split(u'\n', Qt::SkipEmptyParts).mid(2);
  EXPECT_FALSE(fonts.isEmpty());
  for (const QString& font : fonts) {
    // Embedded first, mapped to letters last.
    EXPECT_TRUE(font.contains(QRegularExpression(u" yes +(yes|no) +yes "_s))) << font;
  }
}

TEST_F(PdfFileTest, PutsAPictureOnAPageOnItsSide) {
  QImage drawn(40, 20, QImage::Format_RGB32);
  drawn.fill(QColor(250, 3, 200));
  drawn.setPixelColor(39, 19, Qt::green);
  QBuffer png;
  png.open(QIODevice::WriteOnly);
  drawn.save(&png, "PNG");
  PrintDocument document{u"Board"_s, {}, PaperSize::a4().turned(), {}};
  for (int i = 0; i < 2; ++i) {
    document.pages.push_back({{}, {}, {{1440, 2880, 11520, 5760, png.data()}}});
  }
  PdfFile(path()).print(document, progress_);
  const QString info = outputOf(u"pdfinfo"_s, {u"-l"_s, u"2"_s, path()});
  if (info.isEmpty()) {
    GTEST_SKIP() << "no program here reads PDF files";
  }
  EXPECT_EQ(info.count(QRegularExpression(u"size: +84[12][.0-9]* x 59[56]"_s)), 2) << info;
  outputOf(u"pdfimages"_s, {u"-png"_s, path(), folder_.path(u"picture"_s)});
  EXPECT_EQ(QImage(folder_.path(u"picture-000.png"_s)).convertToFormat(drawn.format()), drawn) << "to the last dot";
  outputOf(u"pdftoppm"_s, {u"-r"_s, u"72"_s, u"-png"_s, u"-singlefile"_s, path(), folder_.path(u"page"_s)});
  const QImage page(folder_.path(u"page.png"_s));
  EXPECT_GT(page.width(), page.height());
  // An inch from the left, two from above, eight wide and four high.
  for (const QPoint& inside : {QPoint(75, 147), QPoint(640, 147), QPoint(75, 428)}) {
    EXPECT_EQ(page.pixelColor(inside), QColor(250, 3, 200));
  }
  for (const QPoint& outside : {QPoint(69, 300), QPoint(651, 300), QPoint(300, 141), QPoint(300, 435)}) {
    EXPECT_EQ(page.pixelColor(outside), Qt::white);
  }
}

TEST_F(PdfFileTest, LeavesWhatStoodThereWhenItIsStoppedOrTheDiskIsFull) {
  struct Stopped : PrintProgress {
    void step(const QString&, qint32 number) override {
      if (number == 2) {
        throw RuntimeError(RuntimeError::InvalidCall);
      }
    }
  } stopped;
  writeFile(path(), "the older one");
  EXPECT_THROW(PdfFile(path()).print(document(u"line\n"_s.repeated(99)), stopped), RuntimeError);
  if (FailingDisk::available()) {
    const FailingDisk disk(2000);
    EXPECT_THROW(PdfFile(path()).print(document(u"line\n"_s.repeated(99)), progress_), RuntimeError);
  }
  EXPECT_EQ(fileBytes(path()), "the older one");
  EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden), QStringList(u"Book.pdf"_s));
}
