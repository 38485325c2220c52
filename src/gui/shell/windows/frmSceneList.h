#pragma once

#include "core/infra/ChangePoller.h"

#include <QDialog>
#include <QHash>
#include <QList>
#include <QSet>
#include <QStringList>

class ListView;
class QComboBox;
class QPushButton;

/// All scenes of the book in the order of the story, in a window beside the main one. It keeps itself in step with the
/// model: once a second it asks the change tables, and looks whether the same scenes stand in the same chapters still.
class frmSceneList : public QDialog {
  Q_OBJECT

 public:
  explicit frmSceneList(QWidget* parent = nullptr);

  /// Every row anew. What was selected is selected and seen.
  void UpdateItem();
  /// The same, and the list stays scrolled as it is.
  void refresh();
  /// Selects this scene, the first where it isn't there, and brings it into the middle of the list.
  void SelectScene(qint32 id);
  /// No rows, whatever the project holds: it is going.
  void clear();
  /// Up and to the front, where it stood last.
  void bringForward();
  void storeLayout();

  void reject() override;

 Q_SIGNALS:
  /// The user has closed the window.
  void ClosedForm();
  /// Scenes stand elsewhere than before.
  void MovedScenes();
  /// These scenes are to have this status.
  void statusWanted(const QList<qint32>& scenes, qint16 status);
  /// A scene was opened in its editor, or brought forward there.
  void sceneOpened();

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  /// What stands where.
  struct Story {
    QList<qint32> scenes;
    QStringList chapters;
    bool operator==(const Story&) const = default;

    static Story ofBook();
  };

  void createControls();
  void fillStatuses();
  void setUpColumns();
  void buildLayout();
  void connectSignals();
  void restoreLayout();
  void followChanges();
  void fillRows(Story story);
  void sceneChanged(qint32 id);
  void showRenamed();
  void showInLanguage();
  void enableButtons();
  void ListView1_DblClick();
  void cmdChangeSelected_Click();

  ListView* ListView1 = nullptr;
  QPushButton* cmdChangeSelected = nullptr;
  QComboBox* cmbStatus = nullptr;
  QPushButton* cmdExit = nullptr;
  /// As the rows show it.
  Story shown_;
  /// The row of each scene.
  QHash<qint32, int> rowOf_;
  /// Characters that have changed in the poll that is going on.
  QSet<qint32> renamed_;
  ChangePoller poller_;
};
