#pragma once

#include "gui/shell/windows/BackupCopies.h"

#include <QDialog>

#include <functional>

class BackupTree;
class ListView;
struct ListRow;
class ProportionalSplitter;
class QLabel;
class QPushButton;
class QStackedWidget;
class RichTextBox;
class clsChapter;

/// The copies of scenes' texts in the book's folders of backups and in the archives there: to read, to copy from, to
/// put into the book as scenes of their own, and to delete. It stands beside the other windows, so that what was
/// copied can be pasted, and has to go with the book.
class frmBackupViewer : public QDialog {
  Q_OBJECT

 public:
  explicit frmBackupViewer(QWidget* parent = nullptr);

  /// The chapter that takes what is restored of a scene that has gone; 0 for none.
  std::function<qint32()> SelectedChapter = [] { return 0; };

  /// Shows what is there now.
  void FillForm();
  /// The same with this copy chosen, by its full path.
  void ShowCopy(const QString& path);

  void done(int result) override;

 Q_SIGNALS:
  /// A scene has come into the book.
  void bookChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void createControls();
  void buildLayout();
  void connectSignals();
  void restoreLayout();

  void showFolder();
  void showSelection();
  void showText(const BackupCopy* copy);
  void showButtons();
  ListRow rowOf(const BackupCopy& copy) const;
  /// The one that is chosen alone; null where there are none or several.
  const BackupCopy* chosen() const;
  std::shared_ptr<clsChapter> chapterFor(const BackupCopy& copy) const;

  void cmdRestore_Click();
  void cmdVerify_Click();
  void cmdDelete_Click();

  QStackedWidget* pages_ = nullptr;
  ProportionalSplitter* splitter_ = nullptr;
  ProportionalSplitter* listSplitter_ = nullptr;
  BackupTree* TreeView1 = nullptr;
  ListView* ListView1 = nullptr;
  RichTextBox* RichTextBox1 = nullptr;
  QLabel* lblNothing = nullptr;
  QLabel* lblHint = nullptr;
  QLabel* lblInfo = nullptr;
  QPushButton* cmdRestore = nullptr;
  QPushButton* cmdVerify = nullptr;
  QPushButton* cmdDelete = nullptr;
  QPushButton* cmdClose = nullptr;

  /// A row's tag is the place in here, from 1.
  std::vector<BackupCopy> copies_;
  /// Of the chosen one: its bytes, or why they can't be had.
  RestoredFile text_;
};
