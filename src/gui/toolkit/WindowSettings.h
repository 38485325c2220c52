#pragma once

#include "core/infra/cSHAREDSettings.h"

class QHeaderView;
class QTreeView;
class QWidget;

/// A window as the settings store sees it. Sizes are those inside the frame: what is stored and read back again
/// and again stays the same whatever frame the desktop puts around.
class WindowSettings : public SettingsWindow {
 public:
  /// The window outlives this.
  explicit WindowSettings(QWidget& window) : window_(window) {}

  State state() const override;
  double width() const override;
  double height() const override;
  double screenWidth() const override;
  double screenHeight() const override;
  /// No larger than the screen has room for.
  void setWidth(double twips) override;
  void setHeight(double twips) override;
  void maximise() override;

 private:
  QWidget& window_;
};

/// The columns of a list as the settings store sees them.
class ColumnSettings : public SettingsColumns {
 public:
  /// The list outlives this.
  explicit ColumnSettings(QTreeView& list);

  int count() const override;
  double width(int column) const override;
  /// Never so narrow that the column could not be found again.
  void setWidth(int column, double twips) override;

 private:
  QHeaderView& header_;
};

// These go with the application's settings; the name goes in front of the keys. Of columns the order is kept too.
void storeWindow(const QString& name, QWidget& window);
void restoreWindow(const QString& name, QWidget& window);
/// Where a window stands, under the same name, for one that stays up beside others. It goes back there where its title
/// bar can be taken hold of; else the desktop finds a place.
void storePlace(const QString& name, QWidget& window);
void restorePlace(const QString& name, QWidget& window);
void storeColumns(const QString& name, QTreeView& list);
void restoreColumns(const QString& name, QTreeView& list);
