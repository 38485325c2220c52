#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>
#include <type_traits>

/// What was chosen in a menu: the element of a control array (0 for a single entry) and what it stands for.
struct MenuChoice {
  int index = 0;
  QVariant tag;
};

/// What the entries of the menu do, by name. An entry that nothing is bound to isn't built yet.
class MenuBindings {
 public:
  using Handler = std::function<void(const MenuChoice&)>;

  struct Command {
    /// The handler's name in the log: "mnuSaveProj_Click".
    QByteArray logName;
    Handler run;
  };

  /// Binds an entry, or all elements of a control array by its name without index, to a handler that takes the
  /// choice or nothing. Throws RuntimeError 5 for a name that no line of the menu has, 457 for one that is bound.
  template <class Run>
  void bind(const char* name, Run run) {
    if constexpr (std::is_invocable_v<Run, const MenuChoice&>) {
      add(name, std::move(run));
    } else {
      add(name, [run = std::move(run)](const MenuChoice&) { run(); });
    }
  }

  bool isBound(const QString& baseName) const { return commands_.contains(baseName); }
  /// Null when nothing is bound. It stays where it is as long as this lives.
  const Command* find(const QString& baseName) const;

 private:
  void add(const char* name, Handler run);

  QHash<QString, std::shared_ptr<const Command>> commands_;
};

/// A group of commands that belong together. The main window owns it; nothing is chosen in a menu once that has gone.
class CommandGroup {
 public:
  virtual ~CommandGroup() = default;
  virtual void bind(MenuBindings& menu) = 0;
};
