#include "gui/editor/FontBar.h"

#include "gui/toolkit/Colours.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/Required.h"
#include "support/WaitFor.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Between what a button shows behind its picture and the strongest of the picture's pixels.
double contrastOf(QToolButton& button) {
  const QImage shown = button.grab().toImage();
  const QColor behind = shown.pixelColor(2, 2);
  double best = 1;
  for (int y = 2; y < shown.height() - 2; ++y) {
    for (int x = 2; x < shown.width() - 2; ++x) {
      best = std::max(best, Colours::contrast(shown.pixelColor(x, y), behind));
    }
  }
  return best;
}

TEST(FontBar, ItsButtonsAreReadOnLightAndDarkDesktops) {
  const QPalette desktop = QApplication::palette();
  RichTextBox text;
  FontBar bar(text, nullptr);
  bar.show();
  for (const QColor& background : {QColor(0xef, 0xef, 0xef), QColor(0x2b, 0x2b, 0x2b), QColor(Qt::white)}) {
    QApplication::setPalette(QPalette(background));
    QCoreApplication::processEvents();
    for (const char* const name : {"cmdBold", "cmdItalic", "cmdUnderline"}) {
      auto& button = childOf<QToolButton>(bar, QString::fromLatin1(name));
      EXPECT_GE(contrastOf(button), 4.5) << name << " on " << background.name();
    }
  }
  QApplication::setPalette(desktop);
}

TEST(FontBar, WalkingThroughItsBoxesFormatsNothing) {
  QWidget window;
  auto* const text = new RichTextBox(&window);
  text->setRichText(RichText::fromPlain(u"some words"_s));
  auto* const bar = new FontBar(*text, &window);
  bar->showChoice(u"Arial"_s, u"10"_s);
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

}  // namespace
