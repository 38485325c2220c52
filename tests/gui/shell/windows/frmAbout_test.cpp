// The About window: what a writer sends to whoever helps, from the Help menu to the clipboard.

#include "gui/shell/windows/frmAbout.h"

#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/MainWindow.h"
#include "support/Required.h"

#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

class AboutTest : public ShellTest {};

TEST_F(AboutTest, TheReportHasVersionsAndFoldersAndNothingOfTheBook) {
  startWith(smallProject());
  trigger("mnuAbout");
  auto& about = required(window().findChild<frmAbout*>(), u"frmAbout"_s);
  const QString facts = childOf<QPlainTextEdit>(about, u"txtFacts"_s).toPlainText();
  childOf<QPushButton>(about, u"cmdCopy"_s).click();
  const QString report = toolkit.clipboard;
  for (const QString& line : facts.split(u'\n')) {
    EXPECT_TRUE(report.contains(line)) << line.toStdString();
  }
  for (const QString& part : {u"Version "_s + Subs().AppVersion(), u"Qt "_s + QString::fromLatin1(qVersion()),
                              u"libzip 1."_s, u"libcurl "_s, u"log: "_s + Paths::programFolder(),
                              u"Rescued texts: "_s + Paths::rescueFolder(), u"Dictionaries: /"_s, u"Languages: /"_s}) {
    EXPECT_TRUE(report.contains(part)) << part.toStdString() << "\n" << report.toStdString();
  }
  ASSERT_FALSE(g_Project->Path().isEmpty());
  EXPECT_FALSE(report.contains(g_Project->Path()) || report.contains(g_Project->Title));
  childOf<QPushButton>(about, u"cmdWebPage"_s).click();
  ASSERT_EQ(toolkit.openedDocuments.size(), 1);
  EXPECT_TRUE(toolkit.openedDocuments.constFirst().startsWith(u"https://"_s));
}

}  // namespace
