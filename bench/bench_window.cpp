// The main window with a large book, beside Qt's own lists filled with the same rows; painted off the screen:
//     bench_window PROJECT.qn4
// The project is neither changed nor saved.
#include "BenchProgram.h"
#include "Paired.h"
#include "PlainLists.h"
#include "core/infra/ChangePoller.h"
#include "core/model/Globals.h"
#include "core/model/StoryMoves.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/life/RegisterWindows.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/SceneTabs.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/frmSceneList.h"

#include <QTest>
#include <QTimer>

#include <algorithm>
#include <malloc.h>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Chapters with scenes that are seen without scrolling.
constexpr int kFirstTaken = 1;
constexpr int kTaken = 12;
constexpr qint32 kFlatChapters = 500'000;

double heapInUse() {
  const struct mallinfo2 heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd);
}

/// The main window, and Qt's own lists with what it shows.
struct Shown {
  explicit Shown(frmMain& window)
      : main(window),
        chapters(main.panes().chapters().listChapters()),
        scenes(main.panes().scenes().listScenes()),
        tabs(main.panes().scenes().tabStrip1()),
        plain(chapters, scenes) {
    plain.show();
    settle();
    for (int i = 0; i < kTaken; ++i) {
      select(kFirstTaken + i);
      sceneRows.push_back(rowsOf(scenes));
    }
    select(kFirstTaken);
  }

  /// What waits for an idle moment is done.
  void settle() const {
    tabs.completeDisplay();
    QCoreApplication::processEvents(QEventLoop::AllEvents, 1000);
  }

