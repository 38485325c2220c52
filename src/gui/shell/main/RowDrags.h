#pragma once

#include "core/model/StoryMoves.h"

#include <QObject>
#include <Qt>

class ListView;
class frmMain;

/// What is dragged between the lists of the main window, and where it may go: scenes inside their chapter and onto
/// others, chapters, and people, places and things between a scene and the lists of all. What keys and menu entries
/// move goes the same road.
class RowDrags : public QObject {
  Q_OBJECT

 public:
  explicit RowDrags(frmMain& main);

  /// What the drag that was begun last took along.
  bool DraggingScenes = false;
  bool DraggingChapters = false;
  bool DraggingChars = false;
  bool DraggingItems = false;
  bool DraggingLocations = false;
  /// The chapter of the first scene that was dragged.
  qint32 DragSourceChapterID = 0;

  /// The selected row one up (-1) or down (1), as if it had been dropped on its neighbour. Says why when it can't.
  void moveScene(int step);
  void moveChapter(int step);
  /// The selected scenes to the end of the chapter before (-1) or behind (1).
  void moveScenesToNeighbour(int step);

 private:
  void ClearDragFlags();
  bool& flagOf(CastKind kind);
  void joinSceneList();
  void joinChapterList();
  void joinCastLists();
  void joinCastList(ListView& list, CastKind kind, bool inScene);

  Qt::DropAction ListScenes_OLEDragOver(int row) const;
  void ListScenes_OLEDragDrop(const QList<qint32>& ids, qint32 target);
  Qt::DropAction ListChapters_OLEDragOver(int row) const;
  void ListChapters_OLEDragDrop(const QList<qint32>& ids, qint32 target);
  void ListCast_OLEDragDrop(CastKind kind, bool intoScene, const QList<qint32>& ids);
  void dropScenesInChapter(const QList<qint32>& ids, qint32 target);
  void dropCastOnScenes(CastKind kind, const QList<qint32>& ids);
  bool moveRow(ListView& list, int step, void (RowDrags::*drop)(const QList<qint32>&, qint32));
  void saveMove();

  frmMain& main_;
};
