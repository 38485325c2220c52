// The program in another language than its own, and what translators are given.

#include "core/infra/WholeText.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/EveryWindow.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/main/InterfaceLanguage.h"
#include "gui/toolkit/LanguageHook.h"
#include "gui/toolkit/QtToolkit.h"
#include "gui/toolkit/WindowTexts.h"
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
      uR"re((?:translated|shownText|toldText|MsgBox|showMessage|InputBox|setRest|setHint|FileDialog|GetFiles|PickFolder|setText|setToolTip|setWindowTitle|setPanel)\((?:[\w:]+, )?\s*(?:\{|QStringLiteral\(\s*)?)re"
      uR"re(((?:\s*u?"(?:[^"\\]|\\.)*")+)(?:_s|sv)?\s*[,)}]\s*(?:u"((?:[^"\\*]|\\.)*)"_s)?)re"_s);
  static const QRegularExpression escaped(uR"re(\\u([0-9a-f]{4}))re"_s, QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression seam(uR"re("\s*u?")re"_s);
  QStringList keys;
  for (QDirIterator it(QStringLiteral(QUILLANE_SOURCE_DIR "/src"), {u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
       it.hasNext();) {
    const QString source = QString::fromUtf8(fileBytes(it.next()));
    for (auto found = call.globalMatch(source); found.hasNext();) {
      const QRegularExpressionMatch match = found.next();
      const QString first = match.captured(1).trimmed();
      for (QString text : {first.mid(first.indexOf(u'"') + 1).chopped(1).remove(seam), match.captured(2)}) {
        text.replace(u"\\\""_s, u"\""_s);
        for (QRegularExpressionMatch code = escaped.match(text); code.hasMatch(); code = escaped.match(text)) {
          text.replace(code.captured(), QChar(code.captured(1).toUShort(nullptr, 16)));
        }
        const QString key =
            cSharedLang::KeyOf(text.replace(u"\\r"_s, u"\r"_s).replace(u"\\n"_s, u"\n"_s)).replace(u'\n', u"\\n"_s);
        keys.append(key);
      }
    }
  }
  return keys;
}

/// Words, and none that are the same everywhere.
bool hasWords(const QString& key) {
  static const QRegularExpression word(u"\\p{L}{2}|%L?1|^N/A$"_s);
  static const QRegularExpression name(u"^(Ctrl|Alt)[+]\\S+$|^Quillane( 4)?$|Brackenlight|~"_s);
  return key.contains(word) && !key.contains(name);
}

/// Shown in a window it may be a number, a day, a path or a version as well.
bool isOurs(const QString& key) {
  static const QRegularExpression made(u"[0-9]{2}|\u00b7|/.+/|^[0-9](?!st|nd)|^v:[^%]|: [0-9]|^Version "_s);
  return hasWords(key) && !key.contains(made);
}

/// What a window has put together of one of these texts and what it is about.
void removeFilledIn(QStringList& shown, const QStringList& spoken) {
  static const QRegularExpression place(u"%L?[0-9]"_s);
  constexpr qsizetype kOwnLetters = 16;
  for (const QString& text : spoken) {
    const QStringList own = text.split(place);
    if (own.size() == 1 || own.join(QString()).size() < kOwnLetters) {
      continue;
    }
    QStringList escaped;
    std::transform(own.begin(), own.end(), std::back_inserter(escaped),
                   [](const QString& piece) { return QRegularExpression::escape(piece); });
    const QRegularExpression filled(QRegularExpression::anchoredPattern(escaped.join(u".+"_s)));
    shown.removeIf([&](const QString& key) { return key != text && filled.match(key).hasMatch(); });
  }
}

class LanguagesTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    QDir().mkpath(folder.path(u"Languages"_s));
    Lang().OverrideLanguagePath(folder.path());
  }
  void TearDown() override {
    useLanguage(0);
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
      "Save & Next||Sichern & &weiter\nRecent||Zuletzt\nCarry on?||Weiter?\nYes||&Ja\nLate||Spät\nChapter||Teil\nOpen||Öffnen\nSmall \\Small||Falsch\n"_s);
  writeFile(folder.path(u"Languages/y.txt"_s), u"Prova\nOpen||Apri\n"_s.toUtf8());
  startWith(smallProject());
  sceneAt(1)->Title = u"Scene title"_s;
  click(list("ListScenes"), 0);
  const QString project = control<QMenu>("mnuProject").title();
  const QString total = panel("Totalwords");
  choose(u"Pröbe"_s);
  EXPECT_EQ(control<QMenu>("mnuProject").title().remove(u'&'), u"Werk");
  EXPECT_EQ(control<QAction>("mnuLoadProj").text().remove(u'&'), u"Öffnen");
  EXPECT_TRUE(control<QAction>("mnuLanguage(1)").isChecked());
  EXPECT_FALSE(control<QAction>("mnuLanguage(0)").isChecked());
  EXPECT_TRUE(panel("Totalwords").endsWith(u" Worte"_s)) << panel("Totalwords").toStdString();
  EXPECT_EQ(cell("ListScenes", 0, 2), u"Scene title"_s) << "a writer's words are none of the program";
  EXPECT_EQ(control<QAction>("mnuRecent(1)").text().remove(u'&'), u"Small \\Small"_s);
  EXPECT_TRUE(control<QAction>("mnuLanguage(1)").text().contains(u'&')) << "the menu was filled while it opened";
  // The toolkit hears of the language with the next events, and names its own buttons anew.
  QCoreApplication::processEvents();
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
  EXPECT_EQ(second->text(), u"Ö&ffnen");
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
  // A window may put a text there that it has looked up itself.
  for (const auto& [title, word] : {std::pair{u"Pröbe"_s, u"Öffnen"_s}, {u"Prova"_s, u"Apri"_s}}) {
    choose(title);
    EXPECT_EQ(label->text(), word);
    label->setText(translated(u"Open"_s));
    choose(u"English"_s);
    EXPECT_EQ(label->text(), u"Open");
  }
}

