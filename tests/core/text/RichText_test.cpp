#include "core/text/RichText.h"

#include "core/text/RtfSamples.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Alignment = ParagraphFormat::Alignment;

const CharFormat kBold{{.bold = true}};
const ParagraphFormat kCentred{.alignment = Alignment::Centre};

/// "plain bold" CR LF "second", the second paragraph centred.
RichText sample() {
  RichText text = RichText::fromPlain(u"plain "_s);
  text.append(RichText::fromPlain(u"bold"_s, kBold));
  text.append(u"\r\n"_s);
  text.append(RichText::fromPlain(u"second"_s, {}, kCentred));
  return text;
}

std::shared_ptr<const InlineObject> bookmark() {
  InlineObject mark;
  mark.kind = InlineObject::Kind::BookmarkStart;
  mark.label = u"here"_s;
  return std::make_shared<const InlineObject>(mark);
}

/// "ab", an object in bold, "cd": all positions one letter each.
RichText withObject() {
  RichText text = RichText::fromPlain(u"abcd"_s);
  text.insert(2, RichText::fromObject(bookmark(), kBold));
  return text;
}

QList<qsizetype> objectsIn(const RichText& text) {
  QList<qsizetype> places;
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (text.charFormatAt(at).object) {
      EXPECT_EQ(text.text()[at], QChar(QChar::ObjectReplacementCharacter));
      places.append(at);
    }
  }
  return places;
}

/// What every text keeps to, whatever was done to it.
void expectSound(const RichText& text) {
  const QString& plain = text.text();
  qsizetype end = 0;
  for (qsizetype i = 0; i < text.runCount(); ++i) {
    ASSERT_EQ(text.run(i).start, end);
    ASSERT_GT(text.run(i).length, 0);
    ASSERT_TRUE(i == 0 || *text.run(i).format != *text.run(i - 1).format);
    end += text.run(i).length;
    ASSERT_FALSE(end < plain.size() && plain[end] == u'\n') << "a run ends inside a line end";
  }
  ASSERT_EQ(end, text.size() + 1);
  qsizetype start = 0;
  for (qsizetype i = 0; i < text.paragraphCount(); ++i) {
    const auto paragraph = text.paragraph(i);
    ASSERT_EQ(paragraph.start, start);
    start += paragraph.length + 2;
    ASSERT_LE(start, text.size() + 2);
    ASSERT_TRUE(i + 1 == text.paragraphCount() || plain.sliced(start - 2, 2) == u"\r\n"_s);
  }
  ASSERT_EQ(start, text.size() + 2);
  QString withoutLineEnds = plain;
  withoutLineEnds.remove(u"\r\n"_s);
  ASSERT_FALSE(withoutLineEnds.contains(u'\r') || withoutLineEnds.contains(u'\n'));
}

}  // namespace

TEST(RichText, LineEndsOfEveryKindBecomeCrLf) {
  const RichText text = RichText::fromPlain(u"a\nb\rc\r\nd\u2029e\u2028f\vg\uFFFC"_s + QChar(0) + u"h"_s);
  EXPECT_EQ(text.text(), u"a\r\nb\r\nc\r\nd\r\ne\r\nf\r\ngh"_s);
  EXPECT_EQ(text.paragraphCount(), 5);
  expectSound(text);
}

TEST(RichText, ReplacingKeepsTheFormatOfTheFirstCharacter) {
  RichText text = sample();
  text.replace(6, 4, u"x\ny"_s);
  EXPECT_EQ(text.text(), u"plain x\r\ny\r\nsecond"_s);
  EXPECT_TRUE(text.charFormatAt(6).bold && text.charFormatAt(9).bold);
  EXPECT_EQ(text.paragraphFormatAt(9).alignment, Alignment::Left);
  text.insert(0, u"0"_s);
  EXPECT_FALSE(text.charFormatAt(0).bold);
  text.insert(11, u"!"_s);
  EXPECT_TRUE(text.charFormatAt(11).bold) << "text put in goes on like the character in front";
  expectSound(text);
}

TEST(RichText, JoinedParagraphsKeepTheFormatOfWhatStays) {
  for (const auto& [from, length, plain, alignment] : {std::tuple{8, 6, u"plain bocond"_s, Alignment::Left},
                                                       {0, 12, u"second"_s, Alignment::Centre},
                                                       {10, 2, u"plain boldsecond"_s, Alignment::Left},
                                                       {11, 0, u"plain bold\r\nsecond"_s, Alignment::Left},
                                                       {11, 1, u"plain boldsecond"_s, Alignment::Left},
                                                       {-5, 99, QString(), Alignment::Centre}}) {
    RichText text = sample();
    text.remove(from, length);
    EXPECT_EQ(text.text(), plain);
    EXPECT_EQ(text.paragraphFormatAt(0).alignment, alignment) << plain;
    expectSound(text);
  }
}

