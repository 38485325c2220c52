#pragma once

#include <QWidget>

class clsScene;

/// The card of a scene on the storyboard: its title, broken where the card ends, in an outline of its row's colour. One
/// card shows one scene after another.
class StoryCard : public QWidget {
  Q_OBJECT

 public:
  explicit StoryCard(QWidget* parent);

  /// The how manieth scene of the story, of how many.
  struct Place {
    qint32 number;
    qint32 of;
  };

  /// Hidden until it shows a scene.
  void PrintOnCard(clsScene& scene, int row, Place place);
  /// The ID of the scene that is shown.
  qint32 tag() const { return tag_; }
  int row() const { return row_; }

  /// What cards and names are written in.
  static QFont boardFont(double points);

 Q_SIGNALS:
  void pressed(StoryCard* card, QMouseEvent* event);
  void moved(QMouseEvent* event);
  void released(QMouseEvent* event);
  void doubleClicked(StoryCard* card);
  /// By a key, at a point of the screen.
  void menuWanted(StoryCard* card, const QPoint& place);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void say(clsScene& scene, Place place);

  qint32 tag_ = 0;
  int row_ = 0;
  bool unused_ = false;
  QString title_;
  QStringList lines_;
};
