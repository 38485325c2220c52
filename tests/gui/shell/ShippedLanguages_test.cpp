// The languages that come with the program: what they say, and that the windows have room for it.

#include "core/infra/WholeText.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/EveryWindow.h"
#include "gui/shell/MainWindow.h"
#include "gui/toolkit/LanguageHook.h"
#include "support/SampleProject.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSet>
#include <QStackedWidget>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

const QString kFolder = QStringLiteral(QUILLANE_SOURCE_DIR "/data/Languages/");
const QString kTemplate = u"template.txt"_s;

QStringList languageFiles() {
  QStringList files = QDir(kFolder).entryList({u"*.txt"_s}, QDir::Files);
  files.removeAll(kTemplate);
  return files;
}

QMap<QString, QStringList> entriesOf(const QString& file) {
  QMap<QString, QStringList> entries;
  for (const QString& line : WholeText::fromBytes(fileBytes(kFolder + file)).split(u'\n')) {
    if (line.contains(u"||"_s) && !line.startsWith(u'#')) {
      entries[line.section(u"||"_s, 0, 0).trimmed()].append(line.section(u"||"_s, 1).trimmed());
    }
  }
  return entries;
}

/// The keys of the one table that the other lacks.
QStringList without(const QMap<QString, QStringList>& one, const QMap<QString, QStringList>& other) {
  QStringList keys = one.keys();
  keys.removeIf([&](const QString& key) { return other.contains(key); });
  return keys;
}

/// Places, ends of lines and markup, in any order.
QStringList mechanics(const QString& text) {
  static const QRegularExpression piece(uR"(%L?[0-9]+|\\r|\\n|<[^<>]+>)"_s);
  QStringList found;
  for (auto it = piece.globalMatch(text); it.hasNext();) {
    found.append(it.next().captured());
  }
  found.sort();
  return found;
}

QChar markOf(const QString& caption) {
  static const QRegularExpression mark(u"(?<!&)(?:&&)*&([^&\\s])"_s);
  const QRegularExpressionMatch found = mark.match(caption);
  return found.hasMatch() ? found.captured(1).front().toLower() : QChar();
}

/// The captions whose letter another one has as well.
QStringList sharedMarks(const QStringList& captions) {
  QMap<QChar, QStringList> owners;
  for (const QString& caption : captions) {
    if (const QChar mark = markOf(caption); !mark.isNull()) {
      owners[mark].append(caption);
    }
  }
  QStringList shared;
  for (const QStringList& some : std::as_const(owners)) {
    shared += some.size() > 1 ? QStringList{some.join(u" and "_s)} : QStringList();
  }
  return shared;
}

QStringList sharedInMenus(const QWidget& window) {
  QStringList shared;
  for (QMenu* const menu : window.findChildren<QMenu*>()) {
    QStringList captions;
    for (const QAction* const entry : menu->actions()) {
      captions += entry->isVisible() && !entry->isSeparator() ? QStringList{entry->text()} : QStringList();
    }
    shared += sharedMarks(captions);
  }
  return shared;
}

QStringList sharedAtOnce(const QWidget& window) {
  QStringList captions;
  for (const QWidget* const widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->window() != &window) {
      continue;
    }
    if (const auto* const button = qobject_cast<const QAbstractButton*>(widget)) {
      captions.append(button->text());
    } else if (const auto* const label = qobject_cast<const QLabel*>(widget);
               label != nullptr && label->buddy() != nullptr) {
      captions.append(label->text());
    } else if (const auto* const box = qobject_cast<const QGroupBox*>(widget)) {
      captions.append(box->title());
    } else if (const auto* const tabs = qobject_cast<const QTabBar*>(widget)) {
      for (int i = 0; i < tabs->count(); ++i) {
        captions.append(tabs->tabText(i));
      }
    } else if (const auto* const bar = qobject_cast<const QMenuBar*>(widget)) {
      for (const QAction* const menu : bar->actions()) {
        captions.append(menu->text());
      }
    }
  }
  return sharedMarks(captions);
}

/// The menus of a bar that no keyboard leads to.
QStringList keylessMenus(const QWidget& window) {
  QStringList found;
  for (const QMenuBar* const bar : window.findChildren<QMenuBar*>()) {
    for (const QAction* const menu : bar->actions()) {
      const QChar mark = markOf(menu->text());
      const bool hasKey = !mark.isNull() && mark.decomposition().isEmpty();
      found += hasKey || !menu->isVisible() ? QStringList() : QStringList{menu->text()};
    }
  }
  return found;
}

/// A text that doesn't find room in its control; empty where it does.
QString clippedText(const QWidget& widget) {
  if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
    const bool fits = label->wordWrap() ? label->heightForWidth(label->width()) <= label->height()
                                        : label->minimumSizeHint().width() <= label->width();
    return fits ? QString() : label->text();
  }
  if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
    return button->text().isEmpty() || button->sizeHint().width() <= button->width() ? QString() : button->text();
  }
  if (const auto* const box = qobject_cast<const QGroupBox*>(&widget)) {
    return box->minimumSizeHint().width() <= box->width() ? QString() : box->title();
  }
  if (const auto* const box = qobject_cast<const QComboBox*>(&widget); box != nullptr && !box->isEditable()) {
    QStyleOptionComboBox option;
    option.initFrom(box);
    const int room =
        box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box).width();
    return box->fontMetrics().horizontalAdvance(box->currentText()) <= room ? QString() : box->currentText();
  }
  return {};
}

