#pragma once

#include "core/model/StoryMoves.h"

#include <QTabWidget>
#include <QTimer>

#include <array>

class ListView;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QVBoxLayout;
class RichTextBox;
class SceneBody;
class clsScene;

/// The tabs beside the scene list: a read-only display of the selected scene. The tabs behind the first are built
/// when the first has been painted, or when one of them is needed before. The tab that is seen is filled at once, the
/// others when there is nothing else to do.
class SceneTabs : public QTabWidget {
  Q_OBJECT

 public:
  explicit SceneTabs(QWidget* parent = nullptr);

  /// What all tabs take side by side.
  int widthOfTabs() const;
  /// Fills everything from the scene.
  void display(clsScene& scene);
  /// Empties the lists and fields.
  void clearDisplay();
  /// Builds what isn't there yet.
  void buildHiddenTabs();
  /// Fills what isn't filled yet.
  void completeDisplay();
  /// Brings up the tab of the text, which shows what the scene holds now.
  RichTextBox& showContent();
  /// Where the text is shown; null before that tab is built.
  RichTextBox* content() const;

  /// What a scene or the book has of one kind.
  struct CastLists {
    ListView* inScene = nullptr;
    ListView* all = nullptr;
  };
  const CastLists& castLists(CastKind kind) const { return cast_[static_cast<size_t>(kind)]; }

 Q_SIGNALS:
  /// A double click on the scene's text or description.
  void sceneOpened();
  /// The lists of characters, locations and items are there now.
  void listsBuilt();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void fitIcons();
  void addFrame(const QString& caption);
  QVBoxLayout* columnOf(int tab) const;
  void buildDescription();
  void buildContent();
  struct CastNames {
    QString array;
    /// For a screen reader.
    QString inScene;
    QString all;
    QStringList allColumns;
  };
  CastLists buildLists(int tab, const CastNames& names);
  void buildGoals();
  void buildNotes();
  void fillTab(int tab);
  void fillNext();
  void displayGoals(const clsScene& scene);
  void showTabIcon(int tab, const char* key, bool shown);

  QLineEdit* txtSceneTitle = nullptr;
  QPlainTextEdit* txtDesc = nullptr;
  SceneBody* txtBody = nullptr;
  QLabel* lblEmpty_ = nullptr;
  /// ListChar, ListLoc and ListItems.
  std::array<CastLists, 3> cast_;
  std::array<QLabel*, 3> goalLabels_{};
  std::array<QPlainTextEdit*, 3> goals_{};
  QPlainTextEdit* txtNotes = nullptr;
  /// What is displayed; 0 for nothing.
  qint32 sceneID_ = 0;
  /// The tabs that show an earlier scene still.
  std::array<bool, 7> stale_{};
  QTimer filling_;
};
