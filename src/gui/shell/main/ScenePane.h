#pragma once

#include <QWidget>

class ListView;
class ProportionalSplitter;
class QTreeWidgetItem;
class SceneTabs;

/// The scenes of the selected chapter, and beside them, over a splitter, the display of the selected one.
class ScenePane : public QWidget {
  Q_OBJECT

 public:
  explicit ScenePane(QWidget* parent = nullptr);

  ListView& listScenes() const { return *ListScenes; }
  SceneTabs& tabStrip1() const { return *TabStrip1; }

  /// The chapter whose scenes the list shows; 0 when it shows none.
  qint32 shownChapterID() const { return shownChapterID_; }
  /// Fills the list and selects a row, counted from 1: 0 for the row that is selected already. The first row when
  /// there is no such row.
  void FillSceneList(qint32 ChapterID, int SelectIndex);
  /// No chapter: an empty list and display.
  void clear();
  void UpdateSceneRow(QTreeWidgetItem& row, qint32 SceneID) const;
  void DisplaySelectedScene();
  void ClearSceneDisplay();
  void SelectScene(qint32 SceneID);
  qint32 SelectedSceneID() const;

  /// The splitter's left edge and the pane's width, in twips; 0 before the pane is laid out.
  double splitterLeft() const;
  double frameWidth() const;
  ProportionalSplitter& splitter() const { return *splitter_; }
  /// Gives the scenes' titles the room that the other columns leave. Where it is scarce, file names and letters go
  /// behind the edge of the list.
  void fitSceneTitles();

 Q_SIGNALS:
  void sceneOpened();

 private:
  void buildLayout();
  void connectSignals();
  void recolourRows();
  void displayIfOther();

  ListView* ListScenes;
  SceneTabs* TabStrip1;
  ProportionalSplitter* splitter_;
  qint32 shownChapterID_ = 0;
  qint32 displayedSceneID_ = 0;
  /// The list is being filled: selections in it are no choice of the user's.
  bool filling_ = false;
};
