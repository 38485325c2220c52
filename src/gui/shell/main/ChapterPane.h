#pragma once

#include "gui/views/ListModel.h"

#include <QWidget>

#include <vector>

class ListView;
class ProportionalSplitter;
class QLineEdit;
class QPlainTextEdit;
class clsChapter;

/// The left side of the main window: the book's title and author, its chapters, the selected chapter's description.
class ChapterPane : public QWidget {
  Q_OBJECT

 public:
  explicit ChapterPane(QWidget* parent = nullptr);

  ListView& listChapters() const { return *ListChapters; }

  /// Shows the project's title and author without writing them back.
  void showTitles();
  /// All but the list.
  void setFieldsEnabled(bool enabled);
  /// Between the chapters and the description of the selected one.
  ProportionalSplitter& splitter() const { return *splitter_; }
  /// One row a chapter. Of what was selected that stays which is still there.
  void FillChapterList();
  void clear();
  /// Works out the running totals and, with them, the words of the used chapters in all.
  void RecalcProgressive();
  qint32 ProgressiveTotal() const { return progressiveTotal_; }

  void SelectChapter(qint32 ChapterID);
  qint32 SelectedChapterID() const;

  void showDescription(const clsChapter& chapter);
  /// What stands where chapters would.
  void setEmptyText(const QString& text);

 Q_SIGNALS:
  /// Another chapter was selected by anything but a key.
  void chapterSelected();
  /// A key went up in the list.
  void chapterKeyUp(int key);
  /// A double click on a chapter or on its description, or the key for it.
  void chapterOpened();
  /// Title or author were written to the project.
  void titlesEdited();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildLayout();
  void connectSignals();
  ListRow chapterRow(qint32 id, int row) const;
  void countOn(const QList<qint32>& chapters);

  QWidget* titles_;
  QLineEdit* txtTitle;
  QLineEdit* txtAuthor;
  ListView* ListChapters;
  QPlainTextEdit* txtChapterDesc;
  ProportionalSplitter* splitter_;
  /// The running total at each row.
  std::vector<qint32> counts_;
  qint32 progressiveTotal_ = 0;
  /// The sections of the book, as the positions of the chapters that end them; below 1 for no such chapter.
  qint32 endOfBeginning_ = 0;
  qint32 endOfMiddle_ = 0;
};
