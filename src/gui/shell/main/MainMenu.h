#pragma once

#include <QHash>
#include <QString>

#include <vector>

enum MenuFlags : unsigned {
  kPlain = 0,
  /// Never shown to the user.
  kHidden = 1U << 0,
  /// Shown in a development build only.
  kDevelopment = 1U << 1,
  kSeparator = 1U << 2,
  /// A menu that is not in the bar: the pop-up of a list.
  kPopupOnly = 1U << 3,
  kCheckable = 1U << 4,
};

/// One line of the menu tree.
struct MenuEntry {
  /// Of a control array "name(n)".
  const char* name;
  const char16_t* caption;
  /// Name of the menu that it stands in; empty for a menu of the bar.
  const char* parent;
  unsigned flags;
  /// A key in portable spelling, or empty.
  const char* shortcut;
  /// What choosing the entry stands for, whatever its caption says in the writer's language; empty for most.
  const char16_t* tag;
};

/// The main window's menus in order; a menu stands before its entries.
const std::vector<MenuEntry>& mainMenuTable();

/// Whether the entry is ever shown in the bar's menus.
bool isOffered(const MenuEntry& entry, bool developmentBuild);

/// What to call a command in a message: its caption without what tells keys or asks for more.
QString commandName(const QString& caption);

/// "mnuFont" of "mnuFont(2)"; any other name as it is.
QString menuBaseName(const QString& name);

/// What a state of the window says of entries: the enabled flag by name without index. Entries that aren't
/// named stay as they are.
using MenuState = QHash<QString, bool>;

/// The start-up hasn't got as far as a project, or never will: leaving is all there is.
MenuState menusBeforeStart();
/// No project is loaded.
MenuState menusWithoutProject();
/// A project is loaded.
MenuState menusWithProject();
/// What open editors forbid, laid over the above.
MenuState menusForEditing(bool editing);
/// The entries of the pop-up of a scene's characters.
MenuState charEntries(bool anySelected, bool isViewpoint);
/// The entries of the Chapter and the Scene menu that need a row of their list to work on.
MenuState chapterEntries(bool anyRows);
MenuState sceneEntries(bool anyRows);
