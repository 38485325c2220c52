#pragma once

#include <QFrame>
#include <QString>

/// A picture of how much is done: a green bar under a text.
class TargetBar : public QFrame {
  Q_OBJECT

 public:
  explicit TargetBar(QWidget* parent = nullptr);

  /// The bar is as much of the width as the value is of the maximum; a maximum of 0 counts as 1.
  void ShowProgressString(qint64 value, qint64 maximum, const QString& text);
  void clear() { ShowProgressString(0, 0, {}); }
  const QString& text() const { return text_; }
  /// Of the picture's width, from 0 to 1.
  double share() const { return share_; }

  /// The told green, or on a dark desktop one that the text reads on.
  static QColor green(const QPalette& palette);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double share_ = 0;
  QString text_;
};
