#include "gui/shell/main/MainMenuBar.h"

#include "core/infra/Guard.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/Mnemonics.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

/// A caption as it is shown: an ampersand in it marks no key.
QString shown(const QString& caption) {
  return QString(caption).replace(u'&', u"&&"_s);
}

QString elementName(const QString& array, qsizetype index) {
  return array + u'(' + QString::number(index) + u')';
}

int elementIndex(const QString& name) {
  return name.section(u'(', 1).section(u')', 0, 0).toInt();
}

/// The names of the lines that other lines stand in.
const QSet<QString>& menuNames() {
  static const QSet<QString> names = [] {
    QSet<QString> found;
    for (const MenuEntry& line : mainMenuTable()) {
      found.insert(QString::fromLatin1(*line.parent == '\0' ? line.name : line.parent));
    }
    return found;
  }();
  return names;
}

}  // namespace

MainMenuBar::MainMenuBar(frmMain& window, QMenuBar& bar) : QObject(&bar), window_(window) {
  for (const MenuEntry& entry : mainMenuTable()) {
    addLine(entry, bar);
  }
  assignMnemonics(bar.actions());
}

void MainMenuBar::addLine(const MenuEntry& entry, QMenuBar& bar) {
  const QString name = QString::fromLatin1(entry.name);
  if ((entry.flags & kSeparator) != 0) {
    QAction* line = menus_.value(QString::fromLatin1(entry.parent))->addSeparator();
    line->setObjectName(name);
    return;
  }
  QAction* action = menuNames().contains(name) ? addMenu(entry, bar)->menuAction()
                                               : addEntry(entry, name, QString::fromUtf16(entry.caption));
  action->setVisible((entry.flags & (kHidden | kPopupOnly)) == 0);
}

QMenu* MainMenuBar::addMenu(const MenuEntry& entry, QMenuBar& bar) {
  const QString name = QString::fromLatin1(entry.name);
  const QString caption = shown(QString::fromUtf16(entry.caption));
  QMenu* parent = menus_.value(QString::fromLatin1(entry.parent));
  auto* menu = parent != nullptr ? parent->addMenu(caption) : new QMenu(caption, &bar);
  if (parent == nullptr && (entry.flags & kPopupOnly) == 0) {
    bar.addMenu(menu);
  }
  menu->setObjectName(name);
  connect(menu, &QMenu::aboutToShow, this, [menu] { assignMnemonics(menu->actions()); });
  menus_.insert(name, menu);
  remember(name, menu->menuAction());
  return menu;
}

QAction* MainMenuBar::addEntry(const MenuEntry& entry, const QString& name, const QString& caption) {
  QMenu* menu = menus_.value(QString::fromLatin1(entry.parent));
  auto* action = new QAction(shown(caption), menu);
  action->setCheckable((entry.flags & kCheckable) != 0);
  if (*entry.shortcut != '\0') {
    action->setShortcut(QKeySequence(QString::fromLatin1(entry.shortcut), QKeySequence::PortableText));
  }
  connect(action, &QAction::triggered, this, [this, &entry, action] { choose(entry, *action); });
  const QString array = menuBaseName(name);
  QAction* before = nullptr;
  if (array != name) {
    templates_.insert(array, &entry);
    QList<QAction*>& elements = arrays_[array];
    // Behind the array's last element, whatever else the menu holds.
    const QList<QAction*> inMenu = menu->actions();
    const qsizetype last = elements.isEmpty() ? -1 : inMenu.indexOf(elements.constLast());
    before = last >= 0 && last + 1 < inMenu.size() ? inMenu.at(last + 1) : nullptr;
    elements.append(action);
  }
  menu->insertAction(before, action);
  remember(name, action);
  return action;
}

void MainMenuBar::remember(const QString& name, QAction* action) {
  action->setObjectName(name);
  actions_.insert(name, action);
  stated_.append({menuBaseName(name), action});
}

void MainMenuBar::choose(const MenuEntry& entry, const QAction& action) {
  window_.showMessage({});
  if (entry.handler == nullptr) {
    window_.sayNotBuilt(commandName(entry));
    return;
  }
  const MenuChoice choice{elementIndex(action.objectName()), withoutMnemonic(action.text()), action.data()};
  // The name is a literal of the table and outlives the guard.
  Guard(entry.name, "frmMain")([&] { entry.handler(window_, choice); });
}

void MainMenuBar::apply(const MenuState& state) {
  for (const StatedAction& entry : stated_) {
    const auto told = state.constFind(entry.baseName);
    if (told != state.constEnd()) {
      entry.action->setEnabled(*told);
    }
  }
}

void MainMenuBar::unloadElements(const QString& array) {
  QList<QAction*>& elements = arrays_[array];
  while (elements.size() > 1) {
    QAction* leaving = elements.takeLast();
    actions_.remove(leaving->objectName());
    stated_.removeIf([leaving](const StatedAction& entry) { return entry.action == leaving; });
    leaving->setVisible(false);
    // It may be the one whose choice led here.
    leaving->deleteLater();
    leaving->setObjectName(QString());
  }
}

void MainMenuBar::loadElements(const QString& array, const QList<MenuElement>& elements) {
  const MenuEntry* entry = templates_.value(array);
  if (entry == nullptr) {
    return;
  }
  unloadElements(array);
  for (const MenuElement& element : elements) {
    QAction* action = addEntry(*entry, elementName(array, arrays_.value(array).size()), element.caption);
    action->setData(element.tag);
  }
}

void MainMenuBar::setCaption(const QString& name, const QString& caption) {
  if (QAction* found = action(name)) {
    found->setText(shown(caption));
  }
}

void MainMenuBar::checkElement(const QString& array, const QString& caption) {
  for (QAction* element : arrays_.value(array)) {
    element->setChecked(withoutMnemonic(element->text()) == caption);
  }
}

void MainMenuBar::setVisible(const QString& name, bool visible) {
  if (QAction* found = action(name)) {
    found->setVisible(visible);
  }
}
