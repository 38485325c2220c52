#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

/// Shows a picture in the middle, made smaller where it doesn't fit and never larger than it is.
class PictureBox : public QWidget {
  Q_OBJECT

 public:
  explicit PictureBox(QWidget* parent = nullptr);

  /// A null image leaves it empty.
  void setImage(const QImage& image);
  const QImage& image() const { return image_; }
  /// Where the picture is seen; empty when there is none.
  QRect shownAt() const;

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QImage image_;
  /// As it was painted last.
  QPixmap scaled_;
};
