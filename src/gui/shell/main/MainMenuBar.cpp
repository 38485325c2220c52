#include "gui/shell/main/MainMenuBar.h"

#include "core/infra/Guard.h"
#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Mnemonics.h"
#include "gui/toolkit/PlainToolTip.h"
#include "gui/toolkit/WindowTexts.h"

#include <QAction>
#include <QHelpEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QSet>
#include <QShortcutEvent>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A caption as it is shown: an ampersand in it marks no key, and a tab parts nothing from it.
QString shown(const QString& caption) {
  return QString(caption).replace(u'&', u"&&"_s).replace(u'\t', u' ');
}

/// The element that stands in the table. What stands for itself is a name.
MenuElement ownElement(const MenuEntry& entry) {
  const QString caption = QString::fromUtf16(entry.caption);
  const QString tag = QString::fromUtf16(entry.tag);
  return {caption, tag, {}, caption != tag};
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

MainMenuBar::MainMenuBar(QMenuBar& bar, bool developmentBuild)
    : QObject(&bar), bar_(bar), developmentBuild_(developmentBuild) {
  for (const MenuEntry& entry : mainMenuTable()) {
    addLine(entry, bar);
  }
  assignMnemonics(bar.actions());
  bar.installEventFilter(this);
}

void MainMenuBar::addLine(const MenuEntry& entry, QMenuBar& bar) {
  const QString name = QString::fromLatin1(entry.name);
  if ((entry.flags & kSeparator) != 0) {
    QAction* line = menus_.value(QString::fromLatin1(entry.parent))->addSeparator();
    line->setObjectName(name);
    if (!name.isEmpty()) {
      actions_.insert(name, line);
    }
    return;
  }
  QAction* action =
      menuNames().contains(name) ? addMenu(entry, bar)->menuAction() : addEntry(entry, name, ownElement(entry));
  action->setVisible(isOffered(entry, developmentBuild_));
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
  menu->installEventFilter(this);
  menus_.insert(name, menu);
  remember(name, menu->menuAction());
  return menu;
}

QAction* MainMenuBar::addEntry(const MenuEntry& entry, const QString& name, const MenuElement& element) {
  QMenu* menu = menus_.value(QString::fromLatin1(entry.parent));
  auto* action = new QAction(shown(element.caption), menu);
  if (!element.isTranslated) {
    keepWords(*action);
  }
  action->setCheckable((entry.flags & kCheckable) != 0);
  if (*entry.shortcut != '\0') {
    action->setShortcut(QKeySequence(QString::fromLatin1(entry.shortcut), QKeySequence::PortableText));
  }
  action->setData(element.tag);
  connect(action, &QAction::triggered, this, [this, action](bool checked) {
    // The command alone knows which choice is in force.
    if (action->isCheckable()) {
      action->setChecked(!checked);
    }
    choose(*action);
  });
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
  setEnabled(remember(name, action, element.whyNot), true);
  return action;
}

auto MainMenuBar::remember(const QString& name, QAction* action, const QString& whyNot) -> const StatedAction& {
  action->setObjectName(name);
  actions_.insert(name, action);
  stated_.append({menuBaseName(name), action, whyNot});
  return stated_.constLast();
}

void MainMenuBar::addCommands(CommandGroup& group) {
  group.bind(bindings_);
  for (const StatedAction& entry : stated_) {
    setEnabled(entry, entry.action->isEnabled());
  }
}

// A menu of the bar can be opened all the same: what is to come can be looked at there.
QString MainMenuBar::whyNever(const StatedAction& entry) const {
  const QMenu* const menu = entry.action->menu<QMenu*>();
  const bool isInBar = menu != nullptr && qobject_cast<QMenu*>(menu->parentWidget()) == nullptr;
  const bool isBuilt = menu != nullptr ? isInBar || holdsBuilt(*menu) : bindings_.isBound(entry.baseName);
  return isBuilt ? entry.whyNot : shownText(u"not in this version yet"_s);
}

bool MainMenuBar::holdsBuilt(const QMenu& menu) const {
  const QList<QAction*> entries = menu.actions();
  return std::any_of(entries.begin(), entries.end(), [this](const QAction* entry) {
    const QMenu* const inner = entry->menu<QMenu*>();
    return entry->isVisible() && (inner != nullptr ? holdsBuilt(*inner) : isBuilt(entry->objectName()));
  });
}

void MainMenuBar::setEnabled(const StatedAction& entry, bool enabled) const {
  const QString never = whyNever(entry);
  entry.action->setEnabled(enabled && never.isEmpty());
  const QString note = never.isEmpty() ? entry.whyNotNow : never;
  entry.action->setToolTip(note);
  entry.action->setStatusTip(note);
}

QString MainMenuBar::whyNot(const QAction& action) {
  for (const QAction* at = &action; at != nullptr;) {
    if (!at->isEnabled()) {
      return at->statusTip();
    }
    // The action that opens a menu belongs to that menu.
    const QObject* const owner = at->menu<QMenu*>() != nullptr ? at->parent()->parent() : at->parent();
    const auto* const menu = qobject_cast<const QMenu*>(owner);
    at = menu == nullptr ? nullptr : menu->menuAction();
  }
  return {};
}

// Neither the bar nor a menu says anything of what is disabled by itself, and a menu would say every caption twice.
bool MainMenuBar::eventFilter(QObject* watched, QEvent* event) {
  const auto noteAt = [this, watched](const QPoint& place) {
    const QAction* const action =
        watched == &bar_ ? bar_.actionAt(place) : static_cast<QMenu*>(watched)->actionAt(place);
    return action == nullptr ? QString() : translated(action->statusTip());
  };
  switch (event->type()) {
    case QEvent::ToolTip: {
      const auto* const help = static_cast<QHelpEvent*>(event);
      QToolTip::showText(help->globalPos(), plainToolTip(noteAt(help->pos())), static_cast<QWidget*>(watched));
      return true;
    }
    case QEvent::MouseMove:
      Q_EMIT hinted(noteAt(static_cast<QMouseEvent*>(event)->position().toPoint()));
      break;
    case QEvent::Hide:
    case QEvent::Leave:
      Q_EMIT hinted({});
      break;
    case QEvent::Shortcut:
      if (const QAction* const closed = closedMenuOf(static_cast<QShortcutEvent*>(event)->key())) {
        Q_EMIT refused(closed);
        return true;
      }
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

const QAction* MainMenuBar::closedMenuOf(const QKeySequence& key) const {
  const QList<QAction*> menus = bar_.actions();
  const auto found = std::find_if(menus.begin(), menus.end(), [&](const QAction* menu) {
    return !menu->isEnabled() && menu->isVisible() && QKeySequence::mnemonic(menu->text()) == key;
  });
  return found == menus.end() ? nullptr : *found;
}

QAction* MainMenuBar::actionOf(const QKeySequence& key) const {
  const auto found = std::find_if(stated_.begin(), stated_.end(), [&](const StatedAction& entry) {
    return entry.action->isVisible() && entry.action->shortcut() == key;
  });
  return found == stated_.end() || key.isEmpty() ? nullptr : found->action;
}

void MainMenuBar::choose(const QAction& action) {
  const QString name = action.objectName();
  const MenuBindings::Command* const command = bindings_.find(menuBaseName(name));
  if (command == nullptr) {
    return;
  }
  Q_EMIT chosen();
  // The entry may go with what it starts.
  const MenuChoice choice{elementIndex(name), action.data()};
  Guard(command->logName.constData(), "frmMain")([&] { command->run(choice); });
}

void MainMenuBar::apply(const MenuState& state, const QString& whyNot) {
  for (StatedAction& entry : stated_) {
    const auto told = state.constFind(entry.baseName);
    if (told != state.constEnd()) {
      entry.whyNotNow = *told ? QString() : whyNot;
      setEnabled(entry, *told);
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
    addEntry(*entry, elementName(array, arrays_.value(array).size()), element);
  }
}

void MainMenuBar::setCaption(const QString& name, const QString& caption) {
  if (QAction* found = action(name)) {
    found->setText(shown(caption));
  }
}

void MainMenuBar::checkElement(const QString& array, const QVariant& tag) {
  for (QAction* element : arrays_.value(array)) {
    element->setChecked(element->data() == tag);
  }
}

void MainMenuBar::setVisible(const QString& name, bool visible) {
  if (QAction* found = action(name)) {
    found->setVisible(visible);
  }
}
