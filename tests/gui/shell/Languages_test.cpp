// The program in another language than its own, and what translators are given.

#include "core/infra/ErrorReport.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/clsHashTable.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/editor/frmEditorSettings.h"
#include "gui/exchange/frmImportWIP.h"
#include "gui/planning/frmChart.h"
#include "gui/planning/frmStoryboard.h"
#include "gui/planning/frmWordTarget.h"
#include "gui/sheets/frmEditChapter.h"
#include "gui/sheets/frmEditCharacter.h"
#include "gui/sheets/frmEditThing.h"
#include "gui/sheets/frmList.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/windows/frmAbout.h"
#include "gui/shell/windows/frmBackupViewer.h"
#include "gui/shell/windows/frmEditProject.h"
#include "gui/shell/windows/frmGlobalReplace.h"
#include "gui/shell/windows/frmLostAndFound.h"
#include "gui/shell/windows/frmOverview.h"
#include "gui/shell/windows/frmProblemWords.h"
#include "gui/shell/windows/frmProjectWizard.h"
#include "gui/shell/windows/frmSceneList.h"
#include "gui/toolkit/LanguageHook.h"
#include "gui/toolkit/QtToolkit.h"
#include "gui/toolkit/WindowTexts.h"
#include "gui/toolkit/fSHAREDErrorRpt.h"
#include "gui/toolkit/fSHAREDGetDate.h"
#include "gui/toolkit/fSHAREDLogViewer.h"
#include "gui/views/frmFind.h"
#include "gui/views/frmPickChapters.h"
#include "gui/views/frmPickFont.h"
#include "gui/views/frmPrintPreview.h"
#include "gui/views/frmPrinterSetup.h"
#include "gui/views/frmWordCount.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString kTemplateFile = QStringLiteral(QUILLANE_SOURCE_DIR "/data/Languages/template.txt");

QStringList keysIn(const QString& text) {
  static const QRegularExpression ends(u"[\r\n]+"_s);
  QStringList keys;
  for (const QString& line : text.split(ends)) {
    if (line.contains(u"||"_s) && !line.startsWith(u'#')) {
      keys.append(line.section(u"||"_s, 0, 0));
    }
  }
  return keys;
}

/// The texts that the sources hand over whole to be translated where they are shown.
QStringList spokenInSources() {
  static const QRegularExpression call(
      uR"re((?:translated|MsgBox|showMessage|InputBox|setRest|setHint|FileDialog|GetFiles|PickFolder|setText|setToolTip|setWindowTitle|setPanel)\((?:[\w:]+, )?\s*\{?)re"
      uR"re(((?:\s*u?"(?:[^"\\]|\\.)*")+)_s\s*[,)}]\s*(?:u"((?:[^"\\*]|\\.)*)"_s)?)re"_s);
  static const QRegularExpression seam(uR"re("\s*u?")re"_s);
  QStringList keys;
  for (QDirIterator it(QStringLiteral(QUILLANE_SOURCE_DIR "/src"), {u"*.cpp"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
       it.hasNext();) {
    const QString source = QString::fromUtf8(fileBytes(it.next()));
    for (auto found = call.globalMatch(source); found.hasNext();) {
      const QRegularExpressionMatch match = found.next();
      const QString first = match.captured(1).trimmed();
      for (QString text : {first.mid(first.indexOf(u'"') + 1).chopped(1).remove(seam), match.captured(2)}) {
        text.replace(u"\\\""_s, u"\""_s).replace(u"\\u2013"_s, u"\u2013"_s);
        const QString key = cSharedLang::KeyOf(text.replace(u"\\n"_s, u"\n"_s)).replace(u'\n', u"\\n"_s);
        keys.append(key);
      }
    }
  }
  return keys;
}

/// Words of the program: no numbers, days, paths, versions, and nothing of the book that is open.
bool isOurs(const QString& key) {
  static const QRegularExpression word(u"\\p{L}{2}"_s);
  static const QRegularExpression made(
      u"[0-9]{2}|\u00b7|/.+/|^[0-9](?!st|nd)|^v:[^%]|: [0-9]|^Version |^Ctrl|^Quillane( 4)?$|Brackenlight"_s);
  return (key.contains(word) || key.contains(u"%1")) && !key.contains(made) && !key.contains(u'~');
}

class LanguagesTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    QDir().mkpath(folder.path(u"Languages"_s));
    Lang().OverrideLanguagePath(folder.path());
  }
  void TearDown() override {
    QWidget none;
    useLanguage(0, none);
    ShellTest::TearDown();
  }

  void language(const QString& text) const { writeFile(folder.path(u"Languages/x.txt"_s), text.toUtf8()); }
  void choose(const QString& title) {
    Q_EMIT control<QMenu>("mnuChooseLang").aboutToShow();
    for (QAction* const entry : control<QMenu>("mnuChooseLang").actions()) {
      if (entry->data() == title) {
        entry->trigger();
        return;
      }
    }
    ADD_FAILURE() << "no language " << title;
  }
};

}  // namespace