TEST(RichText, RichTextPutInBringsItsParagraphs) {
  RichText text = sample();
  text.insert(2, RichText::fromPlain(u"A\nB"_s, kBold, kCentred));
  EXPECT_EQ(text.text(), u"plA\r\nBain bold\r\nsecond"_s);
  EXPECT_EQ(text.paragraphFormatAt(0).alignment, Alignment::Left) << "text in front keeps its paragraph";
  EXPECT_EQ(text.paragraphFormatAt(5).alignment, Alignment::Left) << "and so does text behind";
  text.append(u"\n"_s);
  text.append(RichText::fromPlain(u"R"_s, {}, {.alignment = Alignment::Right}));
  EXPECT_EQ(text.paragraphFormatAt(text.size()).alignment, Alignment::Right)
      << "an empty paragraph takes the new one's";
  text.append(text);
  expectSound(text);
}

TEST(RichText, ReplaceAllFindsEachMatchOnce) {
  for (const auto& [given, find, with, caseSensitivity, result, count] :
       {std::tuple{u"aXbxc"_s, u"x"_s, u"xx"_s, Qt::CaseInsensitive, u"axxbxxc"_s, 2},
        {u"aXbxc"_s, u"x"_s, u"xx"_s, Qt::CaseSensitive, u"aXbxxc"_s, 1},
        {u"aaa"_s, u"aa"_s, u"b"_s, Qt::CaseSensitive, u"ba"_s, 1},
        {u"aaa"_s, u""_s, u"b"_s, Qt::CaseSensitive, u"aaa"_s, 0},
        {u"É é"_s, u"é"_s, u""_s, Qt::CaseInsensitive, u" "_s, 2},
        {u"a\r\nb\r\nc"_s, u"\r\n"_s, u", "_s, Qt::CaseSensitive, u"a, b, c"_s, 2},
        {u"a\r\nb"_s, u"\n"_s, u" "_s, Qt::CaseSensitive, u"a b"_s, 1},
        {u"a;b"_s, u";"_s, u"\n"_s, Qt::CaseSensitive, u"a\r\nb"_s, 1}}) {
    RichText text = RichText::fromPlain(given);
    EXPECT_EQ(text.replaceAll(find, with, caseSensitivity), count) << given;
    EXPECT_EQ(text.text(), result);
    expectSound(text);
  }
}

TEST(RichText, FormatsApplyToTheRangeAlone) {
  RichText text = sample();
  const RichText before = text;
  text.formatCharacters(3, 5, [](CharFormat& format) { format.colour = 0xFF0000; });
  EXPECT_EQ(text.charFormatAt(2).colour, std::nullopt);
  EXPECT_EQ(text.charFormatAt(3).colour, 0xFF0000U);
  EXPECT_TRUE(text.charFormatAt(7).bold);
  EXPECT_EQ(text.charFormatAt(8).colour, std::nullopt);
  text.formatCharacters(0, -1, [](CharFormat& format) { format.colour.reset(); });
  EXPECT_EQ(text, before) << "runs that are alike again join";
  text.formatParagraphs(2, 10, [](ParagraphFormat& format) { format.leftIndent = 200; });
  EXPECT_EQ(text.paragraphFormatAt(0).leftIndent, 200);
  EXPECT_EQ(text.paragraphFormatAt(12).leftIndent, 0) << "a range that ends at a paragraph's start leaves it alone";
  EXPECT_EQ(before.paragraphFormatAt(0).leftIndent, 0) << "a copy stays as it was";
}

TEST(RichText, AnEmptyTextKeepsTheFormatThatTypingStartsWith) {
  RichText text;
  text.formatCharacters(0, -1, [](CharFormat& format) { format.fontName = u"Arial"_s; });
  text.append(u"typed"_s);
  EXPECT_EQ(text.charFormatAt(0).fontName, u"Arial"_s);
}

TEST(RichText, StaysSoundUnderAnyEdits) {
  QRandomGenerator random(7);
  for (int i = 0; i < 1000; ++i) {
    RichText text = randomRichText(random);
    const auto position = [&] { return random.bounded(static_cast<int>(text.size()) + 3) - 1; };
    text.replace(position(), random.bounded(5), randomRichText(random));
    expectSound(text);
    text.replace(position(), random.bounded(5), u"x\u2028\ny"_s);
    expectSound(text);
    text.replaceAll(u"o"_s, u"\n"_s, Qt::CaseInsensitive);
    text.formatParagraphs(position(), random.bounded(9), [](ParagraphFormat& format) { format.leftIndent += 20; });
    expectSound(text);
    expectSound(text.slice(position(), random.bounded(9)));
    ASSERT_FALSE(testing::Test::HasFatalFailure());
  }
}

