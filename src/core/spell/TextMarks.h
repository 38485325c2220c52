#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <vector>

/// What an editor shows of a text in a colour of its own. Positions count from 0 in the text's UTF-16 units.
struct TextMark {
  enum class Kind { Misspelling, Name };

  qsizetype start = 0;
  qsizetype length = 0;
  Kind kind = Kind::Misspelling;

  qsizetype end() const { return start + length; }
  bool operator==(const TextMark& other) const = default;
};

/// Marks in the order of the text, none over another.
using TextMarks = std::vector<TextMark>;

/// The names by which a character is known in a text: title, full name and the alternate names, parted by ";". None
/// when the title has fewer than three characters.
QStringList namesToMark(const QString& title, const QString& fullName, const QString& alternateNames);

/// Every place where one of the names stands, inside of words too; case counts. Places that touch or overlap are one.
TextMarks findNames(QStringView text, const QStringList& names);

/// The misspellings without the possessive "'s" (or "’s") behind one of the names, whatever the name ends in.
TextMarks withoutPossessives(const TextMarks& misspellings, const QStringList& names, QStringView text);

/// Both, a name's mark going over that of a misspelling.
TextMarks laidOver(const TextMarks& misspellings, const TextMarks& names);
