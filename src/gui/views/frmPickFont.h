#pragma once

#include "gui/views/DefaultFont.h"

#include <QDialog>

#include <optional>

class QLabel;
class QListWidget;

/// The dialog in which the default font of texts is chosen: a list of the fonts, one of the sizes, and how it looks.
class frmPickFont : public QDialog {
  Q_OBJECT

 public:
  explicit frmPickFont(QWidget* parent = nullptr);

  /// What is selected.
  DefaultFont choice() const;
  /// Asks over the active window, from what the settings hold, and puts the choice there. Nothing when it was
  /// cancelled. The title says what the font is for where it isn't only the default.
  static std::optional<DefaultFont> pick(const QString& title = {});

 private:
  void buildLayout();
  void fillLists(const DefaultFont& current);
  void showSample();

  QListWidget* lstFonts;
  QListWidget* lstSizes;
  QLabel* lblSample;
};
