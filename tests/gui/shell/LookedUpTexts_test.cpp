// Every text of the program is looked up before it is shown: in its windows, and in what its menus lead to.

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/EnglishTexts.h"
#include "gui/shell/EveryWindow.h"
#include "gui/shell/MainWindow.h"
#include "gui/toolkit/LanguageHook.h"
#include "gui/toolkit/QtToolkit.h"
#include "support/FailingDisk.h"
#include "support/PrintedPages.h"
#include "support/SampleProject.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class LookedUpTextsTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    // Names of days and months are the system's.
    QLocale::setDefault(QLocale(QLocale::Russian));
    path_ = smallProject();
    QDir().mkpath(folder.path(u"Languages"_s));
    writeFile(folder.path(u"Languages/x.txt"_s), strangeLanguage().toUtf8());
    Lang().OverrideLanguagePath(folder.path());
    writeSettings({u"AskedAboutAutoUpdates,-1"_s, u"LANGID,Strange"_s});
    startWith(path_);
    ASSERT_EQ(Lang().CurrentLanguage(), u"Strange");
  }
  void TearDown() override {
    EXPECT_TRUE(english_.found().isEmpty()) << english_.found().join(u'\n').toStdString();
    useLanguage(0);
    QLocale::setDefault(QLocale::c());
    ShellTest::TearDown();
  }

  EnglishTexts english_;
  QString path_;
};

/// The program's own boxes. Files are asked for without a dialog, and one question of three is left with Cancel: a book
/// is the one that is open, all others stand at one place.
class FileAnswers : public QtToolkit {
 public:
  FileAnswers(QString book, QString place, EnglishTexts& english)
      : book_(std::move(book)), place_(std::move(place)), english_(english) {}

  QString InputBox(const QString& prompt, const QString& title, const QString& text) override {
    english_.see(text, u"what is proposed"_s);
    return QtToolkit::InputBox(prompt, title, text);
  }
  QString OpenFileDialog(const FileQuestion& question) override {
    const QString place = SaveFileDialog(question);
    return question.filter.contains(u"*.qn4"_s) && !place.isEmpty() ? book_ : place;
  }
  QStringList GetFiles(const FileQuestion& question) override { return {OpenFileDialog(question)}; }
  QString SaveFileDialog(const FileQuestion& question) override {
    english_.see(translated(question.title), u"a file's question"_s);
    english_.see(QFileInfo(question.defaultName).completeBaseName(), u"a file's name"_s);
    return ++asked_ % 3 == 0 ? QString() : place_ + question.filter.section(u';', 0, 0).remove(u'*');
  }
  QString PickFolder(const QString& title, const QString&) override {
    english_.see(translated(title), u"a folder's question"_s);
    return place_;
  }
  std::optional<quint32> PickColour(const QString&, quint32 initial) override { return initial; }
  bool openDocument(const QString&) override { return false; }
  bool runProgram(const QString&, const QStringList&, bool) override { return false; }

 private:
  QString book_;
  QString place_;
  EnglishTexts& english_;
  int asked_ = 0;
};

constexpr int kTurns = 6;

/// Each turn begins with another button, every other one with an editor, and in the last one the disk is full.
class EveryEntryTest : public LookedUpTextsTest, public ::testing::WithParamInterface<int> {
 protected:
  QStringList entries() {
    QStringList names;
    for (const QAction* const entry : window().findChildren<QAction*>()) {
      const QString name = entry->objectName();
      const bool isOther = entry->menu() != nullptr || name == u"mnuConfirmExit" || name.startsWith(u"mnuLanguage"_s);
      names += isOther || !name.startsWith(u"mnu"_s) ? QStringList() : QStringList{name};
    }
    names.removeDuplicates();
    return names;
  }

