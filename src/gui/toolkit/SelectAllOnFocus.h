#pragma once

#include <QObject>

class QLineEdit;

/// Selects the whole text of a field whenever the keyboard comes to it. A click does so too, unless it drags a
/// selection of its own; coming back from another window leaves the selection as it was.
class SelectAllOnFocus : public QObject {
  Q_OBJECT

 public:
  /// The field owns this.
  explicit SelectAllOnFocus(QLineEdit& field);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void selectAll();

  QLineEdit& field_;
  bool clicked_ = false;
};
