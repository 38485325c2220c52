// Whoever hears the program instead of seeing it is told what each control is that takes the keyboard.

#include "core/infra/ErrorReport.h"
#include "core/infra/clsHashTable.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/exchange/frmImportWIP.h"
#include "gui/planning/frmChart.h"
#include "gui/planning/frmStoryboard.h"
#include "gui/planning/frmWordTarget.h"
#include "gui/sheets/frmEditChapter.h"
#include "gui/sheets/frmEditCharacter.h"
#include "gui/sheets/frmEditThing.h"
#include "gui/sheets/frmList.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/windows/fSHAREDProxy.h"
#include "gui/shell/windows/fSHAREDUpdater.h"
#include "gui/shell/windows/frmAbout.h"
#include "gui/shell/windows/frmBackupViewer.h"
#include "gui/shell/windows/frmDebug.h"
#include "gui/shell/windows/frmEditProject.h"
#include "gui/shell/windows/frmGlobalReplace.h"
#include "gui/shell/windows/frmLostAndFound.h"
#include "gui/shell/windows/frmOverview.h"
#include "gui/shell/windows/frmProblemWords.h"
#include "gui/shell/windows/frmProjectWizard.h"
#include "gui/shell/windows/frmSceneList.h"
#include "gui/toolkit/QtToolkit.h"
#include "gui/toolkit/fSHAREDErrorRpt.h"
#include "gui/toolkit/fSHAREDGetDate.h"
#include "gui/toolkit/fSHAREDLogViewer.h"
#include "gui/views/frmPickChapters.h"
#include "gui/views/frmPrintPreview.h"
#include "gui/views/frmPrinterSetup.h"
#include "gui/views/frmWordCount.h"
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
  // A window that is new in the program joins the others here.
  g_Project->SceneByID(1)->Edit();
  ASSERT_NE(editor(), nullptr);
  ASSERT_TRUE(soon([this] { return childOf<QComboBox>(openEditor(), u"cmbFont"_s).count() > 0; }));
  const clsHashTable noWords;
  frmWordCount words;
  words.FillForm(noWords);
  DateEntry entry(false, u"/"_s, QDate(2026, 3, 2));
  fSHAREDGetDate date(entry, u"When?"_s);
  fSHAREDErrorRpt report(ErrorReport::about(u"Error 61 - Disk full"_s), {});
  fSHAREDLogViewer log;
  frmAbout about(&window());
  const fSHAREDUpdater updater(&window());
  const fSHAREDProxy proxy(&window());
  const frmLostAndFound lost(&window());
  const frmBackupViewer backups(&window());
  const frmEditProject settings(ProjectSettings::of(*g_Project), &window());
  const frmProblemWords problems(&window());
  const frmGlobalReplace replacing(&window());
  const frmProjectWizard wizard(&window());
  const frmImportWIP import(&window());
  const frmSceneList scenes(&window());
  const frmStoryboard board(&window());
  const frmChart chart(&window());
  const frmWordTarget target({}, 0, &window());
  const frmPickChapters chapters(&window());
  frmPrinterSetup printer(&window());
  printer.OfferPreview({});
  printer.OfferDetails();
  const frmPrintPreview preview(std::make_shared<const PrintDocument>(), &window());
  const frmOverview overview(&window());
  const frmDebug debug(&window());
  const SheetSubject subject{EntityKind::Item, 1, nullptr};
  const frmEditChapter chapter(subject);
  const frmEditCharacter character(subject);
  const frmEditThing thing(subject);
  frmList cast;
  cast.SetupFor(kListCharacters, true);
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
