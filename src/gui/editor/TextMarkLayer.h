#pragma once

#include "core/spell/TextMarks.h"

#include <QObject>
#include <QPointer>
#include <QTextCharFormat>

#include <optional>

class QTextBlock;
class QTextDocument;
class RichTextBox;

/// Shows marks in a text pane without touching its text: they lie over the lines as they are drawn, so they are no part
/// of what is edited, copied, undone or saved. They follow the text as it changes: letters typed in or right behind a
/// marked word are marked too, whatever takes the place of a whole one is not. Positions are those of the pane's
/// Text().
class TextMarkLayer : public QObject {
  Q_OBJECT

 public:
  /// While one lives, marks that are set are not shown yet: all are in one step when it goes. Nothing else may happen
  /// to the text meanwhile.
  class Together {
   public:
    explicit Together(TextMarkLayer& layer) : layer_(layer) { ++layer.held_; }
    ~Together() {
      if (--layer_.held_ == 0 && layer_.isDue_) {
        layer_.layAll();
      }
    }
    Together(const Together&) = delete;
    Together& operator=(const Together&) = delete;

   private:
    TextMarkLayer& layer_;
  };

  /// Belongs to the pane.
  explicit TextMarkLayer(RichTextBox& pane);

  /// These and no others. Marks in the order of the text, none over another.
  void setMarks(const TextMarks& marks);
  /// Takes the place of those of this kind. Where both kinds lie, the name's is shown.
  void setMarks(TextMark::Kind kind, const TextMarks& marks);
  void clear();

  /// What is shown now.
  TextMarks marks() const;
  /// The mark that the position is in, or at the end of.
  std::optional<TextMark> markAt(qsizetype position) const;
  std::optional<TextMark::Kind> kindAt(qsizetype position) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Change {
    int at;
    int removed;
    QString added;
  };

  bool isEmpty() const { return misspellings_.empty() && names_.empty(); }
  TextMarks& of(TextMark::Kind kind) { return kind == TextMark::Kind::Name ? names_ : misspellings_; }
  TextMarks toDocument(const TextMarks& marks) const;
  /// Where the pane shows another document now.
  void watch();
  void follow(int from, int removed, int added);
  Change takeUp(int from, int removed, int added);
  TextMarks shownBetween(qsizetype from, qsizetype to) const;
  /// In positions of the document.
  std::optional<TextMark> shownAt(qsizetype position) const;
  void layAll();
  void lay(int from, int to);
  bool layBlock(const QTextBlock& block) const;
  void tellOfCaret();
  void chooseLooks();

  RichTextBox& pane_;
  QPointer<QTextDocument> document_;
  // In positions of the document.
  TextMarks misspellings_;
  TextMarks names_;
  QTextCharFormat misspellingLook_;
  QTextCharFormat nameLook_;
  /// The document's text, as far as the marks know it; empty without marks.
  QString text_;
  int held_ = 0;
  bool isDue_ = false;
};
