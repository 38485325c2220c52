#pragma once

#include <QWidget>

struct SceneOverview;
class clsScene;

/// One of the tabs under the text of an editor: a part of the scene's planning data.
class EditorTab : public QWidget {
  Q_OBJECT

 public:
  /// What the strip shows of the tab, and its tool tip there. The caption is spoken of the tab's page too.
  EditorTab(QString caption, QString stripTip, QWidget* parent);

  const QString& caption() const { return caption_; }
  const QString& stripTip() const { return stripTip_; }

  /// Shows the scene, once refresh() has seen it. What it emits meanwhile counts for nothing.
  virtual void DataToForm(clsScene& scene) = 0;
  /// Writes into the scene what is shown.
  virtual void FormToData(clsScene& scene) const = 0;
  /// The book has changed around the scene: shows what is called so and who is in it now. What was typed or chosen
  /// here stays.
  virtual void refresh(clsScene&) {}
  /// Adds what the tab shows.
  virtual void describe(SceneOverview&) const {}
  /// The key of the icon that the strip has for the tab as it is filled now; null for none.
  virtual const char* sign() const { return nullptr; }

 Q_SIGNALS:
  /// The user did something that a save has to take up.
  void changed();
  /// Something else is shown than before, whoever did it.
  void shownChanged();
  /// The character of this ID is to be edited.
  void characterWanted(qint32 id);

 private:
  QString caption_;
  QString stripTip_;
};
