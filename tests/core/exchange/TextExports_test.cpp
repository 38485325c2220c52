// The book as text, RTF, outline, descriptions and without its words.

#include "core/exchange/DescriptionExport.h"
#include "core/exchange/NanoExport.h"
#include "core/exchange/OutlineExport.h"
#include "core/exchange/RtfExport.h"
#include "core/exchange/TextExport.h"
#include "core/infra/WholeText.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/Rtf.h"
#include "support/SampleProject.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Alignment = ParagraphFormat::Alignment;

const ManuscriptOptions kAll{true, true};

/// A chapter whose middle scene is unused, one without scenes, and an unused one.
class TextExportsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    makeSmallProject();
    chapterAt(2)->RemoveSceneByID(sceneAt(4)->ID());
    chapterAt(2)->RemoveSceneByID(sceneAt(3)->ID());
    chapterAt(1)->Addscene(sceneAt(3));
    sceneAt(2)->Unused = true;
    sceneAt(1)->DescText = u"Tide\nout\r\n"_s;
    sceneAt(3)->DescText = u"Tide in"_s;
  }
  void TearDown() override { newProject(); }

  ExportStep counting() {
    return [this](qint32 scene) { EXPECT_EQ(scene, ++steps_); };
  }

  qint32 steps_ = 0;
};

/// Line ends as "/", so that whole files can be read here.
QString shown(const QByteArray& file) {
  QString text = WholeText::fromBytes(file);
  EXPECT_FALSE(QString(text).remove(u"\r\n"_s).contains(u'\n'));
  return text.replace(u"\r\n"_s, u"/"_s);
}

QString plainOf(const QByteArray& rtf) {
  return shown(readRtf(rtf).plainText().toUtf8());
}

}  // namespace

TEST_F(TextExportsTest, TheManuscriptAsText) {
  const QString head =
      u"   Formatting instructions (delete these lines)/--------------------------------------------------/"
      "Replace [PB] with ^m/Replace <center> with center formatting/"
      "Autoformat to convert *bold* and _italic_ text (e.g. chapter headings)/"
      "--------------------------------------------------////"_s;
  EXPECT_EQ(shown(CombineFiles({}, counting())), head +
                                                     u"//[PB]///////<center>*Arrival*////"
                                                     "one two three//six seven eight nine//"
                                                     "//[PB]///////<center>*Departure*////"_s);
  EXPECT_EQ(steps_, 2);
  steps_ = 0;
  // Nothing parts a scene from an unused one behind it, though that goes in.
  EXPECT_EQ(shown(CombineFiles(kAll, counting())),
            head +
                u"//[PB]///////<center>*Arrival*////"
                "Arrival 1//Tide/out////one two three//Arrival 2/////four five//<center>* * *//"_s +
                u"Departure 1//Tide in///six seven eight nine//"
                "//[PB]///////<center>*Departure*////"
                "//[PB]///////<center>*Cut scenes*////Cut scenes 1/////eleven twelve//"_s);
  EXPECT_EQ(steps_, 4);
}

TEST_F(TextExportsTest, TheManuscriptAsRtf) {
  const QString head =
      u"   Formatting instructions (delete these lines)/--------------------------------------------------/"
      "Replace [PB] with ^m/Autoformat to set *bold* and _italic_ text/"
      "--------------------------------------------------///"_s;
  EXPECT_EQ(plainOf(ExportToRTF({}, counting())), head +
                                                      u"//[PB]//////Arrival///one two three/six seven eight nine"
                                                      "//[PB]//////Departure///"_s);
  EXPECT_EQ(plainOf(ExportToRTF(kAll, [](qint32) {})),
            head +
                u"//[PB]//////Arrival///Arrival 1/Tide/out///one two three/Arrival 2///four five/* * */"
                "Departure 1/Tide in//six seven eight nine//[PB]//////Departure///"
                "//[PB]//////Cut scenes///Cut scenes 1///eleven twelve"_s);
}

