#include "gui/shell/windows/frmHelp.h"

#include "core/infra/HelpFile.h"
#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/life/HelpKey.h"
#include "gui/shell/windows/HelpBrowser.h"
#include "support/ModalHelper.h"
#include "support/WaitFor.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

const QString kManual = QStringLiteral(QUILLANE_SOURCE_DIR "/docs/manual/");

/// What a page leads to and shows, as names in the manual's folder.
QStringList targetsOf(const QString& page) {
  QFile file(kManual + page);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << page;
  QXmlStreamReader xml(&file);
  QStringList targets;
  while (!xml.atEnd()) {
    xml.readNext();
    for (const auto& [element, attribute] :
         {std::pair{u"a"_s, u"href"_s}, {u"img"_s, u"src"_s}, {u"link"_s, u"href"_s}}) {
      if (xml.isStartElement() && xml.name() == element) {
        targets.append(xml.attributes().value(attribute).toString().section(u'#', 0, 0));
      }
    }
  }
  EXPECT_FALSE(xml.hasError()) << page << ": " << xml.errorString() << " in line " << xml.lineNumber();
  return targets;
}

QStringList filesIn(const QString& folder, const QString& pattern) {
  return QDir(kManual + folder).entryList({pattern}, QDir::Files);
}

}  // namespace

TEST(Manual, EachPageIsReachedAndEachLinkAndPictureIsThere) {
  QSet<QString> reached{u"index.html"_s};
  QStringList left{u"index.html"_s};
  while (!left.isEmpty()) {
    const QString page = left.takeFirst();
    const QStringList targets = targetsOf(page);
    EXPECT_TRUE(page == u"index.html" || targets.contains(u"index.html"_s)) << page << " doesn't lead back";
    for (const QString& target : targets) {
      EXPECT_TRUE(QFile::exists(kManual + target)) << page << " names " << target;
      if (!reached.contains(target) && target.endsWith(u".html"_s)) {
        left.append(target);
      }
      reached.insert(target);
    }
  }
  for (const QString& page : filesIn({}, u"*.html"_s)) {
    EXPECT_TRUE(reached.contains(page)) << page << " can't be reached";
  }
  for (const QString& picture : filesIn(u"pictures"_s, u"*"_s)) {
    EXPECT_TRUE(reached.contains(u"pictures/"_s + picture)) << picture << " isn't shown";
  }
}

TEST(Manual, EachWindowWithAPageHasOneThatIsThere) {
  for (const auto& [window, page] : HelpKey::pages()) {
    EXPECT_TRUE(QFile::exists(kManual + QString::fromLatin1(page) + u".html"_s)) << window;
  }
}

/// With the manual installed.
class HelpWindowTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    // Another test may have left the folder, empty.
    QDir(Paths::programFolder()).rmdir(u"Help"_s);
    ASSERT_TRUE(QFile::link(kManual, Paths::programFolder() + u"Help"_s));
    startWith(smallProject());
  }

  void TearDown() override {
    delete help();
    EXPECT_TRUE(QFile::remove(Paths::programFolder() + u"Help"_s));
    ShellTest::TearDown();
  }

  static frmHelp* help() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows) {
      if (auto* const found = dynamic_cast<frmHelp*>(window)) {
        return found;
      }
    }
    return nullptr;
  }

  static HelpBrowser& browser() { return childOf<HelpBrowser>(required(help(), u"help window"_s), u"txtPage"_s); }
  static QString page() { return help() == nullptr ? QString() : browser().source().fileName(); }
  static void key(int key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(help(), Qt::Key(key), modifiers); }
};

TEST_F(HelpWindowTest, TheMenuOpensTheContentsAndKeysLeadThroughThePages) {
  trigger("mnuManual");
  ASSERT_TRUE(help() != nullptr && help()->isVisible());
  EXPECT_TRUE(waitUntilActive(*help()));
  EXPECT_EQ(page(), u"index.html"_s);
  EXPECT_EQ(help()->windowTitle(), u"Help - Contents"_s);
  Q_EMIT browser().anchorClicked(QUrl(u"scene-editor.html"_s));
  EXPECT_EQ(help()->windowTitle(), u"Help - The scene editor"_s);
  key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(page(), u"index.html"_s);
  key(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(page(), u"scene-editor.html"_s);
  key(Qt::Key_Home, Qt::AltModifier);
  EXPECT_EQ(page(), u"index.html"_s);
  Q_EMIT browser().anchorClicked(QUrl(u"https://example.org/"_s));
  EXPECT_EQ(toolkit.openedDocuments, QStringList{u"https://example.org/"_s});
  EXPECT_EQ(page(), u"index.html"_s);

  // One window, whatever opens it; it is as large and its letters as it was left.
  key(Qt::Key_Plus, Qt::ControlModifier);
  help()->resize(640, 480);
  trigger("mnuManual");
  key(Qt::Key_Escape);
  EXPECT_TRUE(waitFor([] { return help() == nullptr; }));
  trigger("mnuManual");
  EXPECT_EQ(help()->size(), QSize(640, 480));
  EXPECT_EQ(browser().zoom(), 1);
}

TEST_F(HelpWindowTest, WordsAreFoundInThePageAndEscapeLeavesTheLineFirst) {
  trigger("mnuManual");
  ASSERT_TRUE(help() != nullptr && waitUntilActive(*help()));
  key(Qt::Key_F, Qt::ControlModifier);
  auto& line = childOf<QLineEdit>(*help(), u"txtFind"_s);
  QTest::keyClicks(&line, u"storyboard"_s);
  EXPECT_EQ(browser().textCursor().selectedText(), u"Storyboard"_s);
  QTest::keyClicks(&line, u"x"_s);
  EXPECT_EQ(childOf<QLabel>(*help(), u"lblNotFound"_s).text(), u"No match"_s);
  QTest::keyClick(&line, Qt::Key_Escape);
  EXPECT_FALSE(line.isVisible());
  EXPECT_TRUE(help()->isVisible());
}

TEST_F(HelpWindowTest, PicturesFitIntoANarrowPage) {
  ASSERT_TRUE(frmHelp::open(QUrl::fromLocalFile(Paths::programFolder() + u"Help/main-window.html"_s).toString()));
  ASSERT_TRUE(waitUntilActive(*help()));
  for (const int width : {900, 420}) {
    help()->resize(width, 500);
    EXPECT_TRUE(waitFor([] { return browser().horizontalScrollBar()->maximum() == 0; })) << width;
  }
}

TEST_F(HelpWindowTest, F1OpensThePageOfTheWindowAlsoInFrontOfABoxAndOutlivesIt) {
  const HelpKey helpKey;
  doubleClick(list("ListScenes"), 0);
  ASSERT_TRUE(waitUntilActive(openEditor()));
  QTest::keyClick(&openEditor(), Qt::Key_F1);
  EXPECT_EQ(page(), u"scene-editor.html"_s);

  QDialog box;
  box.setObjectName(u"frmEditChapter"_s);
  const WhenModal press([](QWidget& modal) {
    QTest::keyClick(&modal, Qt::Key_F1);
    EXPECT_EQ(page(), u"sheets.html"_s);
    EXPECT_EQ(help()->parentWidget(), &modal);
    modal.setProperty(HelpFile::kPage, u"exports"_s);
    QTest::keyClick(&modal, Qt::Key_F1);
    EXPECT_EQ(page(), u"exports.html"_s) << "opened for something of its own";
    modal.close();
  });
  box.exec();
  ASSERT_NE(help(), nullptr);
  EXPECT_TRUE(help()->isVisible());
  EXPECT_EQ(help()->parentWidget(), nullptr);
}
