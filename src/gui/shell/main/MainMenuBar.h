#pragma once

#include "gui/shell/main/MainMenu.h"
#include "gui/shell/main/MenuBindings.h"

#include <QList>
#include <QObject>

class QAction;
class QKeySequence;
class QMenu;
class QMenuBar;

/// One element that is loaded into a control array of the menu.
struct MenuElement {
  QString caption;
  QVariant tag;
  /// Why it can't be chosen; empty when it can.
  QString whyNot = {};
  /// Whether the caption is the program's own; else it is a name, which stays as it is in every language.
  bool isTranslated = false;
};

/// The menu tree as the window shows it. Actions and menus bear the names of the table. An entry whose command isn't
/// built yet is disabled whatever the state of the window, and says so; so is a menu in a menu that has no other.
class MainMenuBar : public QObject {
  Q_OBJECT

 public:
  /// Fills the bar from the table. A development build has some entries more.
  MainMenuBar(QMenuBar& bar, bool developmentBuild);

  /// Binds the group's entries; they are disabled until a state says otherwise. The group lives as long as anything can
  /// be chosen.
  void addCommands(CommandGroup& group);
  /// Whether something is bound to the entry, or to the array, of this name.
  bool isBuilt(const QString& name) const { return bindings_.isBound(menuBaseName(name)); }
  /// The entry that is offered and that a key of the menu belongs to; null when there is none.
  QAction* actionOf(const QKeySequence& key) const;

  /// The entry, or the action that opens the menu, of this name; null for an unknown one.
  QAction* action(const QString& name) const { return actions_.value(name); }
  QMenu* menu(const QString& name) const { return menus_.value(name); }
  /// Enables and disables what the state names; what it disables says why.
  void apply(const MenuState& state, const QString& whyNot = {});
  /// Why it can't be chosen: it or a menu that it stands in is disabled. Empty when it can.
  static QString whyNot(const QAction& action);

  /// Element 0, the one of the table, stays; these come behind it, numbered from 1, in the place of earlier ones.
  void loadElements(const QString& array, const QList<MenuElement>& elements);
  void setCaption(const QString& name, const QString& caption);
  /// Checks the element of the array that has this tag, and no other.
  void checkElement(const QString& array, const QVariant& tag);
  /// Sets one entry's visibility.
  void setVisible(const QString& name, bool visible);

 Q_SIGNALS:
  /// An entry was chosen; its command runs next.
  void chosen();
  /// What is to be said of the entry, or the menu of the bar, under the mouse; empty when there is nothing.
  void hinted(const QString& note);
  /// The key of a menu of the bar that is disabled.
  void refused(const QAction* menu);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void addLine(const MenuEntry& entry, QMenuBar& bar);
  QMenu* addMenu(const MenuEntry& entry, QMenuBar& bar);
  struct StatedAction {
    QString baseName;
    QAction* action;
    /// Of the element itself, and of the state that has disabled it.
    QString whyNot;
    QString whyNotNow = {};
  };

  QAction* addEntry(const MenuEntry& entry, const QString& name, const MenuElement& element);
  const StatedAction& remember(const QString& name, QAction* action, const QString& whyNot = {});
  void choose(const QAction& action);
  /// Why it can be chosen in no state; empty when it can.
  QString whyNever(const StatedAction& entry) const;
  bool holdsBuilt(const QMenu& menu) const;
  void setEnabled(const StatedAction& entry, bool enabled) const;
  const QAction* closedMenuOf(const QKeySequence& key) const;
  void unloadElements(const QString& array);

  QMenuBar& bar_;
  bool developmentBuild_;
  MenuBindings bindings_;
  QHash<QString, QAction*> actions_;
  /// What the states speak of, in the order of the menus.
  QList<StatedAction> stated_;
  QHash<QString, QMenu*> menus_;
  /// Elements of each array in order, and the line of the table that they repeat.
  QHash<QString, QList<QAction*>> arrays_;
  QHash<QString, const MenuEntry*> templates_;
};
