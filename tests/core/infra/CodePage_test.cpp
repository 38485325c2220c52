#include "core/infra/CodePage.h"

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

TEST(CodePage, EveryByteSurvives) {
  QByteArray all;
  for (int byte = 0; byte < 256; ++byte) {
    all.append(static_cast<char>(byte));
  }
  EXPECT_EQ(CodePage::toBytes(CodePage::fromBytes(all)), all);
  EXPECT_TRUE(CodePage::canEncode(CodePage::fromBytes(all)));
  EXPECT_EQ(CodePage::fromBytes("\x80\x93\x9D\xE9"), u"\u20AC\u201C\u009D\u00E9"_s);
}

TEST(CodePage, WhatItLacksIsAQuestionMarkOrAMark) {
  EXPECT_EQ(CodePage::toBytes(u"a\u0416\U0001F600\u0080"), "a????");
  EXPECT_FALSE(CodePage::canEncode(u"\u0416"));
  const std::pair<QString, QByteArray> marked[] = {
      {u"\u0416"_s, "%u0416"}, {u"\U0001F600"_s, "%uD83D%uDE00"}, {u"100%"_s, "100%"},           {u"%u"_s, "%u"},
      {u"%u12x4"_s, "%u12x4"}, {u"%u0416"_s, "%u0025u0416"},      {u"%%u0041"_s, "%%u0025u0041"}};
  for (const auto& [text, bytes] : marked) {
    EXPECT_EQ(CodePage::toMarkedBytes(text), bytes);
    EXPECT_EQ(CodePage::fromMarkedBytes(bytes), text);
  }
}

TEST(CodePage, AnyTextComesBackFromMarkedBytes) {
  std::mt19937 random(20260101);
  const QString alphabet = u"%%%uu0123456789ABCDEFabcdefxyz\u0416\u20AC\u00E9\u0080\U0001F600\r\n\0"_s;
  std::uniform_int_distribution<qsizetype> pick(0, alphabet.size() - 1);
  for (int round = 0; round < 2000; ++round) {
    QString text;
    for (qsizetype i = pick(random); i >= 0; --i) {
      text.append(alphabet[pick(random)]);
    }
    ASSERT_EQ(CodePage::fromMarkedBytes(CodePage::toMarkedBytes(text)), text);
    const QByteArray line = CodePage::toMarkedLine(text);
    ASSERT_EQ(CodePage::fromMarkedBytes(line), text);
    ASSERT_FALSE(line.contains('\r') || line.contains('\n')) << line.constData();
  }
}
