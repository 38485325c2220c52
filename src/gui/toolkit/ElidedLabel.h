#pragma once

#include <QLabel>

/// A label of one line that shows as much of its text as there is room for and asks for none. text() is whole, and
/// so is the tool tip of a shortened one.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(QWidget* parent = nullptr);

  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString shownText() const;
};

ElidedLabel* makeElidedLabel(const QString& name, QWidget* parent);
