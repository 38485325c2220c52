#pragma once

#include "core/spell/TextMarks.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

class DictionaryInstaller;
class QAction;
class QMenu;
class RichTextBox;
class TextMarkLayer;

/// Spell checking in an editor: when it runs, what its menu and the pop-up of a misspelled word offer. What it finds it
/// shows as marks, so it never touches the text. The word lists are read while there is nothing else to do, before the
/// first check that runs by itself.
class EditorSpelling : public QObject {
  Q_OBJECT

 public:
  /// The entries of the menu.
  struct Entries {
    QMenu* menu;
    QAction* mnuClear;
    QAction* mnuSpellingOn;
    QAction* mnuCheckNow;
    QAction* mnuInstallDictionary;
  };

  /// Belongs to the text.
  EditorSpelling(RichTextBox& text, TextMarkLayer& marks, const Entries& entries);
  ~EditorSpelling() override;

  /// Marks the names of characters where that is wanted, over what a check has marked.
  std::function<void()> MarkNames = [] {};
  /// The names that characters are known by.
  std::function<QStringList()> KnownNames = [] { return QStringList(); };

  /// What a scene shows that was opened now is checked in a moment.
  void begin();
  /// The window goes: nothing is checked or fetched any more.
  void stop();

  /// Checks when it is on or forced; marks the names in any case.
  void SpellCheckEditor(bool force);
  /// The same without force, when there is nothing else to do: whoever goes on at once isn't held up.
  void checkSoon();
  void mnuClear_Click();
  void mnuSpellingOn_Click();
  void mnuCheckNow_Click();
  void mnuInstallDictionary_Click();
  /// Selects the misspelled word at the place that was clicked; without one, at the caret. A selection within that word
  /// stays, and a larger one does where nothing was clicked. False when no such word is selected then.
  bool selectMisspelling(std::optional<qsizetype> clicked);
  /// The selected word is right from now on.
  void mnuAddWordToCustom_Click();

 Q_SIGNALS:
  /// For the caption of the window; empty when it is the window's own again.
  void told(const QString& what);

 private:
  TextMarks misspellings() const;
  void check();
  void loadSome();
  void dropMended();
  void RedrawMenu();
  void install();

  RichTextBox& text_;
  TextMarkLayer& marks_;
  Entries entries_;
  QTimer TimerFirstSpellCheck;
  /// Runs while lists are read for a check that is due.
  QTimer idle_;
  std::weak_ptr<DictionaryInstaller> installer_;
};
