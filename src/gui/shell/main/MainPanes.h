#pragma once

#include <QWidget>

class ChapterPane;
class NotesPane;
class QSplitter;
class QTabWidget;
class ScenePane;

/// The face of the main window: chapters on the left, scenes or project notes on the right. Every list is a view
/// of the model; any row can be written anew from its ID alone.
class MainPanes : public QWidget {
  Q_OBJECT

 public:
  explicit MainPanes(QWidget* parent = nullptr);

  ChapterPane& FrameChapters() const { return *frameChapters_; }
  ScenePane& FrameScenes() const { return *frameScenes_; }
  NotesPane& FrameNotes() const { return *frameNotes_; }

  /// Titles, lists and notes anew from the project; the selection is kept by ID.
  void refill();
  /// Empties both lists and the display and fills the chapters.
  void FillChapterList();
  /// The scenes of the selected chapter; nothing when none is selected.
  void FillSceneList(int SelectIndex);
  /// No rows and no display, whatever the project holds. What is filled next selects its first rows.
  void ClearLists();
  void showScenesTab();

  void EditSelectedScene();
  void EditRow(qint32 SceneID);

  /// The left edge of the panes on the right, as a part of the whole width; 0 before they are laid out.
  double chapterSplit() const;
  /// Where the two splitters go as soon as the panes are on the screen: parts of the whole and of the scene pane.
  /// With `fitTitles` the titles of chapters and scenes take the room that the other columns leave.
  void placeSplitters(double chapterSplit, double sceneSplit, bool fitTitles);

 Q_SIGNALS:
  void chapterOpened();
  void titlesEdited();
  /// An editor was opened, or brought forward.
  void sceneEdited();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void buildLayout();
  void connectSignals();
  void showSelectedChapter(int SelectIndex);
  void applySplits();

  ChapterPane* frameChapters_;
  ScenePane* frameScenes_;
  NotesPane* frameNotes_;
  QTabWidget* tabStrip2_;
  QSplitter* splitter_;
  double chapterSplit_ = 0;
  double sceneSplit_ = 0;
  bool fitTitles_ = false;
};
