#include "gui/planning/StoryCard.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/planning/CardTitle.h"
#include "gui/planning/BoardColours.h"
#include "gui/toolkit/Twips.h"

#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr double kPoints = 8;

double lineStep(const QFontMetricsF& metrics) {
  return metrics.lineSpacing() - CardTitle::kLineOverlap / Twips::perPixel;
}

}  // namespace

StoryCard::StoryCard(QWidget* parent) : QWidget(parent) {
  setFont(boardFont(kPoints));
  setFixedSize(Twips::toPixels(BoardGrid::kCardWidth), Twips::toPixels(BoardGrid::kCardHeight));
  setFocusPolicy(Qt::ClickFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  hide();
}

QFont StoryCard::boardFont(double points) {
  static const QString family = QFontDatabase::hasFamily(u"Arial Unicode MS"_s) ? u"Arial Unicode MS"_s : u"Arial"_s;
  QFont font(family);
  font.setPointSizeF(points);
  return font;
}

void StoryCard::PrintOnCard(clsScene& scene, int row, Place place) {
  const QFontMetricsF metrics(font(), this);
  if (const QString title = calledScene(scene.Title); title != title_) {
    title_ = title;
    const int most = static_cast<int>(height() / lineStep(metrics)) + 1;
    lines_ = CardTitle::lines(title_, most, [&metrics](QStringView text) {
      return metrics.horizontalAdvance(text.toString()) * Twips::perPixel;
    });
  }
  tag_ = scene.ID();
  row_ = row;
  unused_ = scene.Unused;
  say(scene, place);
  update();
}

void StoryCard::say(clsScene& scene, Place place) {
  const QString words = translated(u"%1 words"_s).arg(QLocale().toString(scene.Wordcount()));
  const QString viewpoint = scene.ViewPointID() == 0
                                ? translated(u"no viewpoint"_s)
                                : translated(u"viewpoint %1"_s).arg(scene.ViewPointChar()->Title());
  const QString chapter = translated(u"chapter %1"_s).arg(g_Project->ChapterByID(scene.BelongsToChID)->Title);
  QStringList spoken{title_, chapter, viewpoint, words};
  if (scene.Unused) {
    spoken.append(translated(u"unused"_s));
  }
  // A scene that was moved is heard to stand elsewhere.
  spoken.append(translated(u"scene %1 of %2"_s).arg(place.number).arg(place.of));
  // Whoever listens is told of what is new alone.
  if (const QString name = spoken.join(u", "_s); name != accessibleName()) {
    setToolTip(words);
    setAccessibleName(name);
  }
}

void StoryCard::mousePressEvent(QMouseEvent* event) {
  Q_EMIT pressed(this, event);
}

void StoryCard::mouseMoveEvent(QMouseEvent* event) {
  Q_EMIT moved(event);
}

void StoryCard::mouseReleaseEvent(QMouseEvent* event) {
  Q_EMIT released(event);
}

void StoryCard::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    Q_EMIT doubleClicked(this);
  }
}

// The mouse has its menu by the press.
void StoryCard::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Keyboard) {
    Q_EMIT menuWanted(this, mapToGlobal(rect().center()));
  }
}

void StoryCard::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), hasFocus() ? BoardColours::takenCard(palette()) : palette().color(QPalette::Base));
  const QFontMetricsF metrics(font(), this);
  painter.setPen(unused_ ? Colours::readable(BoardColours::kGrey, palette())
                         : BoardColours::buttonText(palette(), QPalette::Base));
  QPointF place(CardTitle::kLeft / Twips::perPixel, CardTitle::kTop / Twips::perPixel + metrics.ascent());
  for (const QString& line : lines_) {
    painter.drawText(place, line);
    place.ry() += lineStep(metrics);
  }
  const QRectF edge = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setPen(BoardColours::row(row_, palette(), QPalette::Base));
  painter.drawRect(edge);
  if (hasFocus()) {
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(edge.adjusted(1, 1, -1, -1));
  }
}
