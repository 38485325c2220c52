#include "gui/toolkit/fSHAREDErrorRpt.h"

#include "core/infra/Paths.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "support/ModalHelper.h"
#include "support/Required.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/WaitFor.h"

#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A toolkit on a machine without a mail program or a viewer.
class NothingOpens : public ScriptedToolkit {
 public:
  bool openDocument(const QString& pathOrAddress) override {
    ScriptedToolkit::openDocument(pathOrAddress);
    return false;
  }
};

class fSHAREDErrorRptTest : public ::testing::Test {
 protected:
  fSHAREDErrorRptTest() {
    Logging().LogEvent(u"100% \u0416"_s, true);
    window = std::make_unique<fSHAREDErrorRpt>(ErrorReport::about(u"Error 61 - Disk full"_s), u"saving"_s);
    window->show();
    EXPECT_TRUE(waitUntilShown(*window));
  }

  QPushButton* button(const QString& name) { return &childOf<QPushButton>(*window, name); }
  QPlainTextEdit* text(const QString& name) { return &childOf<QPlainTextEdit>(*window, name); }
  void click(const QString& name) { QTest::mouseClick(button(name), Qt::LeftButton); }

  std::unique_ptr<fSHAREDErrorRpt> window;
};

}  // namespace

TEST_F(fSHAREDErrorRptTest, TheMailCarriesWhatTheUserTyped) {
  ScriptedToolkit person;
  click(u"cmdEmail"_s);
  click(u"cmdShowComments"_s);
  QTest::keyClicks(text(u"txtUserMessage"_s), u"help"_s);
  click(u"cmdEmail"_s);
  ASSERT_EQ(person.openedDocuments.size(), 2);
  EXPECT_FALSE(person.openedDocuments[0].contains(u"User: "_s));
  EXPECT_TRUE(person.openedDocuments[1].startsWith(u"mailto:bugs"_s));
  EXPECT_TRUE(person.openedDocuments[1].contains(u"User: help%0D%0AError 61 - Disk full%0D%0A%0D%0A"_s));
}

TEST_F(fSHAREDErrorRptTest, TheReportIsWrittenAndOpened) {
  ScriptedToolkit person;
  click(u"cmdViewReport"_s);
  const QString path = Paths::temporaryFolder() + u"FullLog.txt"_s;
  EXPECT_EQ(person.openedDocuments, QStringList(path));
  const QByteArray report = fileBytes(path);
  EXPECT_TRUE(report.contains("\r\n\r\nError 61 - Disk full\r\n\r\n1 "));
  EXPECT_TRUE(report.endsWith("100% %u0416\r\n"));
  Files().EraseFile(path);
}

TEST_F(fSHAREDErrorRptTest, TheReportFollowsNoLink) {
  const QString usual = Paths::temporaryFolder() + u"FullLog.txt"_s;
  const QString kept = Paths::temporaryFolder() + u"kept.txt"_s;
  ASSERT_TRUE(Files().WriteTextFile(kept, QByteArray("precious")));
  ASSERT_TRUE(QFile::link(kept, usual));
  ScriptedToolkit person;
  click(u"cmdViewReport"_s);
  EXPECT_EQ(fileBytes(kept), "precious");
  ASSERT_EQ(person.openedDocuments.size(), 1);
  EXPECT_TRUE(fileBytes(person.openedDocuments[0]).contains("Disk full"));
  for (const QString& path : {usual, kept, person.openedDocuments[0]}) {
    Files().EraseFile(path);
  }
  Files().EraseFolder(Files().PathOnly(person.openedDocuments[0]));
}

TEST_F(fSHAREDErrorRptTest, WhatCannotBeOpenedIsToldInTheWindow) {
  NothingOpens person;
  const auto* const notice = &childOf<QLabel>(*window, u"lblNotice"_s);
  EXPECT_FALSE(notice->isVisible());
  click(u"cmdEmail"_s);
  EXPECT_TRUE(notice->isVisible());
  EXPECT_EQ(window->focusWidget(), button(u"cmdViewReport"_s));
  click(u"cmdViewReport"_s);
  EXPECT_TRUE(notice->text().contains(u"FullLog.txt"_s));
  click(u"cmdHelp"_s);
  ASSERT_FALSE(person.openedDocuments.isEmpty());
  EXPECT_TRUE(person.openedDocuments.constLast().endsWith(u"#saving"_s));
  EXPECT_TRUE(person.errorReports.isEmpty());
  Files().EraseFile(Paths::temporaryFolder() + u"FullLog.txt"_s);
}

TEST_F(fSHAREDErrorRptTest, OffersTheHelpOnlyWhereThereIsOne) {
  EXPECT_FALSE(button(u"cmdHelp"_s)->isVisible());
  const QString manual = Paths::programFolder() + u"Help/index.html"_s;
  ASSERT_TRUE(QDir().mkpath(QFileInfo(manual).path()));
  ASSERT_TRUE(Files().SaveTextFile(manual, QByteArrayView("<p>Help</p>")));
  fSHAREDErrorRpt withManual(ErrorReport::about(u"Broken"_s), {});
  withManual.show();
  EXPECT_TRUE(childOf<QPushButton>(withManual, u"cmdHelp"_s).isVisible());
  Files().EraseFile(manual);
}

TEST(fSHAREDErrorRpt, AFailureInsideItOpensNoSecondOne) {
  Logging().WriteActionsToLog();
  QString logged;
  const WhenModal fail([&](QWidget& reporter) {
    fSHAREDErrorRpt::run(u"second"_s, {});
    logged = Logging().CurrentAction();
    reporter.close();
  });
  fSHAREDErrorRpt::run(u"first"_s, {});
  EXPECT_EQ(logged, u"DBG: second in ShowErr of module fSHAREDErrorRpt"_s);
}
