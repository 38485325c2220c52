#include "core/text/RtfPicture.h"

#include "support/Mutations.h"

#include <gtest/gtest.h>
#include <random>

namespace {

using Kind = RtfPicture::Kind;

/// The head and the bytes of what is found, for comparison.
struct Found {
  bool any = false;
  Kind kind = Kind::Other;
  QByteArray bytes;
  bool operator==(const Found&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Found& found) {
  return out << found.any << ' ' << int(found.kind) << ' ' << found.bytes.toHex().constData();
}

Found foundIn(QByteArrayView group) {
  const auto picture = findRtfPicture(group);
  return picture ? Found{true, picture->kind, rtfPictureBytes(*picture)} : Found();
}

TEST(RtfPicture, IsFoundInEachKindOfGroup) {
  const std::pair<QByteArray, Found> cases[] = {
      {"", {}},
      {"\\object\\objemb{\\*\\objdata 0102}", {}},
      {"\\pict", {true, Kind::Other, ""}},
      {"\\pict\\macpict\\picw3 0aFf", {true, Kind::Other, "\x0A\xFF"}},
      {"\\pict\\wmetafile8 01\r\n 0 2\t03\n4", {true, Kind::Metafile, "\x01\x02\x03"}},
      {"\\pict{\\*\\picprop{\\sp{\\sn a}{\\sv abc}}}\\pngblip\\bliptag-12{\\*\\blipuid 0123}\r\n89504e47}\\par ab",
       {true, Kind::Png, "\x89PNG"}},
      {"\\pict\\jpegblip ffd8\\par 00", {true, Kind::Jpeg, "\xFF\xD8"}},
      {QByteArray("\\pict\\dibitmap0\\bin6 }{\\\0a 0a}", 31), {true, Kind::Bitmap, QByteArray("}{\\\0a ", 6)}},
      {"\\pict\\dibitmap0\\bin3abcd", {true, Kind::Bitmap, "abc"}},
      {"\\pict\\emfblip\\bin99 short", {true, Kind::Enhanced, "short"}},
      {"\\pict\\pngblip\\bin0 \\bin-5 0102", {true, Kind::Png, "\x01\x02"}},
      {"\\shppict{\\pict\\pngblip 01}}\r\n{\\nonshppict{\\pict\\wmetafile8 0203}", {true, Kind::Png, "\x01"}},
      {"\\shppict{\\pict\\macpict 01}}{\\nonshppict{\\pict\\wmetafile8 0203}", {true, Kind::Metafile, "\x02\x03"}},
      {"\\shppict{\\pict\\pngblip}}{\\nonshppict{\\pict\\jpegblip 02}", {true, Kind::Jpeg, "\x02"}},
      {"\\shppict{\\pict\\pmmetafile1 01}}{\\nonshppict{\\pict 0203}", {true, Kind::Other, "\x01"}},
      {"\\object\\objemb{\\*\\objclass Excel}{\\*\\objdata 0105}{\\result \\pard{\\pict\\emfblip 0304}}",
       {true, Kind::Enhanced, "\x03\x04"}},
      {"\\shp{\\*\\shpinst{\\sp{\\sn pib}{\\sv {\\pict\\jpegblip ff}}}}", {true, Kind::Jpeg, "\xFF"}},
  };
  for (const auto& [group, expected] : cases) {
    EXPECT_EQ(foundIn(group), expected) << group.constData();
  }
}

TEST(RtfPicture, HeadIsTheBeginningOfTheBytes) {
  for (const QByteArray& group :
       {QByteArray("\\pict\\pngblip\n0102 0304}05"), QByteArray("\\pict\\pngblip\\bin4 \1\2\3\4}", 24)}) {
    const auto picture = findRtfPicture(group);
    ASSERT_TRUE(picture);
    EXPECT_EQ(rtfPictureHead(*picture, 3), "\1\2\3");
    EXPECT_EQ(rtfPictureHead(*picture, 100), "\1\2\3\4");
  }
}

TEST(RtfPicture, SizeIsTheGoalCroppedAndScaled) {
  const std::pair<QByteArray, QSize> cases[] = {
      {"\\picw100\\pich100\\picwgoal1000", QSize()},
      {"\\picwgoal1000\\pichgoal500", {1000, 500}},
      {"\\picwgoal1000\\pichgoal500\\picscalex50\\picscaley200", {500, 1000}},
      {"\\picwgoal1000\\pichgoal500\\picscalex50\\piccropl100\\piccropr300\\piccropt50\\piccropb0", {300, 450}},
      {"\\picwgoal1000\\pichgoal500\\picscalex0\\picscaley-3\\piccropl-200\\piccropt400\\piccropb100", {1000, 500}},
      {"\\picwgoal2147483647\\pichgoal9\\picscalex99999999999\\piccropr1\\piccropl-9999999999", {2147483647, 9}},
  };
  for (const auto& [words, size] : cases) {
    const QByteArray group = "\\pict\\pngblip" + words + " 00";
    const auto picture = findRtfPicture(group);
    ASSERT_TRUE(picture);
    EXPECT_EQ(rtfPictureSize(*picture), size) << group.constData();
  }
}

TEST(RtfPicture, AnyBytesGiveBytesInsideOfTheGroup) {
  const QByteArray whole(
      "\\shppict{\\pict{\\*\\picprop{\\sv 1}}\\macpict\\picw-5\\bin4 {}\\ }}{\\nonshppict{\\pict\\wmetafile8 01 02}}"
      "{\\object{\\result{\\pict\\pngblip{\\*\\blipuid 01}8950}}}");
  const QList<QByteArray> snippets{"{", "}", "\\", "\\pict", "\\pict\\pngblip ", "\\bin9 ", "\\bin2147483647 ", "0a"};
  std::minstd_rand random(5);
  QList<QByteArray> groups;
  for (qsizetype size = 0; size <= whole.size(); ++size) {
    // A copy of its own size lets a checker of memory see what is read behind it.
    groups.append(whole.first(size));
  }
  for (int i = 0; i < 3000; ++i) {
    groups.append(mutated(whole, random, snippets));
  }
  for (const QByteArray& group : groups) {
    const auto picture = findRtfPicture(group);
    if (picture && !picture->data.isEmpty()) {
      EXPECT_GE(picture->data.begin(), group.begin());
      EXPECT_LE(picture->data.end(), group.end());
      EXPECT_TRUE(rtfPictureBytes(*picture).startsWith(rtfPictureHead(*picture, 5)));
    }
  }
}

TEST(RtfPicture, DeepAndLongGroupsTakeLinearTime) {
  for (const QByteArray piece : {"{\\pict", "\\pict\n \n", "{\\pict{", "}{\\pict\\bin ", "\\pict{\\*\\blipuid 00}"}) {
    EXPECT_TRUE(findRtfPicture("\\pict" + piece.repeated(300'000))) << piece.constData();
  }
}

}  // namespace
