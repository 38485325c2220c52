#include "core/spell/TextMarks.h"

#include "core/spell/CaretWord.h"

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// The marks painted under the text: "." for none, "n" for a name, "m" for a misspelling.
QString painted(qsizetype length, const TextMarks& marks) {
  QString row(length, u'.');
  for (const TextMark& mark : marks) {
    for (qsizetype at = mark.start; at < mark.end(); ++at) {
      EXPECT_EQ(row[at], u'.') << "one mark over another";
      row[at] = mark.kind == TextMark::Kind::Name ? u'n' : u'm';
    }
  }
  EXPECT_TRUE(std::is_sorted(marks.begin(), marks.end(), [](auto& a, auto& b) { return a.start < b.start; }));
  return row;
}

}  // namespace

TEST(TextMarks, NamesAreFoundWhereverTheyStand) {
  const std::tuple<QString, QStringList, QString> cases[] = {
      {u"Anne met Annette."_s, {u"Anne"_s}, u"nnnn.....nnnn...."_s},
      {u"anne ANNE Anne"_s, {u" Anne "_s}, u"..........nnnn"_s},
      {u"Anne Lee Lee"_s, {u"Anne"_s, u"Lee"_s, u"Anne Lee"_s}, u"nnnnnnnn.nnn"_s},
      {u"xAnAnAx"_s, {u"AnA"_s}, u".nnnnn."_s},
      {u"Жук Ann"_s, {u"Жук"_s, u""_s, u"  "_s}, u"nnn...."_s},
      {u"Ann"_s, {u"Anna"_s, u"Annabel"_s}, u"..."_s},
      {u""_s, {u"Ann"_s}, u""_s}};
  for (const auto& [text, names, row] : cases) {
    EXPECT_EQ(painted(text.size(), findNames(text, names)), row) << text.toStdString();
  }
}

TEST(TextMarks, ACharacterIsKnownByAllItsNamesUnlessItsTitleIsShort) {
  EXPECT_EQ(namesToMark(u"Zoe"_s, u"Zoe Park"_s, u"Zo; Miss Park"_s),
            QStringList({u"Zoe"_s, u"Zoe Park"_s, u"Zo"_s, u" Miss Park"_s}));
  EXPECT_EQ(namesToMark(u"Al"_s, u"Albert"_s, u"Bertie"_s), QStringList());
}

TEST(TextMarks, ANameGoesOverAMisspellingPieceByPiece) {
  constexpr int kTexts = 3000;
  std::mt19937 random(7);
  const auto someMarks = [&](qsizetype length, TextMark::Kind kind) {
    TextMarks marks;
    for (qsizetype at = static_cast<qsizetype>(random() % 4); at < length;) {
      const auto size = std::min<qsizetype>(1 + static_cast<qsizetype>(random() % 6), length - at);
      marks.push_back({at, size, kind});
      at += size + 1 + static_cast<qsizetype>(random() % 4);
    }
    return marks;
  };
  for (int i = 0; i < kTexts; ++i) {
    const auto length = static_cast<qsizetype>(random() % 40);
    const TextMarks wrong = someMarks(length, TextMark::Kind::Misspelling);
    const TextMarks names = someMarks(length, TextMark::Kind::Name);
    QString expected = painted(length, wrong);
    for (const TextMark& name : names) {
      expected.replace(name.start, name.length, QString(name.length, u'n'));
    }
    ASSERT_EQ(painted(length, laidOver(wrong, names)), expected);
  }
}

TEST(TextMarks, ThePossessiveOfANameIsRightWhateverTheNameEndsIn) {
  const QString text = u"Bingley's dgo's Jr.’s s"_s;
  TextMarks wrong;
  for (const auto& [start, length] : {std::pair{0, 9}, {10, 5}, {16, 2}, {20, 1}, {22, 1}}) {
    wrong.push_back({start, length, TextMark::Kind::Misspelling});
  }
  EXPECT_EQ(painted(text.size(), withoutPossessives(wrong, {u"Bingley"_s, u" Jr. "_s, u""_s}, text)),
            u"mmmmmmm...mmmmm.mm....m"_s);
}

TEST(TextMarks, ARightClickSelectsTheWordAtTheCaret) {
  struct Case {
    QString text;
    qsizetype caret;
    QString word;
  };
  for (const Case& known :
       {Case{u"one wrod three"_s, 6, u"wrod"_s}, Case{u"one wrod three"_s, 4, u"wrod"_s},
        Case{u"one wrod three"_s, 8, u"wrod"_s}, Case{u"wrod."_s, 2, u"wrod"_s},
        Case{u"x\r\nwrod\r\ny"_s, 4, u"wrod"_s}, Case{u"wrod!?'\""_s, 0, u"wrod"_s}, Case{u"wrod?!"_s, 0, u"wrod?"_s},
        Case{u"wrod'\""_s, 0, u"wrod"_s}, Case{u"\"wrod\""_s, 3, u"\"wrod"_s}, Case{u"wrod, x"_s, 3, u"wrod,"_s},
        Case{u""_s, 0, u""_s}, Case{u"wrod"_s, 99, u"wrod"_s}, Case{u"wrod"_s, -1, u"wrod"_s},
        Case{u"a  b"_s, 2, u""_s}}) {
    const TextMark found = wordAtCaret(known.text, known.caret);
    EXPECT_EQ(known.text.mid(found.start, found.length), known.word) << known.text.toStdString() << known.caret;
  }
}
