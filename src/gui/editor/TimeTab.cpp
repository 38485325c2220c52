#include "gui/editor/TimeTab.h"

#include "core/infra/Numbers.h"
#include "core/infra/cSharedLang.h"
#include "core/model/clsScene.h"
#include "gui/editor/EditorCombo.h"
#include "gui/toolkit/Controls.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int kHours = 24;
constexpr int kMinutes = 60;
constexpr int kMostDays = std::numeric_limits<qint16>::max();

/// Days beyond what a scene can hold are the most that it can.
qint16 daysIn(const QLineEdit& box) {
  return static_cast<qint16>(qBound(0.0, Numbers::Val(box.text()), double{kMostDays}));
}

/// A time of day that no list holds stays as it is in the scene.
void take(const EditorCombo& box, qint16& value) {
  if (box.currentIndex() >= 0) {
    value = Numbers::ValTo16(box.currentText().toLatin1());
  }
}

}  // namespace

TimeTab::TimeTab(QWidget* parent)
    : EditorTab(u"Time"_s, u"Edit the start time and duration for this scene"_s, parent),
      starts_(makeSpan({u"fraDHM"_s, u"Starts at"_s, u"txtDay"_s, u"cmbHour"_s, u"cmbMinute"_s})),
      lasts_(makeSpan({u"fraLasts"_s, u"Lasts"_s, u"txtLastsDays"_s, u"cmbLastsHours"_s, u"cmbLastsMinutes"_s})) {
  const auto label = [](QWidget& box, const QString& caption, const QGroupBox& frame) {
    static_cast<QFormLayout*>(frame.layout())->addRow(makeLabelOf(caption, box), &box);
  };
  label(*starts_.days, u"Day:"_s, *starts_.frame);
  label(*starts_.hours, u"Hour:"_s, *starts_.frame);
  label(*starts_.minutes, u"Minute:"_s, *starts_.frame);
  label(*lasts_.days, u"Days:"_s, *lasts_.frame);
  label(*lasts_.hours, u"Hours:"_s, *lasts_.frame);
  label(*lasts_.minutes, u"Minutes:"_s, *lasts_.frame);
  auto* row = new QHBoxLayout(this);
  row->addWidget(starts_.frame, 0, Qt::AlignTop);
  row->addWidget(lasts_.frame, 0, Qt::AlignTop);
  row->addStretch();
}

TimeTab::Span TimeTab::makeSpan(const SpanNames& names) {
  auto* const frame = new QGroupBox(names.caption, this);
  frame->setObjectName(names.frame);
  new QFormLayout(frame);
  auto* const days = makeLineEdit(names.days, {});
  days->setValidator(new QIntValidator(0, kMostDays, days));
  auto* const hours = new EditorCombo(names.hours, {});
  for (int hour = 0; hour < kHours; ++hour) {
    hours->addItem(QString::number(hour));
  }
  auto* const minutes = new EditorCombo(names.minutes, {});
  for (int minute = 0; minute < kMinutes; ++minute) {
    minutes->addItem(QString::number(minute).rightJustified(2, u'0'));
  }
  const Span span{frame, days, hours, minutes, names.caption};
  speakOf(span);
  return span;
}

void TimeTab::speakOf(const Span& span) {
  const QString of = translated(span.caption) + u", "_s;
  span.days->setAccessibleName(of + translated(u"days"_s));
  span.hours->setAccessibleName(of + translated(u"hours"_s));
  span.minutes->setAccessibleName(of + translated(u"minutes"_s));
}

// In the language that is in force now.
void TimeTab::refresh(clsScene&) {
  speakOf(starts_);
  speakOf(lasts_);
}

void TimeTab::show(const Span& span, qint16 days, qint16 hours, qint16 minutes) {
  span.days->setText(days < 1 ? QString() : QString::number(days));
  span.hours->setCurrentIndex(hours < kHours ? hours : -1);
  span.minutes->setCurrentIndex(minutes < kMinutes ? minutes : -1);
}

void TimeTab::read(const Span& span, qint16& days, qint16& hours, qint16& minutes) {
  days = daysIn(*span.days);
  take(*span.hours, hours);
  take(*span.minutes, minutes);
}

void TimeTab::DataToForm(clsScene& scene) {
  show(starts_, scene.Day, scene.Hour, scene.Minute);
  show(lasts_, scene.LastsDays, scene.LastsHours, scene.LastsMinutes);
}

void TimeTab::FormToData(clsScene& scene) const {
  read(starts_, scene.Day, scene.Hour, scene.Minute);
  read(lasts_, scene.LastsDays, scene.LastsHours, scene.LastsMinutes);
}
