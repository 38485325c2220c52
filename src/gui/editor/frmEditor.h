#pragma once

#include "core/model/SceneBefore.h"
#include "core/model/SceneEditor.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorColours.h"
#include "gui/editor/SceneCopies.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

class CharacterMarks;
class EditorFind;
class EditorSpelling;
class EditorStatusBar;
class EditorTabStrip;
class FieldClipboard;
class FontBar;
class QAction;
class QEventLoop;
class QMenu;
class QPushButton;
class QToolButton;
class RichTextBox;
class RightClick;
class SceneNavigator;
class TextHistory;
class TextMarkLayer;
class TextObjects;
class ViewpointBox;
class clsScene;

/// The window in which one scene is written. It holds no data of its own: it copies the scene into its controls,
/// copies them back and tells the scene to write itself. The scene is looked up by its ID each time. When that has left
/// the book that is open, or its book was closed, the window stays and can save no more: its text can be copied.
class frmEditor : public QMainWindow, public SceneEditor {
  Q_OBJECT

 public:
  frmEditor();
  ~frmEditor() override;

  void EditScene(qint32 id) override;
  /// Copies the controls into the scene, the text in the one colour of saved text. A text that nobody edited stays as
  /// the scene has it, byte for byte. A scene of the book gets its safety copy too.
  void FormToData(clsScene& scene);
  /// Shows the scene's place in the book and its cast as they are now; what was typed or chosen here stays.
  void FindInCombos(clsScene& scene);

  void Show() override;
  void Activate() override;
  void ShowModal() override;
  bool IsVisible() const override { return isVisible(); }
  void HideWindow() override { hide(); }
  void Unload() override;
  void SaveQuietly() override;
  bool HoldsUnsaved() const override;
  /// What could not be saved keeps the window too.
  bool AskIfSave() override;
  void LetGo() override;
  bool SavedChanges() const override { return savedChanges_; }

  void setCurrentSearchString(const QString& text) override;
  void MarkCharacters() override;
  void UnmarkCharacters() override;
  void UpdateCombos() override;

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void createMenus();
  void createFileMenu();
  void createEditMenu();
  void createRightClickMenu();
  void followClipboard(QMenu& menu);
  void createSceneMenu();
  void createFormatMenu();
  void createSpellingMenu();
  void offerSpelling(QMenu& menu, RightClick& clicks);
  void createToolsMenu();
  QMenu* addMenu(const QString& name, const QString& caption);
  /// What runs is guarded under the entry's name.
  QAction* addEntry(QMenu* menu, const QString& name, const QString& caption, std::function<void()> run);
  void buildLayout();
  QWidget* buildBars();
  QWidget* buildLowerPart();
  void connectSignals();
  void connectMoves();
  void connectCharacters();
  void connectCopies();
  void connectFormat();
  void readSettings();
  void storeWindowSettings();
  void DisableOrEnable(bool enabled);
  QList<QPoint> placesOfOthers() const;
  void setCaption(const QString& title);
  void setDirty(bool dirty);
  void markDirty() { setDirty(true); }
  void RedrawForm();
  void cmdHide_Click();
  /// For a moment in the panel for hints.
  void showHint(const QString& text);

  void ShowScene();
  void createUndoEntries(QMenu* edit);
  void connectUndo();
  /// What of undo and redo there is to do; while the menu is up also in a field.
  void showUndo(bool exactly);
  void mnuUndo_Click();
  void mnuRedo_Click();

