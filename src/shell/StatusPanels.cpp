#include "shell/StatusPanels.h"

#include <QPainter>
#include <QStatusBar>
#include <QStyle>

using namespace Qt::StringLiterals;

StatusPanel::StatusPanel(const QString& key, QWidget* parent) : QLabel(parent) {
  setObjectName(key);
  setTextFormat(Qt::PlainText);
  setContentsMargins(4, 0, 8, 0);
}

QSize StatusPanel::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

void StatusPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect area = contentsRect();
  const QString text = fontMetrics().elidedText(this->text(), Qt::ElideRight, area.width());
  style()->drawItemText(&painter, area, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), text,
                        foregroundRole());
}

StatusPanels::StatusPanels(QStatusBar& bar)
    : message_(new StatusPanel(u"numberfiles"_s, &bar)),
      total_(new StatusPanel(u"Totalwords"_s, &bar)),
      version_(new StatusPanel(u"Version"_s, &bar)),
      backup_(new StatusPanel(u"backup"_s, &bar)) {
  bar.addWidget(message_, 1);
  bar.addWidget(total_);
  bar.addWidget(version_);
  bar.addWidget(backup_);
  backup_->hide();
}

void StatusPanels::setMessage(const QString& text) {
  message_->setText(text);
  message_->setToolTip(text);
}

void StatusPanels::setTotal(qint32 words) { total_->setText(u"Total words: "_s + QString::number(words)); }

void StatusPanels::setVersion(const QString& version) { version_->setText(u"v:"_s + version); }

void StatusPanels::setBackupReminder(bool due) {
  backup_->setText(due ? u"  Use Tools - Backups and make a full backup!  "_s : QString());
  backup_->setVisible(due);
}
