#include "gui/editor/FontBar.h"

#include "gui/toolkit/RichTextBox.h"
#include "gui/views/DefaultFont.h"
#include "gui/views/FontLists.h"
#include "support/Required.h"
#include "support/WaitFor.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(FontBar, WalkingThroughItsBoxesFormatsNothing) {
  QWidget window;
  auto* const text = new RichTextBox(&window);
  text->setRichText(RichText::fromPlain(u"some words"_s));
  auto* const bar = new FontBar(*text, &window);
  bar->showChoice({u"Arial"_s, 10});
  bar->fillLists();
  window.show();
  ASSERT_TRUE(waitUntilActive(window));
  const RichText before = text->richText();
  for (const char* const name : {"cmbFontSize", "cmbFont"}) {
    auto& box = childOf<QComboBox>(*bar, QString::fromLatin1(name));
    const QString shown = box.currentText();
    text->select(0, 4);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_FALSE(text->hasFocus()) << name << " sent the keyboard into the text";
    EXPECT_EQ(box.currentText(), shown);
  }
  EXPECT_EQ(text->richText(), before);
}

/// A bar over a text of a bold, a plain and an odd word, with the keyboard in the text.
class FontBarTest : public ::testing::Test {
 protected:
  void SetUp() override {
    RichText words = RichText::fromPlain(u"bold plain odd"_s);
    words.formatCharacters(0, 4, [](CharFormat& format) { format.bold = true; });
    words.formatCharacters(11, 3, [](CharFormat& format) {
      format = {{.halfPoints = 48, .italic = true, .underline = CharLook::Underline::Single}, u"Nowhere Serif"_s};
    });
    QFont font(fontFamilies().first());
    font.setPointSizeF(11);
    text.setFont(font);
    text.setRichText(words);
    text.setFocus();
    bar.setFollowsText(true);
    bar.fillLists();
    bar.move(0, 100);
    window.resize(600, 200);
    window.show();
    ASSERT_TRUE(waitUntilActive(window));
  }

  QComboBox& box(const char* name) { return childOf<QComboBox>(bar, QString::fromLatin1(name)); }
  /// Font, size and the buttons that are on.
  QString shown() {
    QCoreApplication::processEvents();
    QString result = box("cmbFont").currentText() + u'|' + box("cmbFontSize").currentText() + u'|';
    for (const char* const name : {"cmdBold", "cmdItalic", "cmdUnderline"}) {
      result += childOf<QToolButton>(bar, QString::fromLatin1(name)).isChecked() ? QChar::fromLatin1(name[3]) : u'-';
    }
    return result;
  }
  QString typed(const char* name, const QString& what, Qt::Key end) {
    box(name).setFocus();
    box(name).lineEdit()->selectAll();
    QTest::keyClicks(&box(name), what);
    QTest::keyClick(&box(name), end);
    return shown();
  }

  QWidget window;
  RichTextBox& text = *new RichTextBox(&window);
  FontBar& bar = *new FontBar(text, &window);
};

TEST_F(FontBarTest, ShowsWhatAllOfTheSelectionHasAndNothingOfTheRest) {
  const QString own = fontFamilies().first();
  const std::tuple<int, int, QString> cases[] = {
      {0, 4, own + u"|11|B--"_s}, {2, 0, own + u"|11|B--"_s},         {6, 3, own + u"|11|---"_s},
      {0, 8, own + u"|11|---"_s}, {11, 2, u"Nowhere Serif|24|-IU"_s}, {0, 14, u"||---"_s},
      {5, 6, own + u"|11|---"_s},
  };
  const RichText before = text.richText();
  for (const auto& [start, length, expected] : cases) {
    text.select(start, length);
    EXPECT_EQ(shown(), expected) << start << " " << length;
  }
  EXPECT_EQ(text.richText(), before);
  text.select(0, 8);
  QTest::mouseClick(&childOf<QToolButton>(bar, u"cmdBold"_s), Qt::LeftButton);
  EXPECT_EQ(shown(), own + u"|11|B--"_s) << "what is bold in part becomes wholly so";
  EXPECT_TRUE(text.hasFocus());
  bar.setFollowsText(false);
  text.select(11, 2);
  EXPECT_EQ(shown(), own + u"|11|---"_s);
}

TEST_F(FontBarTest, ATypedChoiceIsTakenByReturnAndGivenUpByEscape) {
  text.select(0, 4);
  const QString own = fontFamilies().first();
  const QString before = shown();
  EXPECT_EQ(typed("cmbFontSize", u"36"_s, Qt::Key_Return), before) << "in the list, and too large to be typed";
  EXPECT_EQ(typed("cmbFontSize", u"9"_s, Qt::Key_Escape), before);
  EXPECT_EQ(typed("cmbFont", u"Somewhere Sans"_s, Qt::Key_Escape), before);
  EXPECT_TRUE(text.hasFocus());
  EXPECT_EQ(typed("cmbFontSize", u"9"_s, Qt::Key_Return), own + u"|9|B--"_s);
  EXPECT_TRUE(text.hasFocus());
  EXPECT_EQ(typed("cmbFont", u"Somewhere Sans"_s, Qt::Key_Tab), u"Somewhere Sans|9|B--"_s);
  box("cmbFontSize").setCurrentText(QString());
  Q_EMIT box("cmbFontSize").textActivated(u"48"_s);
  EXPECT_EQ(text.SelFontSize(), 48) << "chosen from the list";
}

}  // namespace
