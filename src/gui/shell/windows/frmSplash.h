#pragma once

#include <QFrame>

class QLabel;

/// What is on the screen while the program starts: version, maker, and what is being done.
class frmSplash : public QFrame {
  Q_OBJECT

 public:
  frmSplash();

  void setStatus(const QString& text);

 private:
  void buildLayout();

  QLabel* lblStatus;
};
