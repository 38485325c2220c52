#pragma once

#include "core/planning/SceneRatings.h"

#include <QPixmap>
#include <QWidget>

/// The ratings of all scenes as graphs on paper. What was painted once is kept as long as nothing of it changes.
class ChartPicture : public QWidget {
  Q_OBJECT

 public:
  explicit ChartPicture(QWidget* parent = nullptr);

  void setRatings(const SceneRatings& ratings);
  /// The told colour of a field, or its counterpart on a dark desktop.
  static QColor colourOf(size_t field, const QPalette& palette);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QPixmap painted() const;

  SceneRatings ratings_;
  QPixmap picture_;
};
