#pragma once

#include "core/model/StoryMoves.h"

#include <QDialog>

class ListView;
class QCheckBox;
class QFrame;
class QLabel;
class QMenu;
class QPushButton;
struct ListKind;

/// The characters, the locations or the items of the book, to be managed or to choose from. What is changed here is
/// changed whether OK or Cancel is pressed: these two tell a chooser alone what to do.
class frmList : public QDialog {
  Q_OBJECT

 public:
  explicit frmList(QWidget* parent = nullptr);

  /// Which entities are listed: kListCharacters, kListLocations or kListItems. Without ShowChooser the kind stays what
  /// it is, and the window is there to choose from. To be called before the window is shown.
  void SetupFor(int type, bool ShowChooser);

  /// What it was set up for; 0 before.
  qint16 ListType = 0;
  /// It was closed by anything but OK.
  bool Cancelled = false;
  /// Major characters alone are listed.
  bool OnlyMajor = false;

  /// The IDs of the selected rows, in the order of the list.
  QList<qint32> selectedIDs() const;
  void selectID(qint32 id);
  /// The book isn't what it was when the window came up.
  bool hasChangedBook() const { return changed_; }

  int exec() override;
  void setVisible(bool visible) override;
  void done(int result) override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  static constexpr int kName = 0;

  void createControls();
  void buildLayout();
  void connectSignals();
  QPushButton* makeKindButton(const ListKind& kind);
  void makeList();
  void joinList();
  void showKind(bool ShowChooser);
  void tintChooser();
  void storeList();
  bool isSetUp();
  bool isCast() const;
  const ListKind& kind() const;

  void FillList();
  void fillRows();
  void SaveSortOrder();
  void cmdAdd_Click();
  void cmdDel_Click();
  void cmdEdit_Click();
  void chkOnlyMajor_Click();
  void ListItems_KeyUp(int key);
  void ListItems_Enter();
  void popUpMoves(const QPoint& place);
  void moveSelected(int step);
  bool mayMove(qint32 id, qint32 past, int step) const;

  QFrame* FrameChooser = nullptr;
  QLabel* lblChoose = nullptr;
  ListView* ListItems = nullptr;
  QPushButton* cmdAdd = nullptr;
  QPushButton* cmdDel = nullptr;
  QPushButton* cmdEdit = nullptr;
  QCheckBox* chkOnlyMajor = nullptr;
  QPushButton* cmdPrintList = nullptr;
  QPushButton* cmdOK = nullptr;
  QPushButton* cmdCancel = nullptr;
  QMenu* mnuMove = nullptr;
  QAction* mnuMoveUp = nullptr;
  QAction* mnuMoveDown = nullptr;
  bool changed_ = false;
};