TEST_F(TextExportsTest, InRtfTheScenesKeepTheirFormatsAndNothingElseTakesThem) {
  sceneAt(1)->setTextRTF(
      "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Garamond;}{\\f1\\fcharset2 Symbol;}}\\deftab400\\pard\\li600\\qj\\f0\\fs26 "
      "A long line of words, {\\b bold} too.\\par {\\pntext\\f1\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf1{\\pntxtb\\'b7}}"
      "\\fi-200 a point{\\v hidden}\\i\\par}");
  sceneAt(2)->Unused = false;
  sceneAt(2)->setTextRTF("{\\rtf1\\pard\\qr\\f0 Right\\par}");
  const RichText book = readRtf(ExportToRTF({}, [](qint32) {}));
  const qsizetype from = book.text().indexOf(u"A long"_s);
  const RichText first = readRtf(sceneAt(1)->TextRTF());
  EXPECT_EQ(book.slice(from, first.size()), first);
  EXPECT_EQ(book.defaultTab(), 400);
  ASSERT_NE(first.paragraph(1).format->list.style, ListMark::Style::None);
  const struct {
    QString text;
    Alignment alignment;
  } cases[] = {{u"Formatting"_s, Alignment::Left}, {u"[PB]"_s, Alignment::Left},   {u"Arrival"_s, Alignment::Centre},
               {u"* * *"_s, Alignment::Centre},    {u"Right"_s, Alignment::Right}, {u"six"_s, Alignment::Left},
               {u"Departure"_s, Alignment::Centre}};
  for (const auto& one : cases) {
    SCOPED_TRACE(one.text.toStdString());
    const qsizetype at = book.text().indexOf(one.text);
    ASSERT_GE(at, 0);
    const ParagraphFormat& paragraph = book.paragraphFormatAt(at);
    EXPECT_EQ(paragraph.alignment, one.alignment);
    EXPECT_EQ(paragraph.leftIndent, 0);
    EXPECT_EQ(paragraph.list.style, ListMark::Style::None);
    if (one.alignment == Alignment::Centre) {
      CharFormat frame;
      frame.fontName = u"Garamond"_s;
      frame.halfPoints = 26;
      EXPECT_EQ(book.charFormatAt(at), frame);
    }
  }
}

TEST_F(TextExportsTest, TheOutlineAndTheDescriptions) {
  EXPECT_EQ(shown(ExportOutline(counting())),
            u"[chapter] Arrival./[scene] Arrival 1./Tide/out///[scene] Arrival 2.///[scene] Departure 1./Tide in//"
            "[chapter] Departure./[chapter] Cut scenes./[scene] Cut scenes 1.///"_s);
  EXPECT_EQ(shown(ExportDescriptionsByChapter(2, 3, [](qint32) {})),
            u"A small book//Departure///Cut scenes/// 3.1 Cut scenes 1////"_s);
  EXPECT_EQ(shown(ExportDescriptionsByChapter(1, 1, [](qint32) {})),
            u"A small book//Arrival/// 1.1 Arrival 1/Tide/out/// 1.2 Arrival 2//// 1.3 Departure 1/Tide in///"_s);
}

TEST_F(TextExportsTest, NoWordOfAnObfuscatedTextCanBeRead) {
  sceneAt(1)->setTextRTF("{\\rtf1 Good Day, naN_42 \\'c9t\\'e9.\\par It's _she_\\par}");
  EXPECT_EQ(shown(ExportToNano(false, counting())), u"Nnnn Nnn, nnN 42 Éné./Nn'n  nnn /nnn nnnnn nnnnn nnnn///"_s);
  EXPECT_EQ(shown(ExportToNano(true, [](qint32) {})).section(u'/', 2),
            u"nnnn nnnn/nnn nnnnn nnnnn nnnn///nnnnnn nnnnnn//"_s);
  sceneAt(3)->setTextRTF("{\\rtf1 \\u1046?uk}");
  const QByteArray marked = ExportToNano(false, [](qint32) {});
  EXPECT_TRUE(marked.startsWith("\xEF\xBB\xBFNnnn"));
  EXPECT_EQ(shown(marked), u"Nnnn Nnn, nnN 42 Éné./Nn'n  nnn /Жnn///"_s);
}