  static void click(QTreeView& list, int row) {
    const QPoint place = list.visualRect(list.model()->index(row, 0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
  }

  void select(int row) const {
    click(chapters, row);
    settle();
  }

  frmMain& main;
  ListView& chapters;
  ListView& scenes;
  SceneTabs& tabs;
  PlainWindow plain;
  /// The scenes of the first chapters.
  std::vector<std::vector<PlainRow>> sceneRows;
};

void fillPlain(Shown& shown, const std::vector<PlainRow>& chapters, const std::vector<PlainRow>& scenes) {
  const Painted painted({shown.plain.chapters.viewport(), shown.plain.scenes.viewport()});
  shown.plain.chapters.fill(chapters);
  shown.plain.scenes.fill(scenes);
  painted.wait();
}

void refreshPainted(Shown& shown) {
  QList<QWidget*> awaited{shown.chapters.viewport()};
  if (shown.scenes.rowCount() > 0) {
    awaited.append(shown.scenes.viewport());
  }
  const Painted painted(awaited);
  shown.main.RefreshAll();
  painted.wait();
}

void refresh(benchmark::State& state, Shown& shown) {
  const std::vector<PlainRow> rows = rowsOf(shown.chapters);
  comparePaired(
      state, [&] { shown.settle(); }, [&] { fillPlain(shown, rows, shown.sceneRows.front()); }, [&] { shown.settle(); },
      [&] { refreshPainted(shown); });
}

void selectPlain(Shown& shown, int taken) {
  const Painted painted({shown.plain.chapters.viewport(), shown.plain.scenes.viewport()});
  Shown::click(shown.plain.chapters, kFirstTaken + taken);
  shown.plain.scenes.fill(shown.sceneRows.at(static_cast<size_t>(taken)));
  painted.wait();
}

void selectPainted(const Shown& shown, int taken) {
  const Painted painted({shown.chapters.viewport(), shown.scenes.viewport()});
  Shown::click(shown.chapters, kFirstTaken + taken);
  painted.wait();
}

/// A click on another chapter until its scenes and the first of them are painted, with this tab of the display open.
void anotherChapter(benchmark::State& state, Shown& shown) {
  shown.plain.chapters.fill(rowsOf(shown.chapters));
  shown.tabs.setCurrentIndex(static_cast<int>(state.range(0)));
  shown.select(kFirstTaken);
  int taken = 0;
  comparePaired(
      state,
      [&] {
        taken = (taken + 1) % kTaken;
        shown.settle();
      },
      [&] { selectPlain(shown, taken); }, [&] { shown.settle(); }, [&] { selectPainted(shown, taken); });
  shown.tabs.setCurrentIndex(0);
}

/// A key that is held down: each step to painted, as the desktop repeats it.
void heldKey(benchmark::State& state, Shown& shown) {
  shown.select(kFirstTaken);
  shown.chapters.setFocus();
  const auto press = [&](bool repeated) {
    const Painted painted({shown.chapters.viewport()});
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, {}, {}, repeated);
    QApplication::sendEvent(&shown.chapters, &down);
    painted.wait();
  };
  press(false);
  for (auto turn : state) {
    press(true);
  }
  QTest::keyRelease(&shown.chapters, Qt::Key_Down);
  shown.select(kFirstTaken);
  shown.settle();
}

ChangePoller& pollerOf(const QWidget& window, const QString& timer) {
  return dynamic_cast<ChangePoller&>(*window.findChild<QTimer*>(timer)->parent());
}

ChangePoller& scanOf(const frmMain& main) {
  return pollerOf(main, u"TimerScanScenes"_s);
}

/// Nothing has changed. In the half second before, other work has had the processor's caches.
void tick(benchmark::State& state, Shown& shown) {
  constexpr size_t kMoreThanCaches = 64'000'000;
  ChangePoller& scan = scanOf(shown.main);
  scan.poll();
  std::vector<char> others(kMoreThanCaches);
  for (auto turn : state) {
    std::fill(others.begin(), others.end(), '\0');
    benchmark::DoNotOptimize(others.data());
    state.SetIterationTime(secondsOf([&] { scan.poll(); }));
  }
}

void tickAfterAChange(benchmark::State& state, Shown& shown) {
  ChangePoller& scan = scanOf(shown.main);
  const qint32 scene = shown.scenes.tagAt(0);
  for (auto turn : state) {
    const Painted painted({shown.scenes.viewport()});
    g_SceneChanges.MarkUpdated(scene);
    scan.poll();
    painted.wait();
  }
  shown.settle();
}

/// A scene to the place of the next, and, every other time, back.
void drop(benchmark::State& state, Shown& shown) {
  const std::vector<PlainRow> rows = rowsOf(shown.chapters);
  const auto chapter = g_Project->ChapterByID(shown.chapters.SelectedTag());
  comparePaired(
      state, [&] { shown.settle(); }, [&] { fillPlain(shown, rows, shown.sceneRows.front()); }, [&] { shown.settle(); },
      [&] {
        StoryMoves::moveScenes(*chapter, {chapter->SceneID(1)}, 2);
        for (const qint32 id : chapter->SceneIDs()) {
          g_SceneChanges.MarkUpdated(id);
        }
        g_Project->UpdateCombosInEditorWindows();
        refreshPainted(shown);
        scanOf(shown.main).poll();
      });
}

/// The window of all scenes.
struct ShownSceneList {
  explicit ShownSceneList(const Shown& shown) : form(&shown.main), rows(*form.findChild<ListView*>(u"ListView1"_s)) {
    form.show();
    pollerOf(form, u"Timer1"_s).stop();
    shown.settle();
  }