TEST_F(LanguagesTest, ADevelopmentBuildCompletesTheFilesAndGathersTheTexts) {
  language(u"Pröbe\r\nProject||Werk\r\n"_s);
  writeFile(folder.path(u"Languages/template.txt"_s), "Template\nProject||Project\nScene||Scene\n");
  startWith(smallProject());
  trigger("mnuUpdateLanguages");
  EXPECT_EQ(QString::fromUtf8(fileBytes(folder.path(u"Languages/x.txt"_s))),
            u"Pröbe\r\nProject||Werk\r\nScene||Scene\r\n"_s);
  EXPECT_TRUE(fileBytes(folder.path(u"FormsText.txt"_s)).contains("Autobackups||"));
  EXPECT_EQ(panel("numberfiles"), u"The language files were updated"_s);
}

TEST_F(LanguagesTest, TheNextStartKnowsTheLanguage) {
  language(u"Pröbe\nProject||Werk\n"_s);
  startWith(smallProject());
  choose(u"Pröbe"_s);
  endProgram();
  useLanguage(0);
  loadStoredLanguage();
  EXPECT_EQ(translated(u"Project"_s), u"Werk") << "before there is a window";
  start();
  EXPECT_EQ(Lang().CurrentLanguage(), u"Pröbe");
  EXPECT_EQ(control<QMenu>("mnuProject").title().remove(u'&'), u"Werk");
  endProgram();
  useLanguage(0);
  QFile::remove(folder.path(u"Languages/x.txt"_s));
  start();
  EXPECT_TRUE(Lang().IsEnglish());
  EXPECT_TRUE(panel("numberfiles").contains(u"The language Pröbe could not be read."_s))
      << panel("numberfiles").toStdString();
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
  // What the toolkit brings along.
  QMessageBox box;
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Retry | QMessageBox::Cancel |
                         QMessageBox::Ok);
  QFileDialog files;
  files.setOption(QFileDialog::DontUseNativeDialog);
  files.setFileMode(QFileDialog::ExistingFile);
  QLineEdit line;
  const std::unique_ptr<QMenu> menu(line.createStandardContextMenu());
  const EveryWindow windows(window());
  std::vector<std::unique_ptr<WindowTexts>> texts;
  QList<TranslatableForm*> forms;
  for (QWidget* const form : windows.all() + QList<QWidget*>{&box, &files, menu.get()}) {
    texts.push_back(std::make_unique<WindowTexts>(*form));
    forms.append(texts.back().get());
  }
  ASSERT_TRUE(Lang().GenerateLanguageTemplate(forms));
  QStringList shown = keysIn(WholeText::fromBytes(fileBytes(folder.path(u"FormsText.txt"_s))));
  shown.removeIf([](const QString& key) { return !isOurs(key); });
  const QStringList spoken = spokenInSources();
  removeFilledIn(shown, spoken);
  shown += spoken;
  shown.removeIf([](const QString& key) { return !hasWords(key); });
  shown.removeDuplicates();
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
