#pragma once

#include <QDialog>

class HelpBrowser;
class HelpFindBar;
class QPushButton;

/// The user's manual. There is one window of it, beside whatever else is open.
class frmHelp : public QDialog {
 public:
  explicit frmHelp(QWidget* parent = nullptr);

  /// Brings the window up at a page, in front of a box that waits for an answer too. False when there is no such page.
  static bool open(const QString& address);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void createControls();
  void buildLayout();
  void connectSignals();
  void addKeys();
  void goHome();
  void showTitle();
  void setOwner(QWidget* owner);
  void storeLayout();

  HelpBrowser* txtPage;
  HelpFindBar* fraFind;
  QPushButton* cmdBack;
  QPushButton* cmdForward;
  QPushButton* cmdContents;
  QPushButton* cmdFind;
};
