#pragma once

#include <QDialog>

class QLabel;
class QTreeView;
class clsHashTable;

/// How often each word of a text stands in it: a list that a click on a column's title sorts.
class frmWordCount : public QDialog {
 public:
  explicit frmWordCount(QWidget* parent = nullptr);

  /// Shows every record of a table that was filled by text, and the sums. By count the most frequent stand first;
  /// otherwise they stand as they came. The table isn't needed any more afterwards.
  void FillForm(const clsHashTable& table, bool sortByCount = false);
  /// Says below the sums what was counted; nothing stands there by itself.
  void tellScope(const QString& scope);
  /// The window over another one, filled, on the screen and in the way of all others; it goes when it is closed. The
  /// most frequent words stand first.
  static frmWordCount* showOver(QWidget& window, const clsHashTable& table, const QString& scope = {});

 private:
  class Rows;

  void buildList();
  void buildLayout();
  /// A title takes the mouse alone; these do the same by the keyboard and the menu of the list.
  void addSortAction(int column, const QString& name, const QString& caption, int key);
  void ListView1_ColumnClick(int column);
  void sortBy(int column);

  Rows* rows_;
  QTreeView* ListView1 = nullptr;
  QLabel* lblInfo = nullptr;
  QLabel* lblScope = nullptr;
  /// Flipped by each click on a title, whichever column it is.
  bool ascending_ = false;
};
