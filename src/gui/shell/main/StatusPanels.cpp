#include "gui/shell/main/StatusPanels.h"

#include "core/infra/FirstOf.h"
#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/ElidedLabel.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/PlainToolTip.h"

#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStatusBar>

#include <chrono>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// How long a message covers what is lasting.
constexpr auto kMoment = 5s;

template <class Panel>
Panel* addPanel(QStatusBar& bar, const QString& key, int stretch) {
  auto* panel = new Panel(&bar);
  panel->setObjectName(key);
  panel->setTextFormat(Qt::PlainText);
  panel->setContentsMargins(4, 0, 8, 0);
  bar.addWidget(panel, stretch);
  return panel;
}

}  // namespace

StatusPanels::StatusPanels(QStatusBar& bar)
    : message_(addPanel<ElidedLabel>(bar, u"numberfiles"_s, 1)),
      loadIt_(makeButton(u"cmdLoadIt"_s, u"Load it"_s, &bar)),
      total_(addPanel<QLabel>(bar, u"Totalwords"_s, 0)),
      version_(addPanel<QLabel>(bar, u"Version"_s, 0)),
      backup_(addPanel<QLabel>(bar, u"backup"_s, 0)) {
  backup_->hide();
  bar.insertWidget(1, loadIt_);
  loadIt_->hide();
  cover_.setObjectName(u"TimerMessage"_s);
  cover_.setParent(&bar);
  cover_.setSingleShot(true);
  cover_.setInterval(kMoment);
  QObject::connect(&cover_, &QTimer::timeout, &bar,
                   guarded("TimerMessage_Timer", "frmMain", [this] { setMessage({}); }));
  QObject::connect(loadIt_, &QPushButton::clicked, loadIt_, [this] {
    // It may go with what it does.
    if (const auto load = load_) {
      load();
    }
  });
}

void StatusPanels::setRest(const QString& text, Rest kind) {
  if (text == rest_ && kind == restKind_) {
    return;
  }
  rest_ = text;
  restKind_ = kind;
  setMessage({});
}

void StatusPanels::setMessage(const QString& text) {
  said_ = text;
  if (text.isEmpty() || restKind_ == Rest::Passing) {
    cover_.stop();
  } else {
    cover_.start();
  }
  showFirstPanel();
}

void StatusPanels::setHint(const QString& text) {
  hint_ = text;
  showFirstPanel();
}

void StatusPanels::setOffer(const QString& text, const std::function<void()>& load) {
  load_ = load;
  if (text == offer_) {
    return;
  }
  offer_ = text;
  loadIt_->setVisible(!text.isEmpty());
  showFirstPanel();
}

void StatusPanels::showFirstPanel() {
  message_->setText(hint_.isEmpty() ? resting() : translated(hint_));
}

QString StatusPanels::resting() const {
  if (offer_.isEmpty()) {
    return translated(said_.isEmpty() ? rest_ : said_);
  }
  const QString offer = translated(offer_);
  return restKind_ == Rest::Lasting ? translated(rest_) + u" \u2013 "_s + offer : offer;
}

void StatusPanels::setTotal(qint32 words, const QString& target) {
  total_->setText(translated(u"Total words: %1"_s).arg(QLocale().toString(words)));
  total_->setToolTip(target);
  total_->setAccessibleDescription(target);
}

void StatusPanels::setVersion(const QString& version) {
  shownVersion_ = version;
  version_->setText(translated(u"v:%1"_s).arg(version));
}

void StatusPanels::showAgain() {
  showFirstPanel();
  setVersion(shownVersion_);
  showBackupPanel();
}

void StatusPanels::setBackupReminder(bool due) {
  backupDue_ = due;
  showBackupPanel();
}

void StatusPanels::setBackupFailure(const QStringList& causes) {
  backupFailure_ = causes;
  showBackupPanel();
}

void StatusPanels::showBackupPanel() {
  const bool failed = !backupFailure_.isEmpty();
  backup_->setText(translated(failed       ? shownText(u"  The last backup failed  "_s)
                              : backupDue_ ? shownText(u"  Use Tools - Backups and make a full backup!  "_s)
                                           : QString()));
  backup_->setToolTip(failed ? plainToolTip(translatedLines(firstOf(backupFailure_).join(u'\n'))) : QString());
  backup_->setVisible(failed || backupDue_);
}
