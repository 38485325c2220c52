#pragma once

#include <QWidget>

class NavigationCombo;
class QPushButton;
class clsScene;

/// The bar with which an editor goes from scene to scene: the chapters of the book, the scenes of the chapter, and the
/// neighbours of the one that is shown.
class SceneNavigator : public QWidget {
  Q_OBJECT

 public:
  /// A scene to go to, or a chapter without any; both 0 where there is nothing.
  struct Target {
    qint32 sceneID = 0;
    qint32 chapterID = 0;
  };

  explicit SceneNavigator(QWidget* parent = nullptr);

  /// Fills both lists anew and selects the scene and its chapter. The scene's entry bears this title, as it is typed.
  void find(clsScene& scene, const QString& title);
  /// The entry of the selected scene follows its title.
  void showTitle(const QString& title);
  /// The neighbour of the selected scene: the next one (1) or the one before (-1). Behind the last of a chapter comes
  /// the first of the next, behind the last chapter the first, and the same backwards.
  Target neighbour(int step) const;
  /// The ID of the chapter behind the selected one; 0 behind the last.
  qint32 nextChapter() const;

 Q_SIGNALS:
  /// One of the lists is going to be looked at.
  void opening();
  void chapterChosen(qint32 chapterID);
  void sceneChosen(qint32 sceneID);
  void neighbourWanted(int step);

 private:
  void buildLayout();
  void FillChapterCombo();
  void FillSceneCombo();

  NavigationCombo* cmbChapter;
  NavigationCombo* cmbScene;
  QPushButton* cmdSaveAndPrev;
  QPushButton* cmdSaveAndNext;
};
