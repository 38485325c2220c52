#pragma once

#include "core/infra/ErrorReport.h"

#include <QDialog>

class QGroupBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

/// The error reporter: shows what failed, takes a comment, and makes a mail or a text file of it.
class fSHAREDErrorRpt : public QDialog {
  Q_OBJECT

 public:
  fSHAREDErrorRpt(ErrorReport report, QString helpTopic, QWidget* parent = nullptr);

  /// Opens the reporter and waits until it is closed. A failure while one is open is logged, never shown in
  /// a second one.
  static void run(const QString& text, const QString& helpTopic);

  /// True when it was closed by the window's own control.
  bool Cancelled() const { return cancelled_; }

 public Q_SLOTS:
  void reject() override;

 private:
  void createControls();
  void buildLayout();
  void connectSignals();
  void reveal(QGroupBox* frame, QPushButton* button, QPlainTextEdit* text);
  const ErrorReport& withComment();
  void submit();
  void viewReport();
  void tellByHand();

  ErrorReport report_;
  QString helpTopic_;
  bool cancelled_ = false;

  QLabel* lblError_ = nullptr;
  QPlainTextEdit* txtError = nullptr;
  QGroupBox* fraUserMessage_ = nullptr;
  QPlainTextEdit* txtUserMessage = nullptr;
  QGroupBox* fraLog_ = nullptr;
  QPlainTextEdit* txtLog = nullptr;
  QLabel* lblNotice_ = nullptr;
  QPushButton* cmdShowComments = nullptr;
  QPushButton* cmdViewLog = nullptr;
  QPushButton* cmdViewReport = nullptr;
  QPushButton* cmdEmail = nullptr;
  QPushButton* cmdHelp = nullptr;
  QPushButton* cmdExit = nullptr;
};
