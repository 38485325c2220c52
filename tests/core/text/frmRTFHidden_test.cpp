#include "core/text/frmRTFHidden.h"

#include "core/text/Rtf.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Alignment = ParagraphFormat::Alignment;

const QByteArray kScene =
    "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\viewkind4\\uc1\\pard\\f0\\fs20 The \\b red\\b0  Red "
    "fox.\\par\r\n}\r\n";

QList<Alignment> alignments(const RichText& text) {
  QList<Alignment> all;
  for (qsizetype i = 0; i < text.paragraphCount(); ++i) {
    all.append(text.paragraph(i).format->alignment);
  }
  return all;
}

}  // namespace

TEST(RtfWorker, GivesBackUneditedBytes) {
  frmRTFHidden worker;
  worker.SetRTF(kScene);
  EXPECT_EQ(worker.GetPlain(), u"The red Red fox."_s);
  worker.ReplaceAll(u"wolf"_s, u"dog"_s, false);
  worker.ReplaceAll(QString(), u"dog"_s, false);
  worker.AppendText(QString());
  EXPECT_EQ(worker.Text().size(), 16);
  EXPECT_EQ(worker.GetRTF(), kScene);
  worker.SetRTF({});
  EXPECT_EQ(worker.GetPlain(), QString());
  EXPECT_EQ(RtfToPlain(kScene), u"The red Red fox."_s);
}

TEST(RtfWorker, ReplacesInsideTheFormatting) {
  frmRTFHidden worker;
  worker.SetRTF(kScene);
  worker.ReplaceAll(u"red"_s, u"dark red"_s, false);
  EXPECT_EQ(worker.ReplaceCount(), 2);
  EXPECT_EQ(worker.GetPlain(), u"The dark red dark red fox."_s);
  const RichText text = readRtf(worker.GetRTF());
  EXPECT_EQ(text, worker.Text());
  EXPECT_TRUE(text.charFormatAt(4).bold && text.charFormatAt(11).bold);
  EXPECT_FALSE(text.charFormatAt(13).bold);
  worker.ReplaceAll(u"Red"_s, u"x"_s, true);
  EXPECT_EQ(worker.ReplaceCount(), 0);
  worker.SetRTF("{\\rtf1 hoho{\\b ho}hohoho}");
  worker.ReplaceAll(u"ho"_s, u"oh"_s, false);
  worker.ReplaceAll(u"ohoh"_s, {}, false);
  EXPECT_EQ(worker.ReplaceCount(), 3);
  EXPECT_EQ(worker.GetPlain(), QString());
}

TEST(RtfWorker, BuildsADocumentOfTextAndRtf) {
  frmRTFHidden worker;
  worker.SetRTF("Instructions\r\n");
  worker.AppendText(u"\r\n[PB]\r\n"_s);
  worker.AppendTextCentered(u"Chapter One"_s);
  worker.AppendText(u"\r\n\r\n"_s);
  worker.AppendText(kScene);
  worker.AppendTextCentered(u"\r\n* * *\r\n"_s);
  worker.AppendText(kScene);
  worker.InsertText(u"First: "_s);
  EXPECT_EQ(worker.GetPlain(),
            u"First: Instructions\r\n\r\n[PB]\r\nChapter One\r\n\r\nThe red Red fox.\r\n* * *\r\nThe red Red fox."_s);
  const RichText text = readRtf(worker.GetRTF());
  EXPECT_EQ(text, worker.Text());
  const QList<Alignment> wanted{Alignment::Left, Alignment::Left, Alignment::Left,   Alignment::Centre,
                                Alignment::Left, Alignment::Left, Alignment::Centre, Alignment::Left};
  EXPECT_EQ(alignments(text), wanted) << "what was centred, and no more";
  EXPECT_TRUE(text.charFormatAt(text.plainText().lastIndexOf(u"red"_s)).bold);
}

TEST(RtfWorker, GivesRtfWhateverItWasGiven) {
  for (const auto& [given, plain] : {std::pair{QByteArray(), QString()},
                                     {"caf\xe9\r\nnext", u"café\r\nnext"_s},
                                     {"\xEF\xBB\xBF" + kScene, u"The red Red fox."_s}}) {
    frmRTFHidden worker;
    worker.SetRTF(given);
    EXPECT_TRUE(worker.GetRTF().startsWith("{\\rtf1")) << given;
    EXPECT_EQ(rtfToPlainText(worker.GetRTF()), plain) << given;
    EXPECT_EQ(worker.GetPlain(), plain) << given;
  }
  frmRTFHidden worker;
  worker.SetRTF(" /" + kScene);
  EXPECT_EQ(worker.GetRTF(), kScene) << "what follows stays byte for byte";
}
