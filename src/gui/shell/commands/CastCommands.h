#pragma once

#include "core/model/StoryMoves.h"
#include "gui/shell/main/MenuBindings.h"

#include <QObject>

class ListView;
class clsScene;
class frmMain;

/// What is done with the characters, locations and items beside the scene list: by their pop-ups, and by opening one.
class CastCommands : public QObject, public CommandGroup {
  Q_OBJECT

 public:
  explicit CastCommands(frmMain& main);

  void bind(MenuBindings& menu) override;

 private:
  void joinLists();
  ListView& listOf(CastKind kind, bool inScene) const;
  void editSelected(CastKind kind, const ListView& list);
  void mnuRemoveCharFromScene_Click();
  void mnuSetVP_Click();
  void mnuAddCharToAll_Click();
  void mnuRemoveCharFromAll_Click();
  void eachSelectedScene(void (*change)(clsScene&, CastKind, const QList<qint32>&));
  void showChanged(const QList<qint32>& sceneIDs);

  frmMain& main_;
};
