#pragma once

#include "core/layout/PrintState.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QToolButton;

/// Asks which printer a report goes to, and in what letters and spacing.
class frmPrinterSetup : public QDialog {
  Q_OBJECT

 public:
  explicit frmPrinterSetup(QWidget* parent = nullptr);

  /// The report isn't to be printed.
  bool Cancelled = true;
  /// The scenes' details are to be printed too; offered where OfferDetails was called.
  bool Details = false;

  /// Before ShowForm: a choice between the text alone and the scenes with what was planned of them.
  void OfferDetails();
  /// Before ShowForm: the report can be looked at as it would be printed now. True when it is to be printed so.
  using Preview = std::function<bool(const PrintState& state, bool details)>;
  void OfferPreview(Preview preview);
  /// Before ShowForm: what a PDF file is called at first.
  void SuggestName(const QString& name) { suggestedName_ = name; }

  /// Offers the printer that reports of this key went to last. When it returns and wasn't cancelled, the chosen
  /// printer is the one in use, and the print state is as it was chosen.
  void ShowForm(const QString& reportKey, const QString& prompt);

  void done(int result) override;

 private:
  void createControls();
  void buildLayout();
  void connectSignals();
  void fillFonts();
  void showPrinter(const QString& name);
  void showSample();
  PrintState chosenState() const;
  bool isSizeTaken();
  bool askPdfPath();
  void cmdSetup_Click();
  void cmdPreview_Click();
  void cmdOk_Click();

  QLabel* lblTitle = nullptr;
  QToolButton* lblReportPrinterName = nullptr;
  QPushButton* cmdSetup = nullptr;
  QRadioButton* optSingleSpaced = nullptr;
  QRadioButton* optOneAndHalf = nullptr;
  QRadioButton* optDoubleSpaced = nullptr;
  QComboBox* cmbFonts = nullptr;
  QLineEdit* txtFontSize = nullptr;
  QLabel* picPreview = nullptr;
  QCheckBox* chkDetails = nullptr;
  QPushButton* cmdPreview = nullptr;
  QPushButton* cmdOk = nullptr;
  QPushButton* cmdCancel = nullptr;

  QString reportKey_;
  QString printerName_;
  QString suggestedName_;
  Preview preview_;
};
