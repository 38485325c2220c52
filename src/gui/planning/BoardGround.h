#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

class QLabel;

/// What lies behind the cards of the storyboard: a bar and a name for each row, and where chapters begin.
class BoardGround : public QWidget {
  Q_OBJECT

 public:
  struct ChapterMark {
    int place;
    /// The chapter's position in the book.
    qint32 number;
    QString title;
  };

  explicit BoardGround(QWidget* parent);

  void setBars(int rows);
  void setNames(const QStringList& names);
  void setChapterMarks(const std::vector<ChapterMark>& marks);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QLabel& picHeading(size_t index);

  int bars_ = 0;
  QStringList names_;
  std::vector<int> lines_;
  std::vector<QLabel*> headings_;
};
