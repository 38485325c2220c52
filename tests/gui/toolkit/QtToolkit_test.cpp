#include "gui/toolkit/QtToolkit.h"

#include "gui/toolkit/Colours.h"
#include "gui/toolkit/UrlCatcher.h"
#include "support/ModalHelper.h"
#include "support/Required.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"
#include "support/WaitFor.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QMessageBox& asBox(QWidget& window) {
  return dynamic_cast<QMessageBox&>(window);
}

struct BoxCase {
  Buttons buttons;
  Answer onEnter;
  Answer onEscape;
};

constexpr BoxCase kBoxes[] = {{Buttons::Ok, Answer::Ok, Answer::Ok},
                              {Buttons::YesNo, Answer::Yes, Answer::No},
                              {Buttons::NoUnlessYes, Answer::No, Answer::No},
                              {Buttons::YesNoOrBack, Answer::Yes, Answer::Cancel},
                              {Buttons::RetryCancel, Answer::Retry, Answer::Cancel}};

TEST(MsgBox, EnterTakesTheFirstButtonAndEscapeOrClosingTheLast) {
  QtToolkit toolkit;
  for (const BoxCase& box : kBoxes) {
    const auto answer = [&](auto act) {
      const WhenModal modal(act);
      return toolkit.MsgBox(u"Carry on?"_s, box.buttons);
    };
    EXPECT_EQ(answer([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); }), box.onEnter);
    EXPECT_EQ(answer([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }), box.onEscape);
    EXPECT_EQ(answer([](QWidget& window) {
                for (const QAbstractButton* const button : asBox(window).buttons()) {
                  EXPECT_TRUE(button->isVisible()) << "a writer looks for a way back";
                }
                window.close();
              }),
              box.onEscape);
  }
}

TEST(Choose, EnterTakesTheDefaultAndEscapeNone) {
  QtToolkit toolkit;
  const ChoiceQuestion question{u"Which <i>one</i>?"_s, {u"Keep both"_s, u"Mine"_s, u"Theirs"_s}, 1, 0};
  const auto answer = [&](auto act) {
    const WhenModal modal(act);
    return toolkit.Choose(question);
  };
  EXPECT_EQ(answer([](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_Return); }), 1);
  EXPECT_EQ(answer([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }), ChoiceQuestion::kNone);
  EXPECT_EQ(answer([](QWidget& window) { window.close(); }), ChoiceQuestion::kNone);
  EXPECT_EQ(answer([](QWidget& window) {
              EXPECT_EQ(asBox(window).textFormat(), Qt::PlainText);
              for (auto* const button : window.findChildren<QPushButton*>()) {
                if (button->text().contains(u"Theirs"_s)) {
                  QTest::mouseClick(button, Qt::LeftButton);
                }
              }
            }),
            2);
}

TEST(MsgBox, WhoIsTypingWhenItComesUpDoesNotSayYes) {
  QtToolkit toolkit;
  const WhenModal type([](QWidget& window) {
    QWidget* const focus = window.focusWidget();
    QTest::keyClicks(focus, u"Yay"_s);
    QTest::qWait(300);
    EXPECT_TRUE(window.isVisible());
    QTest::keyClick(focus, Qt::Key_Space);
  });
  EXPECT_EQ(toolkit.MsgBox(u"Carry on?"_s, Buttons::NoUnlessYes), Answer::No);
}

TEST(MsgBox, ALongListScrollsAndItsButtonsStayOnTheScreen) {
  QtToolkit toolkit;
  const WhenModal look([](QWidget& window) {
    EXPECT_LT(window.height(), window.screen()->availableGeometry().height());
    const auto* const area = window.findChild<QScrollArea*>();
    EXPECT_TRUE(area != nullptr && area->verticalScrollBar()->maximum() > 0 &&
                area->horizontalScrollBar()->maximum() == 0);
    QTest::keyClick(&window, Qt::Key_Return);
  });
  toolkit.MsgBox(u"A name: 1,000 (0.10%)\n"_s.repeated(400));
}

TEST(MsgBox, ShowsItsTextAsItStandsUnderTheProgramsName) {
  QtToolkit toolkit;
  const QString text = u"The scene <b>'Salt & \"Sand\"'</b> is locked.\r\nTwo lines."_s;
  const WhenModal look([&](QWidget& window) {
    QMessageBox& box = asBox(window);
    EXPECT_EQ(box.windowTitle(), u"Quillane"_s);
    EXPECT_EQ(box.text(), text);
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_TRUE(box.textInteractionFlags() & Qt::TextSelectableByMouse);
    box.close();
  });
  toolkit.MsgBox(text);
}

TEST(MsgBox, WhoseWindowGoesBeneathItCountsAsNo) {
  auto* const under = new QWidget;
  under->show();
  ASSERT_TRUE(waitUntilActive(*under));
  QtToolkit toolkit;
  const WhenModal destroy([&](QWidget&) { delete under; });
  EXPECT_EQ(toolkit.MsgBox(u"Carry on?"_s, Buttons::YesNo), Answer::No);
}

