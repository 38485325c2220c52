#include "gui/shell/main/InterfaceLanguage.h"

#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/LanguageHook.h"
#include "gui/toolkit/WindowTexts.h"

#include <QApplication>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QString kArray = u"mnuLanguage"_s;

/// The menu as a list to choose from. English is the entry that it always has.
class LanguageMenu : public LanguageList {
 public:
  explicit LanguageMenu(MainMenuBar& menus) : menus_(menus) {}

  void clear() override { titles_.clear(); }
  void add(const QString& title) override { titles_.append(title); }
  void select(const QString& title) override {
    QList<MenuElement> elements;
    for (const QString& language : titles_.mid(1)) {
      elements.append({language, language});
    }
    menus_.loadElements(kArray, elements);
    menus_.checkElement(kArray, title);
  }

 private:
  MainMenuBar& menus_;
  QStringList titles_;
};

}  // namespace

bool useLanguage(frmMain& main, const QString& title) {
  const int index = Lang().LanguageIndex(title);
  if (index >= 0) {
    useLanguage(index);
    main.showInLanguage();
  }
  main.menus().checkElement(kArray, Lang().CurrentLanguage());
  return title == Lang().CurrentLanguage();
}

void fillLanguageMenu(frmMain& main) {
  LanguageMenu menu(main.menus());
  Lang().FillLanguageList(menu);
  Lang().SetListToSelected(menu);
}

void loadStoredLanguage() {
  const QString stored = cSHAREDSettings::storedIn(Paths::settingsFile(), kLanguageSetting).toString();
  if (!stored.isEmpty() && stored != Lang().CurrentLanguage()) {
    Lang().LoadAllLanguages();
    Lang().LoadLanguage(Lang().LanguageIndex(stored));
  }
}

QString useStoredLanguage(frmMain& main) {
  const QString stored = Settings().sGet(kLanguageSetting, u"English"_s).toString();
  if (stored == u"English" && Lang().IsEnglish()) {
    main.menus().checkElement(kArray, stored);
    return {};
  }
  fillLanguageMenu(main);
  if (useLanguage(main, stored)) {
    return {};
  }
  Logging().LogEvent(u"The language "_s + stored + u" could not be read"_s);
  return stored;
}

bool updateLanguageFiles() {
  std::vector<std::unique_ptr<WindowTexts>> windows;
  QList<TranslatableForm*> forms;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) {
      windows.push_back(std::make_unique<WindowTexts>(*window));
      forms.append(windows.back().get());
    }
  }
  const bool isWritten = Lang().GenerateLanguageTemplate(forms);
  for (const QString& folder : Lang().LanguageFolders()) {
    Lang().UpdateTemplates(folder);
  }
  return isWritten;
}