/// Looks at a window as it is and with each of its pages in front.
void eachPage(QWidget& window, const std::function<void()>& look) {
  look();
  for (auto* const pages : window.findChildren<QStackedWidget*>()) {
    for (int i = 0; i < pages->count(); ++i) {
      if (auto* const tabs = qobject_cast<QTabWidget*>(pages->parentWidget())) {
        tabs->setCurrentIndex(i);
      } else {
        pages->setCurrentIndex(i);
      }
      QCoreApplication::processEvents();
      look();
    }
  }
}

/// What a reader of this language would stumble over in a window.
QStringList stumblingBlocks(QWidget& window) {
  constexpr QSize kSmallScreen(1280, 720);
  QStringList found;
  window.show();
  QCoreApplication::processEvents();
  eachPage(window, [&] {
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
      if (const QString text = widget->isVisible() ? clippedText(*widget) : QString(); !text.isEmpty()) {
        found.append(u"clipped: "_s + widget->objectName() + u": "_s + text);
      }
    }
    for (const QString& shared : sharedAtOnce(window)) {
      found.append(u"one key: "_s + shared);
    }
  });
  for (const QString& menu : keylessMenus(window)) {
    found.append(u"no key: "_s + menu);
  }
  for (const QString& shared : sharedInMenus(window)) {
    found.append(u"one key in a menu: "_s + shared);
  }
  const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
  if (least.width() > kSmallScreen.width() || least.height() > kSmallScreen.height()) {
    found.append(u"too large: %1 x %2"_s.arg(least.width()).arg(least.height()));
  }
  found.removeDuplicates();
  return found;
}

/// They are English singulars. No window is handed one of them translated already.
const QStringList kItalianPlurals{u"Notes"_s, u"Scenes"_s, u"Scns"_s};

/// What would become a third text if its translation were looked up as well.
QStringList chained(const QMap<QString, QStringList>& entries) {
  QStringList found;
  for (auto it = entries.cbegin(); it != entries.cend(); ++it) {
    const QString own = it.value().constFirst();
    const QString next = entries.value(cSharedLang::KeyOf(own), {own}).constFirst();
    if (own != it.key() && next != own) {
      found.append(it.key());
    }
  }
  return found;
}

class ShippedLanguagesTest : public ShellTest {
 protected:
  void TearDown() override {
    useLanguage(0);
    ShellTest::TearDown();
  }
};

}  // namespace

TEST(LanguageFiles, TranslateEveryEntryAndLeaveItsPlacesInIt) {
  const QMap<QString, QStringList> wanted = entriesOf(kTemplate);
  ASSERT_GT(wanted.size(), 600);
  const QStringList files = languageFiles();
  EXPECT_EQ(files.size(), 8);
  EXPECT_EQ(QString::fromUtf8(fileBytes(kFolder + u"Languages.lst"_s)).split(u'\n', Qt::SkipEmptyParts), files);
  for (const QString& file : files) {
    SCOPED_TRACE(file.toStdString());
    const QMap<QString, QStringList> entries = entriesOf(file);
    EXPECT_EQ(without(wanted, entries), QStringList()) << "missing";
    EXPECT_EQ(without(entries, wanted), QStringList()) << "not in the program";
    qsizetype same = 0;
    for (auto it = entries.cbegin(); it != entries.cend(); ++it) {
      const QString& english = it.key();
      SCOPED_TRACE(english.toStdString());
      ASSERT_EQ(it.value().size(), 1) << "an entry stands there twice";
      const QString& own = it.value().constFirst();
      EXPECT_FALSE(own.isEmpty());
      EXPECT_EQ(mechanics(own), mechanics(english));
      EXPECT_EQ(markOf(own), markOf(english));
      same += own == english ? 1 : 0;
      EXPECT_TRUE(own != english || english.size() < 25) << "not translated";
    }
    EXPECT_LT(same * 10, wanted.size()) << "hardly a language of its own";
    EXPECT_EQ(chained(entries), file.contains(u"Italian"_s) ? kItalianPlurals : QStringList()) << "translated twice";
  }
}

// In English as in all others.
TEST_F(ShippedLanguagesTest, FindRoomAndKeysInEveryWindow) {
  startWith(smallProject());
  Lang().OverrideLanguagePath(QStringLiteral(QUILLANE_SOURCE_DIR "/data"));
  Lang().LoadAllLanguages();
  for (int index = 0; index <= Lang().LanguageCount(); ++index) {
    SCOPED_TRACE(Lang().LanguageTitle(index).toStdString());
    // One editor goes from language to language, the other is opened in this one.
    g_Project->SceneByID(1)->Edit();
    ASSERT_TRUE(useLanguage(index));
    g_Project->SceneByID(2)->Edit();
    const EveryWindow windows(window());
    ASSERT_GT(windows.all().size(), 30);
    for (QWidget* const form : windows.all()) {
      EXPECT_EQ(stumblingBlocks(*form), QStringList()) << form->objectName().toStdString();
    }
    for (QWidget* const form : windows.all()) {
      if (form->objectName() == u"frmEditor") {
        form->close();
      }
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}
