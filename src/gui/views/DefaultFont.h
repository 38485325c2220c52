#pragma once

#include <QString>

/// The font of text that states none, as it is kept in the settings.
struct DefaultFont {
  QString name;
  double points = 0;

  /// Arial of 10 points without settings; what is no name or no size counts as none.
  static DefaultFont fromSettings();
  void toSettings() const;
  /// As the size is written.
  QString size() const { return QString::number(points); }

  bool operator==(const DefaultFont&) const = default;
};