TEST_F(LanguagesTest, TheProgramGoesThereAndBack) {
  language(
      u"Pröbe\nProject||&Werk\nPrint||Druck\nCharacters||Leute\nTotal words: %1||%1 Worte\nScene title||Falsch\n"
      "Save & Next||Sichern & &weiter\nRecent||Zuletzt\nCarry on?||Weiter?\nYes||&Ja\nLate||Spät\nChapter||Teil\nOpen||Öffnen\nSmall||Falsch\n"_s);
  startWith(smallProject());
  sceneAt(1)->Title = u"Scene title"_s;
  click(list("ListScenes"), 0);
  const QString project = control<QMenu>("mnuProject").title();
  const QString total = panel("Totalwords");
  choose(u"Pröbe"_s);
  EXPECT_EQ(control<QMenu>("mnuProject").title(), u"&Werk");
  EXPECT_EQ(control<QAction>("mnuLoadProj").text().remove(u'&'), u"Öffnen");
  EXPECT_TRUE(control<QAction>("mnuLanguage(1)").isChecked());
  EXPECT_FALSE(control<QAction>("mnuLanguage(0)").isChecked());
  EXPECT_TRUE(panel("Totalwords").endsWith(u" Worte"_s)) << panel("Totalwords").toStdString();
  EXPECT_EQ(list("ListScenes").model()->index(0, 0).data().toString(), item("ListScenes", 0).data().toString());
  // A project's name is no word of the program, whatever it says.
  EXPECT_TRUE(control<QAction>("mnuRecent(1)").text().remove(u'&').contains(u"Small"_s));
  {
    QtToolkit screen;
    const WhenModal look([](QWidget& box) {
      EXPECT_EQ(childOf<QLabel>(box, u"qt_msgbox_label"_s).text(), u"Weiter?");
      EXPECT_EQ(box.findChildren<QPushButton*>().constFirst()->text(), u"&Ja");
      box.close();
    });
    screen.MsgBox(u"Carry on?"_s, Buttons::YesNo);
  }
  QWidget window;
  auto* const column = new QVBoxLayout(&window);
  auto* const label = new QLabel(u"Open..."_s);
  auto* const typed = new QLineEdit(u"Open"_s);
  auto* const first = new QPushButton(u"&Yes"_s);
  auto* const second = new QPushButton(u"&Open"_s);
  auto* const third = new QPushButton(u"Save && &Next"_s);
  for (QWidget* const widget : std::initializer_list<QWidget*>{label, typed, first, second, third}) {
    column->addWidget(widget);
  }
  window.show();
  EXPECT_EQ(label->text(), u"Öffnen...");
  EXPECT_EQ(typed->text(), u"Open");
  EXPECT_EQ(first->text(), u"&Ja");
  EXPECT_EQ(second->text(), u"&Öffnen");
  EXPECT_EQ(third->text(), u"Sichern && &weiter");
  label->setText(u"Late"_s);
  EXPECT_TRUE(soon([&] { return label->text() == u"Spät"; }));
  choose(u"English"_s);
  EXPECT_EQ(control<QMenu>("mnuProject").title(), project);
  EXPECT_EQ(panel("Totalwords"), total);
  EXPECT_EQ(label->text(), u"Late");
  EXPECT_EQ(second->text(), u"&Open");
  label->setText(u"Open"_s);
  QCoreApplication::processEvents();
  EXPECT_EQ(label->text(), u"Open");
}

TEST_F(LanguagesTest, TheNextStartKnowsTheLanguage) {
  language(u"Pröbe\nProject||Werk\n"_s);
  startWith(smallProject());
  choose(u"Pröbe"_s);
  endProgram();
  QWidget none;
  useLanguage(0, none);
  start();
  EXPECT_EQ(Lang().CurrentLanguage(), u"Pröbe");
  EXPECT_EQ(control<QMenu>("mnuProject").title().remove(u'&'), u"Werk");
  endProgram();
  useLanguage(0, none);
  QFile::remove(folder.path(u"Languages/x.txt"_s));
  start();
  EXPECT_TRUE(Lang().IsEnglish());
  EXPECT_TRUE(control<QAction>("mnuLanguage(0)").isChecked());
  EXPECT_TRUE(settingsText().contains(u"LANGID,Pr"_s, Qt::CaseInsensitive)) << "it may come back";
}

