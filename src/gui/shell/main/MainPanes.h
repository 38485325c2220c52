#pragma once

#include <QWidget>

class ChapterPane;
class ListView;
class NotesPane;
class ProportionalSplitter;
class QTabWidget;
class ScenePane;

/// The face of the main window: chapters on the left, scenes or project notes on the right. Every list is a view
/// of the model; any row can be written anew from its ID alone.
class MainPanes : public QWidget {
  Q_OBJECT

 public:
  explicit MainPanes(QWidget* parent = nullptr);

  /// Without a project the list of chapters says how to come to one, and nothing else can be done here.
  void setProjectOpen(bool open);

  ChapterPane& chapters() const { return *FrameChapters; }
  ScenePane& scenes() const { return *FrameScenes; }

  /// Titles, lists and notes anew from the project; the selection is kept by ID.
  void refill();
  /// What stands there is of another language now.
  void showInLanguage();
  /// The chapters anew, without the scenes.
  void FillChapterList();
  /// The scenes of the selected chapter; nothing when none is selected.
  void FillSceneList(int SelectIndex);
  /// No rows and no display, whatever the project holds. What is filled next selects its first rows.
  void ClearLists();
  void showScenesTab();

  /// Asks about what is typed and stands in no note. False when the user goes on with it.
  bool mayLeaveNotes();
  /// The same goes into its note without a question.
  void storeTypedNote();
  /// What was stored is in the file now.
  void setNoteWritten();

  /// These scenes have changed: their rows and, for the selected one, the display.
  void showChanged(const QList<qint32>& sceneIDs);
  void EditSelectedScene();
  void EditRow(qint32 SceneID);

  /// The splitter between chapters and scenes.
  ProportionalSplitter& splitter() const { return *splitter_; }
  /// When the panes come up, the scene splitter leaves all tabs to be read.
  void fitTabsWhenShown() { fitTabs_ = true; }
  /// When the panes come up, titles in this list take the room that the other columns leave.
  void fillWhenShown(ListView& list) { toFill_.append(&list); }

 Q_SIGNALS:
  void chapterOpened();
  void titlesEdited();
  /// The selected rows of a list are to be removed by the command of this name.
  void removalWanted(const QString& command);
  void notesChanged();
  void noteSaved();
  /// An editor was opened, or brought forward.
  void sceneEdited();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void buildLayout();
  void connectSignals();
  void showSelectedChapter(int SelectIndex);
  void switchOn(bool open);

  ChapterPane* FrameChapters;
  ScenePane* FrameScenes;
  NotesPane* FrameNotes;
  QTabWidget* TabStrip2;
  ProportionalSplitter* splitter_;
  QList<ListView*> toFill_;
  bool fitTabs_ = false;
};
