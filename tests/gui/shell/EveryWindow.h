#pragma once

#include "core/infra/DateEntry.h"
#include "core/infra/clsHashTable.h"

#include <QDate>
#include <QList>
#include <QString>

#include <memory>
#include <vector>

class QWidget;
class cSharedProgress;

/// Every window of the program, as each is before anything is done in it. A window that is new in the program joins the
/// others here. It needs an open book, and an editor where the editor's shall be among them.
class EveryWindow {
 public:
  explicit EveryWindow(QWidget& main);
  ~EveryWindow();

  /// The main window and the editors come first.
  const QList<QWidget*>& all() const { return all_; }

 private:
  template <class Window, class... Arguments>
  Window& make(Arguments&&... arguments);

  clsHashTable noWords_;
  DateEntry entry_{false, QStringLiteral("/"), QDate(2026, 3, 2)};
  std::unique_ptr<cSharedProgress> progress_;
  std::vector<std::unique_ptr<QWidget>> own_;
  QList<QWidget*> all_;
};
