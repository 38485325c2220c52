#pragma once

#include <QWidget>

#include <memory>

class ListView;
class MemoEdit;
class QLineEdit;
class QPushButton;
class QVBoxLayout;
class clsNote;

/// The notes of the project. One is looked at, or edited: then the list is out of reach, and what is typed stays in
/// the fields until it is saved or thrown away, whatever becomes of the list or the book meanwhile.
class NotesPane : public QWidget {
  Q_OBJECT

 public:
  explicit NotesPane(QWidget* parent = nullptr);

  /// What a tool tip says of the notes.
  static QString hint();

  /// All notes in the project's order. What is selected stays so, else the first one is; it is shown.
  void FillNoteList();
  /// No rows, whatever the project holds.
  void clear();
  /// Without a project there is nothing to be done here.
  void setProjectOpen(bool open);

  /// Something is typed that stands in no note.
  bool holdsTyped() const;
  /// Ends the editing, and asks about what is typed. False when the user goes on with it.
  bool mayLeave();
  /// What is typed goes into its note without a question, and can be edited further.
  void storeTyped();
  /// What was stored stands in the book's file: it doesn't count as typed any more.
  void setWritten();

 Q_SIGNALS:
  void editingChanged(bool editing);
  void notesChanged();
  /// The writer has pressed Save.
  void noteSaved();

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void buildLayout();
  QVBoxLayout* columnOfList();
  QVBoxLayout* columnOfNote();
  void connectSignals();
  void cmdNew_Click();
  void cmdEdit_Click();
  void cmdSave_Click();
  void cmdDiscard_Click();
  void deleteSelected();
  void rename(int row, const QString& title);

  qint32 shownID() const;
  void fillRows();
  void showSelectedNote();
  void show(const QString& title, const QString& text);
  void followNote();
  void store();
  void edit(std::shared_ptr<clsNote> note);
  void view();
  void showState();

  ListView* ListNotes;
  QPushButton* cmdNew;
  QPushButton* cmdEdit;
  QLineEdit* txtNoteTitle;
  MemoEdit* txtNoteEditor;
  QPushButton* cmdSave;
  QPushButton* cmdDiscard;

  bool projectOpen_ = false;
  bool editing_ = false;
  /// The note that is being edited; null for a new one.
  std::shared_ptr<clsNote> edited_;
  /// What the fields held when that began, and what was selected.
  QString titleBefore_;
  QString textBefore_;
  qint32 selectedBefore_ = 0;
};
