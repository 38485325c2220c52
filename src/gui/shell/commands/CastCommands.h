#pragma once

#include "core/model/StoryMoves.h"
#include "gui/shell/main/MenuBindings.h"

#include <QObject>

class ListView;
class clsProject;
class clsScene;
class frmMain;

/// What is done with the characters, locations and items: in their own window, to the selected scene, and in the lists
/// beside the scenes.
class CastCommands : public QObject, public CommandGroup {
  Q_OBJECT

 public:
  explicit CastCommands(frmMain& main);

  void bind(MenuBindings& menu) override;

 private:
  void joinLists();
  ListView& listOf(CastKind kind, bool inScene) const;
  void manage(void (*open)(clsProject&));
  void addToSelectedScene(CastKind kind, int listType);
  void removeSelected(CastKind kind);
  void editSelected(CastKind kind, const ListView& list);
  void mnuSetVP_Click();
  void eachSelectedScene(void (*change)(clsScene&, CastKind, const QList<qint32>&));
  void showChanged(const QList<qint32>& sceneIDs);

  frmMain& main_;
};
