// The storyboard with a large book, beside a bare widget that paints the same picture from texts and places that are at
// hand; painted off the screen:
//     bench_storyboard PROJECT.qn4
// The project is neither changed nor saved.
#include "BenchProgram.h"
#include "Paired.h"
#include "PlainLists.h"
#include "core/infra/ChangePoller.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/planning/BoardTables.h"
#include "core/planning/CardTitle.h"
#include "gui/planning/frmStoryboard.h"
#include "gui/toolkit/Twips.h"

#include <QDialog>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// As it opens, and as wide as it gets any use of.
constexpr std::array kWidths{0, 7200};

struct PlainCard {
  QStringList lines;
  int row;
};

/// All cards of the book, and what lies behind them.
struct Picture {
  std::vector<PlainCard> cards;
  QStringList names;

  static Picture ofBook() {
    Picture picture;
    BoardTables tables;
    tables.fill(*g_Project);
    const QFontMetricsF metrics(StoryCard::boardFont(8));
    for (qint32 column = 1; column <= tables.columns(); ++column) {
      const QString title = g_Project->SceneByID(tables.sceneAt(column))->Title;
      picture.cards.push_back({CardTitle::lines(title, 6,
                                                [&](QStringView text) {
                                                  return metrics.horizontalAdvance(text.toString()) * Twips::perPixel;
                                                }),
                               tables.rowAt(column)});
    }
    for (int row = 1; row <= tables.rows(); ++row) {
      picture.names.append(g_Project->CharByID(tables.viewpointAt(row))->Title());
    }
    return picture;
  }
};

class PlainBoard : public QDialog {
 public:
  PlainBoard(const Picture& picture, const QSize& size) : picture_(picture) { resize(size); }

  int first = 0;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setFont(StoryCard::boardFont(9));
    for (int row = 1; row <= picture_.names.size() && row < 20; ++row) {
      painter.fillRect(0, Twips::toPixels(BoardGrid::barTop(row)), width(), 2, Qt::blue);
      painter.drawText(2, Twips::toPixels(BoardGrid::nameTop(row)) + 10, picture_.names.at(row - 1));
    }
    painter.setFont(StoryCard::boardFont(8));
    const auto visible = static_cast<size_t>(BoardGrid::visibleColumns(Twips::fromPixels(width())));
    const size_t end = std::min(static_cast<size_t>(first) + visible, picture_.cards.size());
    for (size_t column = static_cast<size_t>(first); column < end; ++column) {
      const PlainCard& card = picture_.cards[column];
      const auto [x, y] = BoardGrid::cardAt(static_cast<int>(column) - first, card.row);
      const QRect place(Twips::toPixels(x), Twips::toPixels(y), 108, 78);
      painter.fillRect(place, palette().base());
      painter.drawRect(place);
      int line = place.y() + 13;
      for (const QString& text : card.lines) {
        painter.drawText(place.x() + 2, line, text);
        line += 11;
      }
    }
  }

 private:
  const Picture& picture_;
};

struct Board {
  explicit Board(int width) {
    form.resize(width == 0 ? form.width() : width, form.height());
    pollerOf().stop();
    const Painted painted({&picSB()});
    form.show();
    painted.wait();
  }

  QWidget& picSB() { return *form.findChild<QWidget*>(u"picSB"_s); }
  QScrollBar& sideways() { return *form.findChild<QScrollBar*>(u"HScroll1"_s); }
  ChangePoller& pollerOf() { return dynamic_cast<ChangePoller&>(*form.findChild<QTimer*>(u"Timer1"_s)->parent()); }

  frmStoryboard form;
};

void scrollStep(benchmark::State& state, const Picture& picture) {
  Board board(kWidths.at(static_cast<size_t>(state.range(0))));
  PlainBoard plain(picture, board.form.size());
  plain.show();
  int step = 0;
  const auto next = [&] { step = (step + 1) % board.sideways().maximum(); };
  comparePaired(
      state, next,
      [&] {
        const Painted painted({&plain});
        plain.first = step;
        plain.update();
        painted.wait();
      },
      [] {},
      [&] {
        const Painted painted({&board.picSB()});
        board.sideways().setValue(step);
        painted.wait();
      });
  state.counters["cards"] = static_cast<double>(board.form.findChildren<StoryCard*>().size());
}

void opening(benchmark::State& state, const Picture& picture) {
  const int width = kWidths.at(static_cast<size_t>(state.range(0)));
  const QSize size = Board(width).form.size();
  std::unique_ptr<PlainBoard> plain;
  std::unique_ptr<Board> board;
  comparePaired(
      state, [&] { plain.reset(); },
      [&] {
        plain = std::make_unique<PlainBoard>(picture, size);
        const Painted painted({plain.get()});
        plain->show();
        painted.wait();
      },
      [&] { board.reset(); }, [&] { board = std::make_unique<Board>(width); });
}

/// Nothing has changed. The limit is that each chapter's list is read once.
void poll(benchmark::State& state, const Picture&) {
  Board board(0);
  board.pollerOf().poll();
  comparePaired(
      state, [] {},
      [] {
        qint64 sum = 0;
        for (const auto& chapter : g_Project->Chapters) {
          for (const qint32 id : chapter->SceneIDs()) {
            sum += id;
          }
        }
        benchmark::DoNotOptimize(sum);
      },
      [] {}, [&] { board.pollerOf().poll(); });
}

void pollAfterAChange(benchmark::State& state, const Picture&) {
  Board board(0);
  for (auto turn : state) {
    g_SceneChanges.MarkUpdated(g_Project->SceneByIndex(1)->ID());
    const Painted painted({&board.picSB()});
    state.SetIterationTime(secondsOf([&] {
      board.pollerOf().poll();
      painted.wait();
    }));
  }
}

auto* add(const char* name, void (*measured)(benchmark::State&, const Picture&), const Picture& picture) {
  return benchmark::RegisterBenchmark(name, [=, &picture](benchmark::State& state) { measured(state, picture); })
      ->Unit(benchmark::kMillisecond)
      ->UseManualTime();
}

}  // namespace

int main(int argc, char** argv) {
  const BenchProgram program(argc, argv);
  initChangeTables();
  g_Project = std::make_unique<clsProject>();
  if (!g_Project->Load(program.book(), false)) {
    return 1;
  }
  const Picture picture = Picture::ofBook();
  add("ScrollStep", scrollStep, picture)->ArgName("wide")->DenseRange(0, 1)->MinTime(1);
  add("Opening", opening, picture)->ArgName("wide")->DenseRange(0, 1)->MinTime(1);
  add("Poll", poll, picture)->Iterations(500);
  add("PollAfterAChange", pollAfterAChange, picture)->MinTime(1);
  benchmark::RunSpecifiedBenchmarks();
}
