// Qt's own dialogs in the language that is chosen.

#include "core/infra/cSharedLang.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/main/InterfaceLanguage.h"
#include "gui/toolkit/LanguageHook.h"
#include "gui/toolkit/QtPrinters.h"
#include "gui/toolkit/QtToolkit.h"
#include "gui/toolkit/cSharedPrinter.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

class LanguageOfQtTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    QDir().mkpath(folder.path(u"Languages"_s));
    Lang().OverrideLanguagePath(folder.path());
    writeFile(folder.path(u"Languages/x.txt"_s),
              u"Pröbe\nLocation||Schauplatz\nQPrintWidget|Location||Standort\nLandscape||Quer\nPrint range||Bereich\n"
              "QShortcut|Ctrl||Strg\nProperties||Mehr\nName||Datei\nDate Modified||Am\nOpen||Öffnen\nLocal file||Open\n"
              "%1 already exists.\\nDo you want to replace it?||Es gibt %1.\\nErsetzen?\n"_s.toUtf8());
    startWith(smallProject());
    fillLanguageMenu(window());
    EXPECT_TRUE(useLanguage(window(), u"Pröbe"_s));
  }
  void TearDown() override {
    useLanguage(0);
    ShellTest::TearDown();
  }
};

QLabel& labelSaying(const QWidget& dialog, const QString& text) {
  for (QLabel* const label : dialog.findChildren<QLabel*>()) {
    if (label->text() == text) {
      return *label;
    }
  }
  throw std::runtime_error("no label " + text.toStdString());
}

}  // namespace

TEST_F(LanguageOfQtTest, AFileDialogAsksAndListsInIt) {
  writeFile(folder.path(u"Open.qn4"_s), "words");
  QtToolkit screen;
  const WhenModal save([](QWidget& dialog) {
    const QAbstractItemModel& files = *childOf<QTreeView>(dialog, u"treeView"_s).model();
    EXPECT_EQ(files.headerData(0, Qt::Horizontal).toString(), u"Datei"_s);
    EXPECT_EQ(files.headerData(3, Qt::Horizontal).toString(), u"Am"_s);
    {
      const WhenModal replace([](QWidget& box) {
        EXPECT_EQ(childOf<QLabel>(box, u"qt_msgbox_label"_s).text(), u"Es gibt Open.qn4.\nErsetzen?"_s);
        box.close();
      });
      QTest::keyClick(&childOf<QLineEdit>(dialog), Qt::Key_Return);
    }
    dialog.close();
  });
  EXPECT_EQ(screen.SaveFileDialog({u"Where?"_s, u"*.qn4"_s, u"Open"_s, folder.path()}), QString());
}

TEST_F(LanguageOfQtTest, APrinterStandsSomewhereElseThanAScene) {
  const WhenModal choose([](QWidget& dialog) {
    EXPECT_TRUE(labelSaying(dialog, u"Standort:"_s).isVisible());
    EXPECT_TRUE(labelSaying(dialog, u"Open"_s).isVisible()) << "looked up once";
    EXPECT_EQ(childOf<QWidget>(dialog, u"gbPrintRange"_s).property("title").toString(), u"Bereich"_s);
    EXPECT_EQ(childOf<QPushButton>(dialog, u"properties"_s).text().remove(u'&'), u"Mehr"_s);
    EXPECT_TRUE(childOf<QPushButton>(dialog, u"properties"_s).text().contains(u'&')) << "keeps a key";
    dialog.close();
  });
  EXPECT_EQ(QtPrinters().choose(cSharedPrinter::pdfFile()), QString());
}

TEST_F(LanguageOfQtTest, KeysAreCalledAsOnTheKeyboardAndReadAsTheyAreWritten) {
  sceneAt(1)->Edit();
  openEditor().show();
  const QKeySequence save(u"Ctrl+S"_s);
  EXPECT_EQ(save, QKeySequence(Qt::CTRL | Qt::Key_S));
  EXPECT_EQ(save.toString(QKeySequence::NativeText), u"Strg+S"_s);
  EXPECT_EQ(childOf<QPushButton>(openEditor(), u"cmdSave"_s).toolTip(), u"Strg+S"_s);
}
