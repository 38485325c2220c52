#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class RichTextBox;

/// Asks what to look for and, unless its window can only be read, what to put in its place. It searches nothing itself:
/// the window that it belongs to hears what is wanted. Non-modal; it stays over its window and goes with it.
class frmFind : public QDialog {
  Q_OBJECT

 public:
  explicit frmFind(QWidget* owner);

  /// Without replacing, the controls for it are hidden.
  void offerReplace(bool offered);
  /// Takes over what to look for; nothing in place of an empty text.
  void setText(const QString& text);
  /// Shows it, beside its window the first time, with the keyboard in the field of what to look for or of what to put
  /// in its place.
  void ask(bool inReplace = false);
  /// Moves aside where it hides what is selected there.
  void keepClearOf(const RichTextBox& text);

  /// What is selected there as what to look for; empty where that is no term.
  static QString termIn(const RichTextBox& text);

 Q_SIGNALS:
  void DoFind(const QString& Text, bool CaseSensitive);
  void DoPrevious(const QString& Text, bool CaseSensitive);
  void DoReplace(const QString& Text, const QString& ReplaceWith, bool CaseSensitive);
  void DoReplaceAll(const QString& Text, const QString& ReplaceWith, bool CaseSensitive);

 private:
  using Asked = void (frmFind::*)(const QString&, bool);
  using AskedToReplace = void (frmFind::*)(const QString&, const QString&, bool);

  void buildLayout();
  QGridLayout* buildFields();
  void connectSignals();
  void find(Asked what);
  void replace(AskedToReplace what);
  void listTerms();
  void enableButtons();
  void placeBesideOwner();
  void keepClearOf(const QRect& part);

  QComboBox* cmbFind;
  QComboBox* cmbReplace;
  QLabel* lblReplace = nullptr;
  QCheckBox* chkCaseSensitive;
  QPushButton* cmdFind;
  QPushButton* cmdFindPrev;
  QPushButton* cmdReplace;
  QPushButton* cmdReplaceAll;
  QPushButton* cmdCancel;
  bool placed_ = false;
};

namespace FindPlace {

/// Where a dialog of this size stands beside a window: right of it, left of it, or in its upper right corner where the
/// room has no place beside it.
QPoint beside(const QRect& window, QSize dialog, const QRect& room);
/// Where the dialog goes so that it doesn't hide the part, as near as can be: it stays if it doesn't, or if no place is
/// better.
QPoint clearOf(const QRect& part, const QRect& dialog, const QRect& room);

}  // namespace FindPlace
