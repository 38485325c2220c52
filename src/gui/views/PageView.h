#pragma once

#include "gui/toolkit/PagePainter.h"

#include <QWidget>

/// A page of a print as a sheet of paper. Its text is spoken.
class PageView : public QWidget {
 public:
  explicit PageView(QWidget* parent = nullptr);

  /// The page outlives this, or another one is shown before it goes.
  void show(const PrintedPage& page, const PaperSize& paper);
  /// As a share of the size on paper, where a screen has 96 pixels to the inch.
  void setZoom(double zoom);
  double zoom() const { return zoom_; }
  /// The zoom at which the sheet has this size at most; a height of 0 counts for nothing.
  double zoomFor(const QSize& room) const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void adapt();

  const PrintedPage* page_ = nullptr;
  PagePainter::Pictures pictures_;
  PaperSize paper_ = PaperSize::a4();
  double zoom_ = 1;
};
