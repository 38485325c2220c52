#include "gui/shell/main/StatusPanels.h"

#include "gui/toolkit/ElidedLabel.h"

#include <QLabel>
#include <QLocale>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {

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
      total_(addPanel<QLabel>(bar, u"Totalwords"_s, 0)),
      version_(addPanel<QLabel>(bar, u"Version"_s, 0)),
      backup_(addPanel<QLabel>(bar, u"backup"_s, 0)) {
  backup_->hide();
}

void StatusPanels::setMessage(const QString& text) {
  message_->setText(text);
}

void StatusPanels::setTotal(qint32 words) {
  total_->setText(u"Total words: "_s + QLocale().toString(words));
}

void StatusPanels::setVersion(const QString& version) {
  version_->setText(u"v:"_s + version);
}

void StatusPanels::setBackupReminder(bool due) {
  backup_->setText(due ? u"  Use Tools - Backups and make a full backup!  "_s : QString());
  backup_->setVisible(due);
}
