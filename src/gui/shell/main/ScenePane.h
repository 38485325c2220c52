#pragma once

#include <QWidget>

class ListView;
class ProportionalSplitter;
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
  /// Fills the list and selects a row, counted from 1: 0 keeps what is selected, in another chapter the row at the
  /// same place. The first row when there is no such row.
  void FillSceneList(qint32 ChapterID, int SelectIndex);
  /// Columns have room for the words of the language that is in force.
  void showInLanguage();
  /// No chapter: an empty list and display.
  void clear();
  /// The row of the scene shows what is true now. Nothing for a scene that isn't listed.
  void UpdateSceneRow(qint32 SceneID);
  void DisplaySelectedScene();
  void ClearSceneDisplay();
  void SelectScene(qint32 SceneID);
  qint32 SelectedSceneID() const;

  /// The splitter's left edge and the pane's width, in twips; 0 before the pane is laid out.
  double splitterLeft() const;
  double frameWidth() const;
  ProportionalSplitter& splitter() const { return *splitter_; }
  /// Where the splitter leaves all tabs to be read, if the list has enough then.
  double splitForTabs() const;

 Q_SIGNALS:
  /// A double click on a scene, or the key for it.
  void sceneOpened();

 private:
  void buildLayout();
  void connectSignals();
  void displayIfOther();

  ListView* ListScenes;
  SceneTabs* TabStrip1;
  ProportionalSplitter* splitter_;
  qint32 shownChapterID_ = 0;
  qint32 displayedSceneID_ = 0;
  /// The list is being filled: selections in it are no choice of the user's.
  bool filling_ = false;
};
