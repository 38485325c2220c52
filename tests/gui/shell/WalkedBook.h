#pragma once

#include "gui/shell/MainWindow.h"
#include "gui/shell/RowDrag.h"
#include "gui/shell/ShadowBook.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

#include <array>
#include <random>
#include <set>

using namespace Qt::StringLiterals;

/// The main window with a book, and beside it the plain record of what a walk does to it. The kinds of steps build on
/// this, each in a file of its own.
class WalkedBook : public ShellTest {
 protected:
  using IDs = ShadowBook::IDs;

  static constexpr std::array kCast{"ListChar(0)", "ListLoc(0)", "ListItems(0)"};
  static constexpr std::array kAllCast{"ListChar(1)", "ListLoc(1)", "ListItems(1)"};

  int below(qsizetype limit) {
    return static_cast<int>(random_() % static_cast<size_t>(std::max<qsizetype>(limit, 1)));
  }
  bool oneIn(int chances) { return below(chances) == 0; }
  QString someWords() {
    QStringList words;
    for (int count = below(6); count > 0; --count) {
      words += QString(1 + below(7), QChar(u'a' + below(26)));
    }
    return words.join(u' ');
  }

  ListView& chapters() { return list("ListChapters"); }
  ListView& scenes() { return list("ListScenes"); }
  QString memo(const char* name) { return control<QPlainTextEdit>(name).toPlainText(); }
  /// Clicks so many rows, fewer where there aren't so many. What is selected then, in the order of the list.
  IDs select(ListView& list, int count) {
    std::set<int> rows;
    while (static_cast<int>(rows.size()) < std::min(count, list.rowCount())) {
      const int row = below(list.rowCount());
      if (rows.insert(row).second) {
        click(list, row, rows.size() == 1 ? Qt::NoModifier : Qt::ControlModifier);
      }
    }
    return list.SelectedTags();
  }
  void press(ListView& list, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    list.setFocus();
    QTest::keyClick(&list, key, modifiers);
  }
  /// Chooses the entry where its menu offers it.
  void choose(const char* menu, const QByteArray& entry) {
    Q_EMIT control<QMenu>(menu).aboutToShow();
    if (isEnabled(entry.constData())) {
      trigger(entry.constData());
    }
  }
  void tick() { QMetaObject::invokeMethod(&control<QTimer>("TimerScanScenes"), "timeout"); }
  /// Back from an editor that has closed; what it saved is seen at the next scan.
  void comeBack() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(waitUntilActive(window()));
    tick();
  }

  ShadowBook book_;
  RowDrag drag_;
  /// Seeded by the walk.
  std::mt19937 random_;
};