  void showPlace(clsScene& scene);
  void DataToForm(qint32 id, bool loadText);
  void loadMainText(const clsScene& scene);
  /// As it is saved: in the one colour of saved text, each font by its name.
  RichText cleanText() const;
  QByteArray textToSave() const;
  void tellLosses();
  /// Puts a copy of the scene's text as it was into the day's backups, if what is going to be saved lacks something of
  /// it. False when that failed and the user wants no save without it.
  bool keepOriginal(clsScene& scene, bool mayAsk);
  void applyEditorFont();
  void mnuSelectFont_Click();
  void mnuBGColour_Click();
  void mnuFGColour_Click();
  void takeColours(const EditorColours& colours);
  void showColours(const EditorColours& colours);
  void mnuOpenNote_Click();
  void textChanged();
  void mnuPrintScene_Click();
  void mnuTop20_Click();
  void ShowSceneWordCount();
  void showInLanguage();
  void showChapterWordCount(qint32 wordsHere);
  /// False, and the user has been told, when there is no scene to save to any more.
  bool SaveChanges(bool spellCheck);
  /// The text, to its file; the plan as well in memory.
  bool writeChanges(clsScene& saved);
  void savePlan();
  /// The same, and told, when the text could not be written to its file.
  bool saveWhole(bool spellCheck = false);
  void showSaved();
  /// For the status bar.
  QString whereSaved() const;
  void keepWithoutBook();
  // Between the saves.
  void beginCopies();
  void restartCopies(int dueMs);
  void TimerBackup_Timer();
  void keepTyped(clsScene& shown);
  void AutoBackup(clsScene& shown, const QByteArray& rtf);
  void tellCopy(const QString& failure);
  void showCopyPlace();
  /// The scene holds again what it held before the timer put there what isn't wanted.
  void dropTyped();
  void ExitForm();
  void saveAndExit();
  void closeForm();
  void refreshNavigator();
  void saveAndMove(int step);
  void cmbScene_Click(qint32 sceneID);
  void SwitchChapter(qint32 chapterID);
  void MoveToNext();
  /// Saves, opens the scene whose ID the function gives, and closes this window behind it. Where any of that fails, or
  /// the ID is 0, this window stays.
  void handOver(const std::function<qint32()>& target);
  bool openNext(qint32 sceneID);
  void retire();
  /// Goes nowhere after all.
  void stay();
  void EditChar(qint32 id, qint32 tab);
  void showSheet(qint32 id, qint32 tab);
  void cmdAddChar_Click();
  /// Who is in the scene is saved at once, apart from the text.
  void changeCast(const QList<qint32>& ids, bool inScene);
  void mnuChar_Click(bool highlight);
  bool hasPlaceInBook();
  /// In its chapter: behind this scene, or at the end.
  void addScene(bool behindThisOne);
  void splitOnCustom();
  bool mayBeSplit();
  void splitScene(const QString& separator);
  void cutAt(const QString& separator);
  void cutSelection(void (EditorTabStrip::*into)(const QString&));
  /// Null once the scene has left the book: its ID may be another one's by then, or another book's.
  std::shared_ptr<clsScene> scene() const;

  qint32 SceneID = 0;
  /// The one that was opened, to tell it from another of its ID.
  std::weak_ptr<clsScene> opened_;
  /// Text or fields changed since the last save.
  bool Dirty = false;
  bool savedChanges_ = false;
  bool leaving_ = false;
  /// Another scene's window is opening in place of this one.
  bool handingOver_ = false;
  qint16 CurrentTab = 0;
  /// Tabs and what stands beside them are hidden, the text fills the window.
  bool ControlsHidden = false;
  EditorColours colours_;
  /// What of the scene's text the next save loses.
  RtfLosses losses_;
  /// Nothing was counted yet.
  std::optional<QString> LastCountedText;
  QTimer TimerWC;
  /// A hint goes when its time is over.
  QTimer hintTime_;
  QTimer TimerBackup;
  SceneCopies copies_;
  /// As the scene was when it was saved last, once the timer has put there what was typed.
  std::optional<SceneBefore> before_;
  /// The text in the window is to be written although nobody edited it since: its file didn't take it.
  bool textDue_ = false;
  /// Something changed that the timer hasn't taken up.
  bool typedSinceCopy_ = false;
  QTimer TimerLoadFonts;
  QTimer TimerExit;
  QEventLoop* modalLoop_ = nullptr;
  /// Where the keyboard was before the buttons were disabled.
  QPointer<QWidget> focusBefore_;

  RichTextBox* txtMain = nullptr;
  TextObjects* objects_ = nullptr;
  TextHistory* history_ = nullptr;
  /// The scene was split since its text was loaded: the way back ends there.
  bool undoEndsAtSplit_ = false;
  QAction* mnuUndo_ = nullptr;
  QAction* mnuRedo_ = nullptr;
  TextMarkLayer* marks_ = nullptr;
  CharacterMarks* characters_ = nullptr;
  QAction* mnuChar = nullptr;
  EditorFind* find_ = nullptr;
  FieldClipboard* clipboard_ = nullptr;
  EditorSpelling* spelling_ = nullptr;
  SceneNavigator* navigator_ = nullptr;
  FontBar* fontBar_ = nullptr;
  QToolButton* cmdHide = nullptr;
  QWidget* lower_ = nullptr;
  EditorTabStrip* TabStrip1 = nullptr;
  ViewpointBox* viewpoint_ = nullptr;
  QPushButton* cmdSave = nullptr;
  QPushButton* cmdSaveAndExit = nullptr;
  EditorStatusBar* StatusBar1 = nullptr;
};
