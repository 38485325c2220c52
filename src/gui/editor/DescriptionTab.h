#pragma once

#include <QWidget>

class MemoEdit;
class QLineEdit;
class clsScene;

/// The tab "Description": title and summary of the scene.
class DescriptionTab : public QWidget {
  Q_OBJECT

 public:
  explicit DescriptionTab(QWidget* parent = nullptr);

  void DataToForm(const clsScene& scene);
  void FormToData(clsScene& scene) const;

 Q_SIGNALS:
  /// The user did something that a save has to take up.
  void changed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* txtTitle;
  MemoEdit* txtDesc;
};
