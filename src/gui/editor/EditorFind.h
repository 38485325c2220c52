#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <optional>

class RichTextBox;
class frmFind;

/// Finds and replaces in the text of an editor, which has a dialog and a last search of its own. Line ends in what is
/// sought and put in are those of the text, however they came in; an object's sign stands for nothing there. An empty
/// search does nothing.
class EditorFind : public QObject {
  Q_OBJECT

 public:
  /// Owned by the window.
  EditorFind(RichTextBox& text, QWidget& window);

  /// Asks in the dialog; what is selected within a line is offered as what to look for.
  void ShowFind(bool toReplace);
  /// The last search again; asks when there was none.
  void FindNext();
  void FindPrev();
  /// What FindNext goes on with, its first match selected. Says nothing where there is none.
  void search(const QString& text);
  /// Takes the dialog away.
  void close();

 Q_SIGNALS:
  /// What has become of it, for the status bar.
  void told(const QString& hint);

 private:
  struct Search {
    QString text;
    Qt::CaseSensitivity caseSensitivity = Qt::CaseInsensitive;
  };
  /// What Replace has put in, still selected.
  struct Replaced {
    qsizetype start;
    QString text;
  };

  void makeDialog();
  bool take(const QString& text, bool matchCase);
  void Find_DoFind(const QString& text, bool matchCase);
  void Find_DoPrevious(const QString& text, bool matchCase);
  void Find_DoReplace(const QString& text, const QString& with, bool matchCase);
  void Find_DoReplaceAll(const QString& text, const QString& with, bool matchCase);
  std::optional<qsizetype> nextFrom(qsizetype start);
  std::optional<qsizetype> previousWithin(qsizetype end) const;
  std::optional<qsizetype> indexFrom(qsizetype start) const;
  void findPrevious();
  qsizetype behindReplaced() const;
  void show(qsizetype start, qsizetype length);
  void keepDialogClear();

  RichTextBox& text_;
  QWidget& window_;
  QPointer<frmFind> find_;
  Search last_;
  std::optional<Replaced> replaced_;
};