// Made anew with QUILLANE_WRITE_TEMPLATE=1.
TEST_F(LanguagesTest, TheTemplateHoldsEveryTextThatIsShown) {
  startWith(smallProject(u"~"_s));
  g_Project->Title = u"~"_s;
  for (qint32 id = 1; id <= 5; ++id) {
    g_Project->SceneByID(id)->Title = u"~"_s;
  }
  for (qint32 index = 1; index <= 3; ++index) {
    chapterAt(index)->Title = u"~"_s;
  }
  for (const auto& character : g_Project->Chars) {
    character->FullName = u"~"_s;
  }
  window().RefreshAll();
  g_Project->SceneByID(1)->Edit();
  clsHashTable noWords;
  auto* const words = new frmWordCount;
  words->FillForm(noWords);
  DateEntry entry(false, u"/"_s, QDate(2026, 3, 2));
  auto* const printer = new frmPrinterSetup(&window());
  printer->OfferPreview({});
  printer->OfferDetails();
  const SheetSubject subject{EntityKind::Item, 1, nullptr};
  QList<QWidget*> windows{&window(),
                          &openEditor(),
                          words,
                          printer,
                          new fSHAREDGetDate(entry, u"~"_s),
                          new fSHAREDErrorRpt(ErrorReport::about(u"~"_s), {}),
                          new fSHAREDLogViewer,
                          new frmAbout(&window()),
                          new frmLostAndFound(&window()),
                          new frmBackupViewer(&window()),
                          new frmEditProject(ProjectSettings::of(*g_Project), &window()),
                          new frmProblemWords(&window()),
                          new frmGlobalReplace(&window()),
                          new frmProjectWizard(&window()),
                          new frmImportWIP(&window()),
                          new frmSceneList(&window()),
                          new frmStoryboard(&window()),
                          new frmChart(&window()),
                          new frmWordTarget({}, 0, &window()),
                          new frmPickChapters(&window()),
                          new frmPrintPreview(std::make_shared<const PrintDocument>(), &window()),
                          new frmOverview(&window()),
                          new frmFind(&window()),
                          new frmPickFont(&window()),
                          new frmEditorSettings({}, &window()),
                          new frmEditChapter(subject),
                          new frmEditCharacter(subject),
                          new frmEditThing(subject)};
  for (const int kind : {kListCharacters, kListLocations, kListItems}) {
    auto* const cast = new frmList;
    cast->SetupFor(kind, true);
    windows.append(cast);
  }
  // What the toolkit brings along.
  auto* const box = new QMessageBox;
  box->setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Retry | QMessageBox::Cancel |
                          QMessageBox::Ok);
  auto* const files = new QFileDialog;
  files->setOption(QFileDialog::DontUseNativeDialog);
  files->setFileMode(QFileDialog::ExistingFile);
  QLineEdit line;
  windows += {box, files, line.createStandardContextMenu()};
  std::vector<std::unique_ptr<WindowTexts>> texts;
  QList<TranslatableForm*> forms;
  for (QWidget* const form : std::as_const(windows)) {
    texts.push_back(std::make_unique<WindowTexts>(*form));
    forms.append(texts.back().get());
  }
  ASSERT_TRUE(Lang().GenerateLanguageTemplate(forms));
  QStringList shown = keysIn(WholeText::fromBytes(fileBytes(folder.path(u"FormsText.txt"_s)))) + spokenInSources();
  shown.removeIf([](const QString& key) { return !isOurs(key); });
  shown.removeDuplicates();
  for (QWidget* const form : std::as_const(windows)) {
    if (form->parent() == nullptr && form != &window() && form != &openEditor()) {
      delete form;
    }
  }
  if (qEnvironmentVariableIsSet("QUILLANE_WRITE_TEMPLATE")) {
    QStringList lines{u"Template"_s, u"# English on both sides: a language puts its own words behind the bars."_s};
    for (const QString& key : std::as_const(shown)) {
      lines.append(key + u"||"_s + key);
    }
    writeFile(kTemplateFile, (lines.join(u'\n') + u'\n').toUtf8());
  }
  const QStringList held = keysIn(WholeText::fromBytes(fileBytes(kTemplateFile)));
  const QSet<QString> known(held.begin(), held.end());
  shown.removeIf([&](const QString& key) { return known.contains(key); });
  EXPECT_EQ(shown, QStringList()) << "not in the template";
  EXPECT_EQ(known.size(), held.size()) << "no text stands there twice";
}
