// Whoever hears the program instead of seeing it is told what each control is that takes the keyboard.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/EveryWindow.h"
#include "gui/shell/MainWindow.h"
#include "gui/toolkit/QtToolkit.h"
#include "support/ModalHelper.h"
#include "support/Required.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

QString placeOf(const QWidget* widget) {
  QStringList path;
  for (; widget != nullptr; widget = widget->parentWidget()) {
    path.prepend(QString::fromLatin1(widget->metaObject()->className()) + u' ' + widget->objectName());
  }
  return path.join(u" > "_s);
}

QString spokenName(QWidget* widget) {
  const QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(widget);
  return spoken == nullptr ? QString() : spoken->text(QAccessible::Name).trimmed();
}

/// The controls of all windows there are, shown or hidden, that take the keyboard and say nothing of themselves.
QStringList nameless() {
  QStringList found;
  for (QWidget* const widget : QApplication::allWidgets()) {
    if (widget->focusPolicy() != Qt::NoFocus && spokenName(widget).isEmpty()) {
      found.append(placeOf(widget));
    }
  }
  return found;
}

}  // namespace

class AccessibleNamesTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
  }
};

TEST_F(AccessibleNamesTest, EveryControlThatTakesTheKeyboardHasOne) {
  g_Project->SceneByID(1)->Edit();
  ASSERT_NE(editor(), nullptr);
  ASSERT_TRUE(soon([this] { return childOf<QComboBox>(openEditor(), u"cmbFont"_s).count() > 0; }));
  const EveryWindow windows(window());
  EXPECT_EQ(nameless(), QStringList());
}

TEST_F(AccessibleNamesTest, TheBoxesHaveThemToo) {
  QtToolkit screen;
  {
    const WhenModal look([](QWidget& box) {
      EXPECT_EQ(nameless(), QStringList());
      box.close();
    });
    screen.MsgBox(u"Carry on?"_s, Buttons::YesNoOrBack);
  }
  const WhenModal look([](QWidget& box) {
    EXPECT_EQ(nameless(), QStringList());
    box.close();
  });
  screen.InputBox(u"Name:"_s, {}, u"Chapter"_s);
}
