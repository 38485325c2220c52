#pragma once

#include "gui/shell/main/MainMenu.h"

#include <QList>
#include <QObject>

class QAction;
class QMenu;
class QMenuBar;

/// One element that is loaded into a control array of the menu.
struct MenuElement {
  QString caption;
  QVariant tag;
};

/// The menu tree as the window shows it. Actions and menus bear the names of the table.
class MainMenuBar : public QObject {
  Q_OBJECT

 public:
  /// Fills the bar from the table. What isn't in the bar belongs to the window.
  MainMenuBar(frmMain& window, QMenuBar& bar);

  /// The entry, or the action that opens the menu, of this name; null for an unknown one.
  QAction* action(const QString& name) const { return actions_.value(name); }
  QMenu* menu(const QString& name) const { return menus_.value(name); }
  void apply(const MenuState& state);

  /// Element 0, the one of the table, stays; these come behind it, numbered from 1, in the place of earlier ones.
  void loadElements(const QString& array, const QList<MenuElement>& elements);
  void setCaption(const QString& name, const QString& caption);
  /// Checks the element of the array that has this caption, and no other.
  void checkElement(const QString& array, const QString& caption);
  /// Sets one entry's visibility.
  void setVisible(const QString& name, bool visible);

 private:
  void addLine(const MenuEntry& entry, QMenuBar& bar);
  QMenu* addMenu(const MenuEntry& entry, QMenuBar& bar);
  QAction* addEntry(const MenuEntry& entry, const QString& name, const QString& caption);
  void remember(const QString& name, QAction* action);
  void choose(const MenuEntry& entry, const QAction& action);
  void unloadElements(const QString& array);

  frmMain& window_;
  struct StatedAction {
    QString baseName;
    QAction* action;
  };

  QHash<QString, QAction*> actions_;
  /// What the states speak of, in the order of the menus.
  QList<StatedAction> stated_;
  QHash<QString, QMenu*> menus_;
  /// Elements of each array in order, and the line of the table that they repeat.
  QHash<QString, QList<QAction*>> arrays_;
  QHash<QString, const MenuEntry*> templates_;
};
