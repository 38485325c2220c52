#pragma once

#include "gui/shell/main/MenuBindings.h"

#include <QList>
#include <QObject>
#include <QPointer>

class frmChart;
class frmDebug;
class frmMain;
class frmSceneList;
class frmStoryboard;

/// The windows that stay up beside the main one: the list of all scenes, the storyboard, the chart of ratings, and the
/// window that shows what is locked.
class WindowCommands : public QObject, public CommandGroup {
  Q_OBJECT

 public:
  explicit WindowCommands(frmMain& main);

  void bind(MenuBindings& menu) override;

 private:
  void mnuListView_Click();
  void mnuStoryboard_Click();
  void mnuShowDebug_Click();
  void createSceneList();
  void ExternalSceneList_ClosedForm();
  void ExternalSceneList_MovedScenes();
  void createStoryboard();
  void Storyboard_MadeChange();
  void mnuChart_Click();
  void createChart();
  void changeStatus(const QList<qint32>& scenes, qint16 status);
  /// It is on the screen, or would be if it weren't minimised.
  bool sceneListIsUp() const;

  frmMain& main_;
  QPointer<frmSceneList> ExternalSceneList;
  QPointer<frmStoryboard> Storyboard;
  QPointer<frmChart> Chart;
  QPointer<frmDebug> DebugWindow;
};
