#pragma once

#include "core/layout/PrintedPage.h"

#include <QDialog>

#include <memory>

class PageView;
class QComboBox;
class QLabel;
class QPushButton;
class QScrollArea;
class QSpinBox;

/// The pages of a print before it is printed: one at a time, in any size.
class frmPrintPreview : public QDialog {
  Q_OBJECT

 public:
  explicit frmPrintPreview(std::shared_ptr<const PrintDocument> document, QWidget* parent = nullptr);

  void done(int result) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void createControls();
  void buildLayout();
  void connectSignals();
  int pageCount() const { return static_cast<int>(document_->pages.size()); }
  void showPage(int number);
  void goBy(int pages);
  void zoomTo();
  void zoomBy(int steps);
  bool readKey(const QKeyEvent& event);
  bool readNumberKey(const QKeyEvent& event);

  std::shared_ptr<const PrintDocument> document_;
  PageView* picPage = nullptr;
  QScrollArea* area_ = nullptr;
  QPushButton* cmdFirst = nullptr;
  QPushButton* cmdPrevious = nullptr;
  QPushButton* cmdNext = nullptr;
  QPushButton* cmdLast = nullptr;
  QSpinBox* txtPage = nullptr;
  QComboBox* cmbZoom = nullptr;
  QPushButton* cmdPrint = nullptr;
  QPushButton* cmdCancel = nullptr;
};
