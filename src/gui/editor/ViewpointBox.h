#pragma once

#include <QWidget>

class EditorCombo;
class QPushButton;
class clsScene;

/// Who tells the scene, and the two buttons for characters; beside the tabs.
class ViewpointBox : public QWidget {
  Q_OBJECT

 public:
  explicit ViewpointBox(QWidget* parent = nullptr);

  void DataToForm(const clsScene& scene);
  void FormToData(clsScene& scene);
  /// The cast of the scene or the names in it are other ones. Whom the user has chosen meanwhile stays chosen, unless
  /// he isn't there any more.
  void refresh(const clsScene& scene);
  /// 0 when nobody is selected.
  qint32 viewpointID() const;

 Q_SIGNALS:
  /// The user did something that a save has to take up.
  void changed();
  /// Somebody else is selected, or is to be shown anew.
  void viewpointShown(qint32 id);
  void addCharWanted();
  void editCharWanted(qint32 id);

 private:
  void fill(const clsScene& scene);

  EditorCombo* cmbViewpoint;
  QPushButton* cmdAddChar;
  QPushButton* cmdEditChar;
  bool chosen_ = false;
};
