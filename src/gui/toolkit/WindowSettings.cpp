#include "gui/toolkit/WindowSettings.h"

#include "core/infra/Numbers.h"
#include "gui/toolkit/Twips.h"

#include <QDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <QTreeView>
#include <QWidget>

#include <algorithm>

namespace {

/// A point of the title bar, from the corner of a window.
constexpr QPoint kGrip(60, 12);
/// Of the screen.
constexpr double kHigh = 0.8;

}  // namespace

SettingsWindow::State WindowSettings::state() const {
  if (window_.isMinimized()) {
    return State::Minimised;
  }
  return window_.isMaximized() || window_.isFullScreen() ? State::Maximised : State::Normal;
}

double WindowSettings::width() const {
  return Twips::fromPixels(window_.width());
}

double WindowSettings::height() const {
  return Twips::fromPixels(window_.height());
}

double WindowSettings::screenWidth() const {
  return Twips::fromPixels(window_.screen()->availableGeometry().width());
}

double WindowSettings::screenHeight() const {
  return Twips::fromPixels(window_.screen()->availableGeometry().height());
}

void WindowSettings::setWidth(double twips) {
  const int room = window_.screen()->availableGeometry().width();
  window_.resize(qBound(1, Twips::toPixels(twips), room), window_.height());
}

void WindowSettings::setHeight(double twips) {
  const int room = window_.screen()->availableGeometry().height();
  window_.resize(window_.width(), qBound(1, Twips::toPixels(twips), room));
}

void WindowSettings::maximise() {
  window_.setWindowState(window_.windowState() | Qt::WindowMaximized);
}

ColumnSettings::ColumnSettings(QTreeView& list) : header_(*list.header()) {}

int ColumnSettings::count() const {
  return header_.count();
}

double ColumnSettings::width(int column) const {
  return Twips::fromPixels(header_.sectionSize(column - 1));
}

void ColumnSettings::setWidth(int column, double twips) {
  header_.resizeSection(column - 1, qBound(header_.minimumSectionSize(), Twips::toPixels(twips), 4096));
}

void storeWindow(const QString& name, QWidget& window) {
  Settings().StoreWindowSettings(name, WindowSettings(window));
  // The size that a maximised window goes back to may be younger than the one that was stored.
  const QSize normal = window.normalGeometry().size();
  if (window.isMaximized() && normal.isValid()) {
    Settings().sSet(name + QStringLiteral("WindowWidth"), Twips::fromPixels(normal.width()));
    Settings().sSet(name + QStringLiteral("WindowHeight"), Twips::fromPixels(normal.height()));
  }
}

void restoreWindow(const QString& name, QWidget& window) {
  WindowSettings form(window);
  Settings().ReadWindowSettings(name, form);
  // Of a dialog Qt puts what is inside the frame into the middle: the title of a high one would lie above the screen.
  const QRect room = window.screen()->availableGeometry();
  if (qobject_cast<QDialog*>(&window) != nullptr && !window.isMaximized() && window.height() > room.height() * kHigh) {
    window.move(room.left() + std::max(0, (room.width() - window.width()) / 2), room.top());
  }
}

void storePlace(const QString& name, QWidget& window) {
  if (WindowSettings(window).state() == SettingsWindow::State::Normal) {
    Settings().sSet(name + QStringLiteral("WindowLeft"), Twips::fromPixels(window.x()));
    Settings().sSet(name + QStringLiteral("WindowTop"), Twips::fromPixels(window.y()));
  }
}

void restorePlace(const QString& name, QWidget& window) {
  const auto left = Numbers::ToNumber(Settings().sGet(name + QStringLiteral("WindowLeft")));
  const auto top = Numbers::ToNumber(Settings().sGet(name + QStringLiteral("WindowTop")));
  if (!left || !top) {
    return;
  }
  const QPoint place(Twips::toPixels(*left), Twips::toPixels(*top));
  const QScreen* const there = QGuiApplication::screenAt(place + kGrip);
  if (there != nullptr && there->availableGeometry().contains(place + kGrip)) {
    window.move(place);
  }
}

void storeColumns(const QString& name, QTreeView& list) {
  Settings().StoreColumnSettings(name, ColumnSettings(list));
  const QHeaderView& header = *list.header();
  QStringList order;
  for (int place = 0; place < header.count(); ++place) {
    order.append(QString::number(header.logicalIndex(place)));
  }
  Settings().sSet(name + QStringLiteral("Order"), order.join(u' '));
}

void restoreColumns(const QString& name, QTreeView& list) {
  ColumnSettings columns(list);
  Settings().ReadColumnSettings(name, columns);
  QHeaderView& header = *list.header();
  const QStringList order = Settings().sGet(name + QStringLiteral("Order")).toString().split(u' ');
  // A stored order of other columns moves none out of sight: each is moved to a place that there is.
  for (int place = 0; place < order.size() && place < header.count(); ++place) {
    if (const int from = header.visualIndex(order.at(place).toInt()); from >= 0) {
      header.moveSection(from, place);
    }
  }
}
