#pragma once

#include "core/persist/NewBook.h"

#include <QDialog>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;

/// Asks for all that a new book needs, a page for each thing. On disk only the book's folder is made, at the very end:
/// a wizard that is cancelled leaves nothing behind.
class frmProjectWizard : public QDialog {
  Q_OBJECT

 public:
  explicit frmProjectWizard(QWidget* parent = nullptr);

  /// The wizard over a window, in the way of all others; it goes when it is closed.
  static frmProjectWizard* showOver(QWidget& window);

  /// What was answered, without blanks around it.
  NewBook book() const;

  bool Cancelled = false;
  qint16 CurrentPage = 0;

  void reject() override;

 Q_SIGNALS:
  /// All pages were gone through. The window has closed, and the book's folder is there.
  void bookWanted(const NewBook& book);

 private:
  void createControls();
  void buildLayout();
  void connectSignals();
  QVBoxLayout* addPage(const QString& heading, const QString& text);
  void addFieldPage(const QString& heading, const QString& text, QLayout* row, const QString& example);
  QHBoxLayout* makePathRow();

  void showPage(int page);
  void showSummary();
  void cmdNext_Click();
  void cmdPickPath_Click();
  bool mayLeavePage();
  bool isFilled(QLineEdit& field, const QString& complaint);
  bool pathIsChosen();
  /// True, said, and the writer back at the path, when there is a reason.
  bool refused(const QString& whyNot);

  QStackedWidget* pages_ = nullptr;
  QLineEdit* txtProjTitle = nullptr;
  QLineEdit* txtAuthor = nullptr;
  QLineEdit* txtProjectpath = nullptr;
  QPlainTextEdit* txtSummary = nullptr;
  QLabel* lblFileName = nullptr;
  QPushButton* cmdPickPath = nullptr;
  QPushButton* cmdBack = nullptr;
  QPushButton* cmdNext = nullptr;
  QPushButton* cmdCancel = nullptr;

  /// The folder that isn't there and may be made.
  QString mayBeMade_;
};
