#pragma once

#include <QWidget>

class clsScene;

/// One of the tabs under the text of an editor: a part of the scene's planning data.
class EditorTab : public QWidget {
  Q_OBJECT

 public:
  /// What the strip shows of the tab, and its tool tip there. The caption is spoken of the tab's page too.
  EditorTab(QString caption, QString stripTip, QWidget* parent);

  const QString& caption() const { return caption_; }
  const QString& stripTip() const { return stripTip_; }

  /// Shows the scene. What it emits meanwhile counts for nothing.
  virtual void DataToForm(const clsScene& scene) = 0;
  /// Writes into the scene what is shown.
  virtual void FormToData(clsScene& scene) const = 0;

 Q_SIGNALS:
  /// The user did something that a save has to take up.
  void changed();

 private:
  QString caption_;
  QString stripTip_;
};
