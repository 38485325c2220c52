#pragma once

#include <QDate>
#include <QString>

#include <array>
#include <optional>

/// What happens in the date picker, without its window: three texts, the one that has the focus, and what each
/// key does. The window shows this state and hands keys and texts to it.
class DateEntry {
 public:
  /// The first two hold day and month in local order; the year is always the last.
  enum Box { First, Second, Year };
  enum class Key { Enter, Cancel, Accept, Backspace, Character };
  enum class Outcome {
    /// The box itself does what the key stands for.
    PassOn,
    /// Nothing more is to be done; focus and texts may have changed.
    Done,
    Accepted,
    Cancelled
  };

  DateEntry(bool monthFirst, QString separator, const QDate& start);

  QString text(Box box) const { return texts_[box]; }
  /// What stands in the box now, as the user typed it.
  void setText(Box box, const QString& text) { texts_[box] = text; }
  Box focus() const { return focus_; }
  void setFocus(Box box) { focus_ = box; }
  static int maxLength(Box box) { return box == Year ? 4 : 2; }

  /// A key in the box that has the focus; the character counts for Key::Character alone.
  Outcome press(Key key, QChar character = {});
  /// Pads a lone digit of day or month. False when the box can't be left: a month over 12.
  bool leave(Box box);
  /// Validates: the result is the date, or a message waits.
  Outcome accept();

  /// The box that the user must see before going on, once; empty when there is none.
  QString takeMessage();
  /// The date that was accepted.
  std::optional<QDate> result() const { return result_; }
  /// "MM/DD" or "DD/MM".
  QString orderString() const;
  const QString& separator() const { return separator_; }
  /// The three texts in local order, as the hidden label holds them.
  QString joined() const;

 private:
  Outcome pressEnter();
  Outcome pressBackspace();
  Outcome pressCharacter(QChar character);
  bool expandYear();
  Box monthBox() const { return monthFirst_ ? First : Second; }
  Box dayBox() const { return monthFirst_ ? Second : First; }

  bool monthFirst_;
  QString separator_;
  std::array<QString, 3> texts_;
  Box focus_ = First;
  QString message_;
  std::optional<QDate> result_;
};
