#include "gui/views/frmFind.h"

#include "support/Required.h"
#include "support/WaitFor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(FindDialog, AWindowThatCanOnlyBeReadIsOfferedNoReplacing) {
  QWidget window;
  frmFind dialog(&window);
  dialog.ask();
  const int whole = dialog.height();
  dialog.offerReplace(false);
  EXPECT_LT(dialog.height(), whole);
  for (const char* const name : {"cmbReplace", "cmdReplace", "cmdReplaceAll"}) {
    EXPECT_FALSE(childOf<QWidget>(dialog, QString::fromLatin1(name)).isVisible()) << name;
  }
  EXPECT_TRUE(childOf<QComboBox>(dialog, u"cmbFind"_s).isVisible());
}

TEST(FindDialog, AsksForWhatWasTypedAndForNothingWithoutIt) {
  QWidget window;
  frmFind dialog(&window);
  QStringList asked;
  QObject::connect(&dialog, &frmFind::DoFind, &dialog,
                   [&](const QString& text, bool matchCase) { asked << (matchCase ? u"case:"_s : QString()) + text; });
  dialog.ask();
  ASSERT_TRUE(waitUntilActive(dialog));
  auto& field = childOf<QComboBox>(dialog, u"cmbFind"_s);
  QTest::keyClick(&field, Qt::Key_Return);
  QTest::keyClick(&field, Qt::Key_F3);
  EXPECT_FALSE(childOf<QPushButton>(dialog, u"cmdFind"_s).isEnabled());
  for (const auto& term : {u"The"_s, u"the"_s, u" then "_s, u"The"_s}) {
    field.setEditText(QString());
    QTest::keyClicks(&field, term);
    QTest::keyClick(&field, Qt::Key_Return);
  }
  // A button that a key presses shows so before it acts.
  QTest::keyClick(&field, Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(waitFor([&] { return childOf<QCheckBox>(dialog, u"chkCaseSensitive"_s).isChecked(); }));
  QTest::keyClick(&field, Qt::Key_F, Qt::AltModifier);
  EXPECT_TRUE(waitFor([&] { return asked.size() == 5; }));
  EXPECT_EQ(asked, QStringList({u"The"_s, u"the"_s, u" then "_s, u"The"_s, u"case:The"_s}));
  QStringList kept;
  for (int i = 0; i < 3; ++i) {
    kept << field.itemText(i);
  }
  EXPECT_EQ(kept, QStringList({u"The"_s, u" then "_s, u"the"_s})) << "the latest first, each once";
}

}  // namespace
