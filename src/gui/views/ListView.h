#pragma once

#include <QTreeWidget>

/// A list of model rows in columns. A row's tag is the ID of what it shows. Cells stand as the titles of their
/// columns do; a cell that isn't seen whole tells its text in a tool tip. The list with the keyboard has a frame in
/// the colour of the selection, the selection of the others is without colour.
class ListView : public QTreeWidget {
  Q_OBJECT

 public:
  explicit ListView(const QStringList& columns, QWidget* parent = nullptr);

  static qint32 tagOf(const QTreeWidgetItem& row);
  static void setTag(QTreeWidgetItem& row, qint32 id);

  /// The selected row: the current one if it is selected, else the first selected; null when none is.
  QTreeWidgetItem* SelectedItem() const;
  /// Its tag; 0 when none is selected.
  qint32 SelectedTag() const;
  /// The tags of all selected rows in list order.
  QList<qint32> SelectedTags() const;
  /// Index of the row with this tag; -1 when there is none.
  int rowOfTag(qint32 id) const;
  /// Selects this row alone and makes it the current one; nothing for an index outside.
  void SelectRow(int row);
  /// Selects the row with this tag, the first row when there is none.
  void SelectTag(qint32 id);
  /// What the columns may take together, with a scroll bar beside them.
  int roomForColumns() const;
  /// What a column needs for its title and for cells such as this one.
  int widthFor(int column, QStringView cell) const;
  /// The column that gives or takes room with the list as long as the columns fill it. A user who has made them
  /// longer or shorter than that keeps his widths.
  void setFillColumn(int column) { fillColumn_ = column; }
  /// Makes the columns fill the list.
  void fillRoom();
  /// True while a key is down that may move the selection: its release tells the end.
  bool keyIsDown() const { return keyIsDown_; }

 Q_SIGNALS:
  /// A double click on a row.
  void rowOpened();
  void enterPressed();
  /// A key went up, or the keyboard went elsewhere while it was down.
  void keyUp(int key);
  /// The left or another mouse button went up.
  void buttonUp();
  /// Another palette is in force, this list's own too: what holds it hears of the change before or after the list.
  void paletteChanged();

 protected:
  bool event(QEvent* event) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void endKey(int key);

  bool keyIsDown_ = false;
  int fillColumn_ = -1;
  /// How long the columns are when they fill the list.
  int filledLength_ = -1;
};

/// Writes a cell only when it differs: a row that is shown repaints otherwise.
void setCell(QTreeWidgetItem& row, int column, const QString& text);
/// With the separators of the writer's language.
void setCell(QTreeWidgetItem& row, int column, qint32 number);