  frmSceneList form;
  ListView& rows;
};

void sceneList(benchmark::State& state, Shown& shown) {
  ShownSceneList list(shown);
  const std::vector<PlainRow> rows = rowsOf(list.rows);
  PlainList plain(list.rows);
  plain.show();
  comparePaired(
      state,
      [&] {
        plain.clear();
        shown.settle();
      },
      [&] {
        const Painted painted({plain.viewport()});
        plain.fill(rows);
        painted.wait();
      },
      [&] {
        list.form.clear();
        shown.settle();
      },
      [&] {
        const Painted painted({list.rows.viewport()});
        list.form.UpdateItem();
        painted.wait();
      });
}

/// One of its ticks: 0 when nothing has changed, 1 when one scene has that is seen, 2 when all have.
void sceneListTick(benchmark::State& state, Shown& shown) {
  ShownSceneList list(shown);
  ChangePoller& poller = pollerOf(list.form, u"Timer1"_s);
  const QList<qint32> all = list.rows.rows().tags();
  const QList<qint32> changed = state.range(0) == 2 ? all : all.mid(1, state.range(0));
  for (auto turn : state) {
    for (const qint32 id : changed) {
      g_SceneChanges.MarkUpdated(id);
    }
    const Painted painted(changed.isEmpty() ? QList<QWidget*>() : QList<QWidget*>{list.rows.viewport()});
    state.SetIterationTime(secondsOf([&] {
      poller.poll();
      painted.wait();
    }));
  }
}

/// What the rows of the two lists take, ours and Qt's.
void memory(benchmark::State& state, Shown& shown) {
  const std::vector<PlainRow> rows = rowsOf(shown.chapters);
  for (auto turn : state) {
    shown.main.panes().ClearLists();
    shown.settle();
    const double without = heapInUse();
    refreshPainted(shown);
    shown.settle();
    state.counters["kB"] = (heapInUse() - without) / 1e3;
    static_cast<void>(rowsOf(shown.chapters));
    state.counters["kB_all_seen"] = (heapInUse() - without) / 1e3;

    fillPlain(shown, {}, {});
    shown.settle();
    const double withoutPlain = heapInUse();
    fillPlain(shown, rows, shown.sceneRows.front());
    shown.settle();
    state.counters["plain_kB"] = (heapInUse() - withoutPlain) / 1e3;
    fillPlain(shown, {}, {});
  }
}

/// Chapters and no scenes, as a broken import may leave them.
std::unique_ptr<clsProject> flatProject() {
  auto book = std::make_unique<clsProject>();
  g_Project.swap(book);
  for (qint32 i = 1; i <= kFlatChapters; ++i) {
    const auto chapter = std::make_shared<clsChapter>();
    chapter->Title = u"Chapter "_s + QString::number(i);
    g_Project->AddChapter(chapter);
  }
  g_Project.swap(book);
  return book;
}

void flatBook(benchmark::State& state, Shown& shown) {
  std::unique_ptr<clsProject> book = flatProject();
  const auto exchange = [&] {
    shown.main.panes().ClearLists();
    g_Project.swap(book);
  };
  exchange();
  shown.settle();
  const double without = heapInUse();
  refreshPainted(shown);
  shown.settle();
  state.counters["MB"] = (heapInUse() - without) / 1e6;
  for (auto turn : state) {
    refreshPainted(shown);
  }
  exchange();
  refreshPainted(shown);
}

auto* add(const char* name, void (*measured)(benchmark::State&, Shown&), Shown& shown) {
  return benchmark::RegisterBenchmark(name, [=, &shown](benchmark::State& state) { measured(state, shown); })
      ->Unit(benchmark::kMillisecond);
}

void addAll(Shown& shown) {
  add("Refresh", refresh, shown)->UseManualTime()->MinTime(2);
  add("AnotherChapter", anotherChapter, shown)->ArgName("tab")->DenseRange(0, 6)->UseManualTime()->MinTime(1);
  add("HeldKey", heldKey, shown)->Iterations(500);
  add("Tick", tick, shown)->UseManualTime()->Iterations(500);
  add("TickAfterAChange", tickAfterAChange, shown);
  add("Drop", drop, shown)->UseManualTime()->MinTime(2);
  add("SceneList", sceneList, shown)->UseManualTime()->MinTime(2);
  add("SceneListTick", sceneListTick, shown)->ArgName("changed")->DenseRange(0, 2)->UseManualTime()->MinTime(1);
  add("Memory", memory, shown)->Iterations(1);
  add("FlatBook", flatBook, shown)->Iterations(5);
}

}  // namespace

int main(int argc, char** argv) {
  const BenchProgram program(argc, argv);
  if (program.book().isEmpty()) {
    return 1;
  }
  registerWindows();
  program.leaveSettings();
  {
    frmMain main(program.book());
    main.Form_Load();
    main.StopScanTimer();
    main.stopUpdateCheck();
    main.show();
    Shown shown(main);
    addAll(shown);
    benchmark::RunSpecifiedBenchmarks();
  }
}