TEST(RichText, NewTextTakesNoObjectOn) {
  using Places = QList<qsizetype>;
  for (const auto& [from, length, plain, objects] : {std::tuple{2, 0, u"abXYcd"_s, Places{4}},
                                                     {3, 0, u"abXYcd"_s, Places{2}},
                                                     {2, 1, u"abXYcd"_s, Places()},
                                                     {1, 2, u"aXYcd"_s, Places()},
                                                     {3, 1, u"abXYd"_s, Places{2}}}) {
    RichText text = withObject();
    text.replace(from, length, u"XY\uFFFC"_s);
    EXPECT_EQ(text.plainText(), plain) << from << ' ' << length;
    EXPECT_EQ(objectsIn(text), objects) << from << ' ' << length;
    expectSound(text);
  }
  RichText alone = RichText::fromObject(bookmark(), kBold);
  alone.append(u"x"_s);
  EXPECT_EQ(alone.plainText(), u"x"_s);
  EXPECT_TRUE(alone.charFormatAt(1).bold) << "but how it looks";
}

TEST(RichText, AnObjectIsAPositionAndNoText) {
  RichText text = withObject();
  EXPECT_EQ(text.size(), 5);
  EXPECT_EQ(text.plainText(), u"abcd"_s);
  EXPECT_EQ(text.slice(1, 3).plainText(), u"bc"_s);
  EXPECT_EQ(objectsIn(text.slice(1, 3)), QList<qsizetype>{1});
  const RichText twice = [&] {
    RichText two = text;
    two.insert(2, text.slice(2, 1));
    return two;
  }();
  EXPECT_EQ(objectsIn(twice), (QList<qsizetype>{2, 3}));
  text.remove(2, 1);
  EXPECT_EQ(text, RichText::fromPlain(u"abcd"_s));
  RichText hidden = RichText::fromPlain(u"a\nb\nc"_s);
  hidden.formatCharacters(1, 3, [](CharFormat& format) { format.hidden = true; });
  EXPECT_EQ(hidden.plainText(), u"a\r\nc"_s) << "a hidden paragraph end joins";
  const auto places = [](const RichText& read) {
    QList<qsizetype> at;
    for (qsizetype place = 0; place <= read.plainText().size(); ++place) {
      at.append(read.positionOfRead(place));
    }
    return at;
  };
  EXPECT_EQ(places(twice), (QList<qsizetype>{0, 1, 4, 5, 6}));
  EXPECT_EQ(places(hidden), (QList<qsizetype>{0, 4, 5, 6, 7}));
  EXPECT_EQ(places(RichText()), QList<qsizetype>{0});
}

TEST(RichText, ReplacingNeverFindsAnObject) {
  RichText text = withObject();
  EXPECT_EQ(text.replaceAll(u"\uFFFC"_s, u"x"_s, Qt::CaseSensitive), 0);
  EXPECT_EQ(text.replaceAll(u"bc"_s, u"x"_s, Qt::CaseSensitive), 0) << "it stands between";
  EXPECT_EQ(text.replaceAll(u"b"_s, u"x"_s, Qt::CaseSensitive), 1);
  EXPECT_EQ(text.replaceAll(u"c"_s, u""_s, Qt::CaseSensitive), 1);
  EXPECT_EQ(text.plainText(), u"axd"_s);
  EXPECT_EQ(objectsIn(text), QList<qsizetype>{2});
}

TEST(RichText, FormattingLeavesObjectsAlone) {
  RichText text = withObject();
  text.formatCharacters(0, -1, [](CharFormat& format) { format = CharFormat{{.italic = true}, u"Arial"_s}; });
  EXPECT_EQ(objectsIn(text), QList<qsizetype>{2});
  EXPECT_EQ(*text.charFormatAt(2).object, *bookmark());
  EXPECT_TRUE(text.charFormatAt(2).italic && !text.charFormatAt(2).bold);
  text.formatCharacters(0, 2, [](CharFormat& format) { format.object = bookmark(); });
  EXPECT_EQ(objectsIn(text), QList<qsizetype>{2}) << "and makes none";
}

TEST(RichText, TextBehindALinkIsNoPartOfIt) {
  CharFormat link;
  link.field = u"HYPERLINK \"https://example.org\""_s;
  RichText text = RichText::fromPlain(u"see "_s);
  text.append(RichText::fromPlain(u"this"_s, link));
  text.append(u"."_s);
  text.insert(4, u"all "_s);
  text.insert(10, u"x"_s);
  EXPECT_EQ(text.text(), u"see all thxis."_s);
  for (qsizetype at = 0; at < text.size(); ++at) {
    EXPECT_EQ(!text.charFormatAt(at).field.isEmpty(), at >= 8 && at < 13) << at;
  }
  text.replace(8, 5, u"that"_s);
  EXPECT_FALSE(text.charFormatAt(8).field.isEmpty()) << "what replaces it is";
}