  /// Presses the buttons of each modal window that comes up, one after another, and closes every other one when there
  /// were many.
  void answer() {
    QTimer::singleShot(2, &window(), [this] { answer(); });
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal == nullptr) {
      return;
    }
    english_.seeWindow(*modal);
    QList<QPushButton*> buttons = modal->findChildren<QPushButton*>();
    buttons.removeIf([](const QPushButton* button) { return !button->isVisible() || !button->isEnabled(); });
    constexpr int kPatience = 8;
    if (buttons.isEmpty() || (++pressed_ > kPatience && pressed_ % 2 == 0)) {
      modal->close();
    } else {
      buttons[turn_++ % buttons.size()]->click();
    }
  }

  void chooseWithRows(const QByteArray& entry) {
    for (const char* const name : {"ListChapters", "ListScenes", "ListNotes"}) {
      if (list(name).isVisible() && list(name).rowCount() > 0) {
        click(list(name), 0);
      }
    }
    if (isEnabled(entry.constData())) {
      pressed_ = 0;
      trigger(entry.constData());
    }
  }

  /// The main window, and those that the entry has opened. They go, each kind when all that it offers was chosen once.
  void seeAll() {
    QCoreApplication::processEvents();
    english_.seeWindow(window());
    const QWidgetList all = QApplication::topLevelWidgets();
    for (const QPointer<QWidget>& form : QList<QPointer<QWidget>>(all.begin(), all.end())) {
      if (form != nullptr && form->isVisible() && form != &window()) {
        english_.seeWindow(*form);
        chooseAllIn(form);
      }
      pressed_ = 0;
      if (form != nullptr && form != &window()) {
        form->close();
      }
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

 private:
  /// Goes on where the last window of its kind was left.
  void chooseAllIn(const QPointer<QWidget>& form) {
    const QList<QAbstractButton*> buttons = form->findChildren<QAbstractButton*>();
    const QList<QAction*> entries = form->findChildren<QAction*>();
    QList<QPointer<QObject>> offered(buttons.begin(), buttons.end());
    offered.append({entries.begin(), entries.end()});
    for (qsizetype& next = tried_[form->objectName()]; next < offered.size() && form != nullptr; ++next) {
      auto* const button = qobject_cast<QAbstractButton*>(offered[next]);
      auto* const entry = qobject_cast<QAction*>(offered[next]);
      pressed_ = 0;
      if (button != nullptr && button->isVisible()) {
        button->click();
      } else if (entry != nullptr) {
        entry->trigger();
      }
      if (form != nullptr) {
        english_.seeWindow(*form);
      }
    }
  }

  QMap<QString, qsizetype> tried_;
  int pressed_ = 0;
  qsizetype turn_ = GetParam();
};

}  // namespace

TEST_F(LookedUpTextsTest, InEveryWindow) {
  g_Project->SceneByID(1)->Edit();
  const EveryWindow windows(window());
  for (QWidget* const form : windows.all()) {
    form->show();
    QCoreApplication::processEvents();
    english_.seeWindow(*form);
  }
}

TEST_P(EveryEntryTest, SaysNothingThatWasNotLookedUp) {
  // Where there is none, files are printed to.
  const QStringList printers = GetParam() % 3 == 0 ? QStringList() : QStringList{u"Laser"_s};
  const PrintedPages pages(printers, printers.value(0));
  writeFile(folder.path(u"x.txt"_s), "one\n\ntwo");
  writeFile(folder.path(u"x.rtf"_s), simpleRtf("one"));
  FileAnswers answers(path_, folder.path(u"x"_s), english_);
  installToolkit(&answers);
  const auto back = qScopeGuard([this] { installToolkit(&toolkit); });
  answer();
  for (const QString& entry : entries()) {
    if (g_Project->FileWithPath != path_) {
      trigger("mnuLoadProj");
    }
    if (GetParam() % 2 == 1 && g_Project->SceneByID(2) != nullptr) {
      g_Project->SceneByID(2)->Edit();
    }
    {
      std::optional<FailingDisk> disk;
      if (GetParam() == kTurns - 1) {
        disk.emplace();
      }
      chooseWithRows(entry.toLatin1());
    }
    seeAll();
  }
  for (const PrintDocument& document : pages.documents) {
    english_.see(document.title, u"printed"_s);
    for (const PrintedPage& page : document.pages) {
      for (const PlacedText& text : page.texts) {
        english_.see(text.text, u"printed"_s);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Turns, EveryEntryTest, ::testing::Range(0, kTurns));
