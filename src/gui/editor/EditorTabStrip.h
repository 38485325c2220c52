#pragma once

#include <QTabWidget>

#include <vector>

class DescriptionTab;
class EditorTab;
class OverviewTab;
class ViewpointTab;
class clsScene;

/// The strip of tabs under the text: all that is planned of the scene. The tabs are filled and read in their order.
class EditorTabStrip : public QTabWidget {
  Q_OBJECT

 public:
  explicit EditorTabStrip(QWidget* parent = nullptr);

  void DataToForm(clsScene& scene);
  void FormToData(clsScene& scene) const;
  /// The book has changed around the scene; what was typed stays.
  void refresh(clsScene& scene);
  /// The strip shows which tabs hold something.
  void TabIcons();
  /// Who tells the scene; 0 is nobody.
  void DisplayCharacter(qint32 id);
  /// The title as it is typed.
  QString Title() const;
  /// What is there can be read and copied alone.
  void lock();
  /// As if the user had typed it in the place of what is there.
  void takeTitle(const QString& title);
  void takeDescription(const QString& text);

 Q_SIGNALS:
  void changed();
  void titleChanged(const QString& title);
  void characterWanted(qint32 id);
  void castWanted(const QList<qint32>& ids, bool inScene);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The key is a letter of its caption that is free in the window.
  template <class Tab>
  Tab* add(QChar key);
  void mirror();

  std::vector<EditorTab*> tabs_;
  DescriptionTab* description_ = nullptr;
  ViewpointTab* viewpoint_ = nullptr;
  OverviewTab* overview_ = nullptr;
};
