#include "core/infra/Guard.h"
#include "core/infra/Numbers.h"
#include "core/infra/cSHAREDSettings.h"

using namespace Qt::StringLiterals;

// The sizes of windows and the widths of columns.

namespace {

constexpr const char* kModule = "cSHAREDSettings";
constexpr double kNearlyWholeScreen = 0.95;

/// A stored size; a size that no window can have gives the present one.
double sizeOf(const QVariant& stored, double present) {
  const double twips = Numbers::ToNumber(stored).value_or(present);
  return twips > 0 ? twips : present;
}

QString columnKey(const QString& name, int column) {
  return name + QString::number(column) + u"_W"_s;
}

}  // namespace

void cSHAREDSettings::StoreWindowSettings(const QString& name, const SettingsWindow& form) {
  Guard("StoreWindowSettings", kModule)([&] {
    const SettingsWindow::State state = form.state();
    if (state == SettingsWindow::State::Minimised) {
      return;
    }
    sSet(name + u"WindowMaxed"_s, state == SettingsWindow::State::Maximised);
    if (state == SettingsWindow::State::Normal) {
      sSet(name + u"WindowWidth"_s, form.width());
      sSet(name + u"WindowHeight"_s, form.height());
    }
  });
}

void cSHAREDSettings::ReadWindowSettings(const QString& name, SettingsWindow& form) const {
  const Guard guard("ReadWindowSettings", kModule);
  // The form may take less than is asked of it, on a screen that is smaller than the one it was stored on.
  const double width = sizeOf(sGetWD(name + u"WindowWidth"_s, form.width()), form.width());
  const double height = sizeOf(sGetWD(name + u"WindowHeight"_s, form.height()), form.height());
  guard([&] { form.setWidth(width); });
  guard([&] { form.setHeight(height); });
  guard([&] {
    const bool maxed = Numbers::ToInt(sGet(name + u"WindowMaxed"_s, false)) != 0;
    const bool fillsScreen =
        width > kNearlyWholeScreen * form.screenWidth() && height > kNearlyWholeScreen * form.screenHeight();
    if (maxed || fillsScreen) {
      form.maximise();
    }
  });
}

void cSHAREDSettings::StoreColumnSettings(const QString& name, const SettingsColumns& list) {
  const Guard guard("StoreColumnSettings", kModule);
  for (int column = 1; column <= list.count(); ++column) {
    guard([&] { sSet(columnKey(name, column), static_cast<float>(list.width(column))); });
  }
}

void cSHAREDSettings::ReadColumnSettings(const QString& name, SettingsColumns& list) const {
  const Guard guard("ReadColumnSettings", kModule);
  for (int column = 1; column <= list.count(); ++column) {
    guard([&] {
      const double present = list.width(column);
      list.setWidth(column, sizeOf(sGetWD(columnKey(name, column), present), present));
    });
  }
}
