#pragma once

#include "gui/editor/EditorSettings.h"

#include <QDialog>

#include <optional>

class QCheckBox;
class QLineEdit;
class QRadioButton;

/// Asks for what holds in all editors: how the copies of a text are kept, its plain mirror, and what the formatting bar
/// shows.
class frmEditorSettings : public QDialog {
  Q_OBJECT

 public:
  explicit frmEditorSettings(const EditorSettings& settings, QWidget* parent = nullptr);
  /// Shows the settings over the window, and stores what the writer makes of them.
  static void edit(QWidget& window);

  /// What is chosen; the minutes are fit once the window is accepted.
  EditorSettings settings() const;
  void accept() override;

 private:
  void buildLayout();
  void connectSignals();
  /// None for anything but a whole number in the limits.
  std::optional<int> minutes() const;
  bool minutesAreFit();

  EditorSettings given_;
  QRadioButton* optSameFile;
  QRadioButton* optSequential;
  QLineEdit* txtFreq;
  QCheckBox* chkCreateTextToo;
  QCheckBox* chkFontBarFollowsText;
};
