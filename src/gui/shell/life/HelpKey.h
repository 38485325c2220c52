#pragma once

#include <QObject>

#include <utility>
#include <vector>

/// While it lives, F1 opens the manual at the page of the window that has the keyboard; of its owner where it has none
/// of its own.
class HelpKey : public QObject {
 public:
  HelpKey();

  /// The windows, by name, that have a page, and its name.
  static const std::vector<std::pair<const char*, const char*>>& pages();
  /// The page for a control in a window; empty, which is the contents, where there is none.
  static QString pageFor(const QWidget& control);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};
