#pragma once

#include <QByteArray>
#include <QString>

#include <array>

/// A scene of generation 2: a plain text, and its plan in bracketed tags within it.
class clsQN2Scene {
 public:
  clsQN2Scene() = default;
  /// Reads what stands between two "[SCENE]": each tag is cut out, and what remains is the text, without line ends in
  /// front and behind. A tag that isn't closed is text.
  explicit clsQN2Scene(QString span);
  /// A text in which no scene is marked.
  static clsQN2Scene ofWholeText(const QString& text);

  /// Colour number.
  qint16 Column = 0;
  /// In capitals; empty for none.
  QString Actor;
  QString Title;
  QString DescText;
  QString Goal;
  QString Conflict;
  QString Outcome;
  qint16 Status = 0;
  /// The four ratings.
  std::array<qint16, 4> Field{};
  qint16 Day = 0;
  qint16 Hour = 0;
  qint16 Minute = 0;
  qint16 LastsDays = 0;
  qint16 LastsHours = 0;
  qint16 LastsMinutes = 0;
  QString Text;
  /// Of the text, where it was counted.
  qint32 Wordcount = 0;

  /// Well-formed RTF of the text, which may be RTF already.
  QByteArray TextRTF() const;
};
