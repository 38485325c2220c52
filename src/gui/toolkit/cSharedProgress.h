#pragma once

#include "core/infra/Toolkit.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QVBoxLayout;

/// The small modeless window of a long load or save: a caption line over a busy bar. It draws itself whenever the
/// work yields to the message loop. A caption that is set while it is hidden is only remembered. Where a stop is
/// offered it is reached through a held input.
class cSharedProgress : public ProgressWindow {
 public:
  cSharedProgress();
  ~cSharedProgress() override;
  cSharedProgress(const cSharedProgress&) = delete;
  cSharedProgress& operator=(const cSharedProgress&) = delete;

  void Show() override;
  void Hide() override;
  void setCaption(const QString& caption) override;
  void offerStop(std::function<void()> stop) override;

 private:
  void build();
  void paintAtOnce();
  void addStop(QVBoxLayout& layout);

  QString caption_;
  std::function<void()> stop_;
  /// Made when first shown: most loads never show it. It goes with the window that it stands over.
  QPointer<QWidget> window_;
  QLabel* lblCaption_ = nullptr;
};
