#pragma once

#include <QWidget>

class ListView;
class QLineEdit;
class QPlainTextEdit;

/// The notes of the project, for reading.
class NotesPane : public QWidget {
  Q_OBJECT

 public:
  explicit NotesPane(QWidget* parent = nullptr);

  /// All notes in the project's order; the first is selected and shown.
  void FillNoteList();

 private:
  void buildLayout();
  void showSelectedNote();

  ListView* ListNotes;
  QLineEdit* txtNoteTitle;
  QPlainTextEdit* txtNoteEditor;
};
