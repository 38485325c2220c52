#pragma once

#include "gui/sheets/Sheet.h"

class MemoEdit;
class QPlainTextEdit;

/// The sheet of a chapter.
class frmEditChapter : public SheetOf<ChapterDetails> {
  Q_OBJECT

 public:
  explicit frmEditChapter(const SubjectOf<ChapterDetails>& subject, QWidget* parent = nullptr);

 private:
  void DataToForm(const ChapterDetails& details) override;
  void writeTo(ChapterDetails& details) const override;
  void buildDetails(QWidget& page);
  void buildSummaries(QWidget& page);

  QLineEdit* txtTitle = nullptr;
  MemoEdit* txtDesc = nullptr;
  QLineEdit* txtWords = nullptr;
  QPlainTextEdit* txtSceneSummary = nullptr;
};
