#pragma once

#include "core/planning/SceneRatings.h"

#include <QDialog>
#include <QTimer>

#include <array>

class ChartPicture;
class ElidedLabel;
class QLabel;

/// The four ratings of the scenes as coloured lines, scene by scene. The window stays up beside the others and keeps in
/// step with the book: once a second it compares what it shows.
class frmChart : public QDialog {
  Q_OBJECT

 public:
  explicit frmChart(QWidget* parent = nullptr);

  /// As the book stands now.
  void refresh();
  /// An empty chart, whatever the project holds: it is going.
  void clear();
  /// Up and to the front.
  void bringForward();
  void storeLayout();

  void done(int result) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void createControls();
  void buildLayout();
  void showRatings(const SceneRatings& ratings);
  void showLegend();
  void sayWhyEmpty();
  void checkChanges();

  ChartPicture* PicChart = nullptr;
  QLabel* lblEmpty = nullptr;
  std::array<ElidedLabel*, SceneRatings::kFields> lblLegend{};
  SceneRatings ratings_;
  QTimer Timer1;
};