TEST(InputBox, GivesTheTextAndNothingOnCancel) {
  QtToolkit toolkit;
  {
    const WhenModal type([](QWidget& window) {
      EXPECT_EQ(window.windowTitle(), u"Custom scene splitting"_s);
      EXPECT_GT(window.width(), window.fontMetrics().horizontalAdvance(window.windowTitle()) * 3 / 2) << "isn't cut";
      auto* const edit = &childOf<QLineEdit>(window);
      EXPECT_EQ(edit->text(), u"%-%"_s);
      QTest::keyClicks(edit, u"##"_s);
      QTest::keyClick(edit, Qt::Key_Return);
    });
    EXPECT_EQ(toolkit.InputBox(u"Enter"_s, u"Custom scene splitting"_s, u"%-%"_s), u"##"_s);
  }
  const WhenModal cancel([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
  EXPECT_EQ(toolkit.InputBox(u"Enter"_s, u"t"_s, u"offered"_s), QString());
}

TEST(FileDialog, OffersFolderPatternsAndNameAndAddsTheExtension) {
  const ScratchFolder folder;
  QtToolkit toolkit;
  const WhenModal accept([&](QWidget& window) {
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    EXPECT_EQ(elementOf(dialog.nameFilters(), 0), u"Files (*.qn3 *.qn4)"_s);
    EXPECT_EQ(QFileInfo(dialog.directory().absolutePath()), QFileInfo(folder.path()));
    auto* const name = &childOf<QLineEdit>(dialog);
    EXPECT_EQ(name->text(), u"MyProject"_s);
    QTest::keyClick(name, Qt::Key_Return);
  });
  const FileQuestion question{u"Specify your Project file."_s, u"*.qn3;*.qn4"_s, u"MyProject"_s, folder.path()};
  EXPECT_EQ(toolkit.SaveFileDialog(question), folder.path(u"MyProject.qn3"_s));
}

TEST(ColourDialog, SpeaksBlueGreenRedNumbersAndTakesSystemColours) {
  QtToolkit toolkit;
  const auto pick = [&](quint32 initial, bool accept) {
    const WhenModal act([&](QWidget& window) {
      EXPECT_EQ(window.windowTitle(), u"Set font colour"_s);
      for (const QWidget* const part : window.findChildren<QWidget*>()) {
        EXPECT_FALSE(part->property("text").toString().contains(u"color"_s, Qt::CaseInsensitive));
      }
      accept ? dynamic_cast<QDialog&>(window).accept() : dynamic_cast<QDialog&>(window).reject();
    });
    return toolkit.PickColour(u"Set font colour"_s, initial);
  };
  EXPECT_EQ(pick(0x336699, true), 0x336699U);
  EXPECT_EQ(pick(0x336699, false), std::nullopt);
  const quint32 text = Colours::fromQt(QApplication::palette().color(QPalette::Text));
  EXPECT_EQ(pick(Colours::systemWindowText, true), text);
}

TEST(Pointer, OneNormalEndsAnyNumberOfBusyAndLeavesOthersAlone) {
  QtToolkit toolkit;
  QGuiApplication::setOverrideCursor(Qt::CrossCursor);
  toolkit.setPointer(Pointer::Busy);
  toolkit.setPointer(Pointer::Busy);
  toolkit.setPointer(Pointer::Background);
  ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BusyCursor);
  toolkit.setPointer(Pointer::Normal);
  toolkit.setPointer(Pointer::Normal);
  ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
  QGuiApplication::restoreOverrideCursor();
}

TEST(OpenDocument, TellsFilesFromAddressesAndRefusesWhatIsNotThere) {
  const ScratchFolder folder;
  const QString path = folder.path(u"100% done #2.txt"_s);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.close();
  UrlCatcher catcher;
  QtToolkit toolkit;
  EXPECT_TRUE(toolkit.openDocument(path));
  EXPECT_FALSE(toolkit.openDocument(folder.path(u"missing.txt"_s)));
  EXPECT_FALSE(toolkit.openDocument(QString()));
  EXPECT_TRUE(toolkit.openDocument(u"mailto:bugs@example.org?subject=A%20B&body=100%25"_s));
  ASSERT_EQ(catcher.taken.size(), 2);
  EXPECT_EQ(catcher.taken[0].toLocalFile(), path);
  EXPECT_EQ(catcher.taken[1].toEncoded(), "mailto:bugs@example.org?subject=A%20B&body=100%25");
}

TEST(RunProgram, StartsItAndSaysWhenItCouldNot) {
  const ScratchFolder folder;
  QtToolkit toolkit;
  const QString script = folder.path(u"a script"_s);
  writeFile(script, "#!/bin/sh\ntouch \"$1\"\n");
  QFile::setPermissions(script, QFile::ReadOwner | QFile::ExeOwner);
  EXPECT_TRUE(toolkit.runProgram(script, {u"a file"_s}, true));
  EXPECT_TRUE(waitFor([&] { return QFileInfo::exists(folder.path(u"a file"_s)); })) << "it runs where it stands";
  EXPECT_FALSE(toolkit.runProgram(u"/no/such/program"_s, {}, false));
}

}  // namespace
