#pragma once

#include <QWidget>

class ListView;
class QLineEdit;
class QPlainTextEdit;
class QTreeWidgetItem;
class clsChapter;

/// The left side of the main window: the book's title and author, its chapters, the selected chapter's description.
class ChapterPane : public QWidget {
  Q_OBJECT

 public:
  explicit ChapterPane(QWidget* parent = nullptr);

  ListView& listChapters() const { return *ListChapters; }

  /// Shows the project's title and author without writing them back.
  void showTitles();
  void setTitlesEnabled(bool enabled);
  /// One row a chapter; nothing is selected afterwards.
  void FillChapterList();
  void clear();
  void UpdateChapterRow(QTreeWidgetItem& row, qint32 ChapterID) const;
  /// Rewrites the running totals and, with them, the words of the used chapters in all.
  void RecalcProgressive();
  qint32 ProgressiveTotal() const { return progressiveTotal_; }

  void SelectChapter(qint32 ChapterID);
  qint32 SelectedChapterID() const;
  /// -1 when there is no such row.
  int ChapterRowIndex(qint32 ChapterID) const;

  void showDescription(const clsChapter& chapter);

 Q_SIGNALS:
  /// Another chapter was selected by anything but a key.
  void chapterSelected();
  /// A key went up in the list.
  void chapterKeyUp(int key);
  void chapterOpened();
  /// Title or author were written to the project.
  void titlesEdited();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildLayout();
  void connectSignals();
  void recolourRows();
  void writeProgress(const QList<QTreeWidgetItem*>& rows);

  QLineEdit* txtTitle;
  QLineEdit* txtAuthor;
  ListView* ListChapters;
  QPlainTextEdit* txtChapterDesc;
  qint32 progressiveTotal_ = 0;
};
