#pragma once

#include <QWidget>

class QLabel;

/// What is on the screen while the program starts: version, maker, and what is being done.
class frmSplash : public QWidget {
  Q_OBJECT

 public:
  frmSplash();

  void setStatus(const QString& text);

 private:
  void buildLayout();

  QLabel* lblStatus_;
};
