#include "core/reports/modPrintCards.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr double kGridTop = 200;
constexpr double kGridSide = 500;
/// Of the page's height that the cards don't take, and of its width that the texts in them don't.
constexpr double kOutsideCards = 500;
constexpr double kOutsideTexts = 2000;
constexpr double kTextInCard = (kOutsideTexts / 2 - kGridSide) / 2;
constexpr double kAboveText = 60;
const PrintFont kCardFont{u"Arial"_s, 9, false};

QString castOf(const clsScene& scene) {
  QStringList names;
  for (qint32 i = 1; i <= scene.CharCount(); ++i) {
    names.append(scene.CharByIndex(i)->Title());
  }
  return names.join(u", "_s);
}

/// The cards of a page and where the next one comes.
class CardGrid {
 public:
  CardGrid(PrintFlow& flow, int cardsPerPage)
      : flow_(flow),
        rows_(cardsPerPage / 2),
        height_((flow.paper().height - kOutsideCards) * 2 / cardsPerPage),
        middle_(flow.paper().width / 2.0) {}

  void PrintCard(qint32 chapterNumber, clsScene& scene, qint32 number) {
    if (row_ == 0 && column_ == 0) {
      flow_.newPage();
      drawFrame();
    }
    Card card{column_ == 0 ? kGridSide + kTextInCard : middle_ + kTextInCard, kGridTop + row_ * height_ + kAboveText,
              kGridTop + (row_ + 1) * height_};
    write(card, true,
          Reports::numberOf(chapterNumber, number) + u' ' + scene.Title +
              translated(u" (%1 words)"_s).arg(scene.Wordcount()));
    write(card, false, castOf(scene));
    write(card, false, scene.DescText.isEmpty() ? translated(u"No summary found"_s) : scene.DescText);
    next();
  }

 private:
  struct Card {
    double left;
    double y;
    double bottom;
  };

  void next() {
    row_ = (row_ + 1) % rows_;
    if (row_ == 0) {
      column_ = 1 - column_;
    }
  }

  void drawFrame() {
    const double right = flow_.paper().width - kGridSide;
    const double bottom = kGridTop + rows_ * height_;
    std::vector<PlacedLine>& lines = flow_.page().lines;
    for (int row = 0; row <= rows_; ++row) {
      lines.push_back({kGridSide, kGridTop + row * height_, right, kGridTop + row * height_});
    }
    for (const double x : {kGridSide, middle_, right}) {
      lines.push_back({x, kGridTop, x, bottom});
    }
  }

  /// Flows a text on the card as far as there is room for whole lines.
  void write(Card& card, bool bold, const QString& text) {
    if (text.isEmpty()) {
      return;
    }
    flow_.font = kCardFont;
    flow_.font.bold = bold;
    const LineBreaker& breaker = flow_.breaker();
    const double width = (flow_.paper().width - kOutsideTexts) / 2;
    for (const QString& paragraph : PrintFlow::plainLines(text).split(u'\n')) {
      qsizetype from = 0;
      do {
        if (card.y + breaker.lineHeight() > card.bottom) {
          return;
        }
        const LineBreaker::Line line = breaker.lineAt(paragraph, from, width);
        if (line.length > 0) {
          flow_.page().texts.push_back({card.left, card.y, paragraph.mid(from, line.length), flow_.font});
        }
        card.y += breaker.lineHeight();
        from = line.next;
      } while (from < paragraph.size());
    }
  }

  PrintFlow& flow_;
  int rows_;
  double height_;
  double middle_;
  int row_ = 0;
  int column_ = 0;
};

}  // namespace

PrintDocument PrintSummaryCards(const ReportJob& job, int cardsPerPage) {
  PrintFlow flow(job.measure, job.state);
  CardGrid grid(flow, cardsPerPage);
  Reports::eachUsedChapter(job, [&](const clsChapter& chapter, qint32 chapterNumber) {
    Reports::eachUsedScene(job, chapter,
                           [&](clsScene& scene, qint32 number, bool) { grid.PrintCard(chapterNumber, scene, number); });
  });
  return Reports::finished(translated(u"%1 scene cards"_s).arg(g_Project->Title), flow);
}
