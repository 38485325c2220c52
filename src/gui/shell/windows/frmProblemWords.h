#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

/// The writer's own list of words to look for, which the settings keep.
class frmProblemWords : public QDialog {
  Q_OBJECT

 public:
  explicit frmProblemWords(QWidget* parent = nullptr);

  /// Modal over the window; it goes when it is closed. `accepted` tells that the settings hold the new list.
  static frmProblemWords* showOver(QWidget& window);

  void reject() override;
  void done(int result) override;

 protected:
  /// Keys of the list.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void createControls();
  void buildLayout();
  void connectSignals();
  QStringList words() const;
  /// Empty when it was cancelled.
  static QString askForWord(const QString& word);
  void cmdAdd_Click();
  void cmdEdit_Click();
  void cmdDelete_Click();
  void cmdOK_Click();
  /// Edit and Delete are for a selected word.
  void enableButtons();

  /// As it was read.
  QStringList first_;
  QListWidget* lstWords = nullptr;
  QPushButton* cmdAdd = nullptr;
  QPushButton* cmdEdit = nullptr;
  QPushButton* cmdDelete = nullptr;
  QPushButton* cmdOK = nullptr;
  QPushButton* cmdExit = nullptr;
};
