#pragma once

#include <QComboBox>

/// A box of choices on the editor. The mouse wheel passes it by: scrolling must not choose anything. Of a long entry it
/// shows the beginning, and its tool tip all.
class EditorCombo : public QComboBox {
  Q_OBJECT

 public:
  /// Asks for a few letters' room, whatever it holds. Box and list are spoken of by the box's accessible name.
  EditorCombo(const QString& name, const QString& spokenName, QWidget* parent = nullptr);

  /// An entry that stands for what has this ID.
  void addID(const QString& text, qint32 id) { addItem(text, id); }
  /// Selects the entry of this ID; none where there is none.
  void selectID(qint32 id) { setCurrentIndex(findData(id)); }
  /// 0 when no entry is selected.
  qint32 selectedID() const { return currentData().toInt(); }

  /// Selects the entry at an index: the first for -1, which is a value that was never set. One that the list doesn't
  /// reach selects none, so that whoever reads it back leaves the value alone.
  void selectIndex(int index);
  /// The same entries in other words: what is selected stays so.
  void renew(const QStringList& entries);

 protected:
  bool event(QEvent* event) override;
  void childEvent(QChildEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  /// The entry as it is shown.
  QString shownText() const;
};

/// One whose choice leads to another window. Arrow keys and letters open the list instead of choosing at once, so that
/// the entries on the way to another aren't opened.
class NavigationCombo : public EditorCombo {
  Q_OBJECT

 public:
  using EditorCombo::EditorCombo;

  void showPopup() override;

 Q_SIGNALS:
  /// The list is going to be seen.
  void opening();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};
