#pragma once

#include <QTabWidget>

#include <array>

class ListView;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QVBoxLayout;
class SceneBody;
class clsScene;

/// The tabs beside the scene list: a read-only display of the selected scene. The tabs behind the first are built
/// when the first has been painted, or when one of them is needed before.
class SceneTabs : public QTabWidget {
  Q_OBJECT

 public:
  explicit SceneTabs(QWidget* parent = nullptr);

  /// Fills everything from the scene.
  void display(clsScene& scene);
  /// Empties the lists and fields.
  void clearDisplay();
  /// Builds what isn't there yet. From now on `display` fills all tabs.
  void buildHiddenTabs();

 Q_SIGNALS:
  /// A double click on the scene's text or description.
  void sceneOpened();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct ListPair {
    ListView* inScene;
    ListView* all;
  };

  void addFrame(const QString& caption);
  QVBoxLayout* columnOf(int tab) const;
  void buildDescription();
  void buildContent();
  ListPair buildLists(int tab, const QString& array, const QStringList& allColumns);
  void buildGoals();
  void buildNotes();
  void displayHiddenTabs(clsScene& scene);
  void displayGoals(const clsScene& scene);
  void showTabIcon(int tab, const char* key, bool shown);

  QLineEdit* txtSceneTitle = nullptr;
  QPlainTextEdit* txtDesc = nullptr;
  SceneBody* txtBody = nullptr;
  ListPair ListChar{};
  ListPair ListLoc{};
  ListPair ListItems{};
  std::array<QLabel*, 3> goalLabels_{};
  std::array<QPlainTextEdit*, 3> goals_{};
  QPlainTextEdit* txtNotes = nullptr;
  /// What is displayed; 0 for nothing.
  qint32 sceneID_ = 0;
};
