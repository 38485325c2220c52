#pragma once

#include <QString>
#include <QStringView>

/// Small string routines. What changes a text changes its argument; JoinStrings and cTrim give a new one. "Trim"
/// means blanks (U+0020) alone. Positions count from 1 and are 0 for none. A text compare ignores case; an empty
/// `find` is found where the search begins, unless the text is empty.
class cSharedText {
 public:
  QString JoinStrings(QStringView a, QStringView b) const;
  /// The first `count` characters, all for 0 or too large a count. Unit by unit: "ß" stays, as does a character of
  /// the code page whose capital the code page lacks.
  void ToUpper(QString& text, qsizetype count = 0) const;
  void ToLower(QString& text, qsizetype count = 0) const;
  /// `to` becomes the first `count` characters of `from`, or all for 0.
  void CopyString(QStringView from, QString& to, qsizetype count = 0) const;

  /// The first three are one: double quotes around.
  void AddQuotes(QString& text) const;
  void AddDblQuotes(QString& text) const { AddQuotes(text); }
  void AddDoubleQuotes(QString& text) const { AddQuotes(text); }
  void AddSingleQuotes(QString& text) const;
  /// One pair of equal quotes, double or single; a quote without its partner stays.
  void RemoveQuotes(QString& text) const;
  /// One double quote at each end where there is one.
  void StripDblQuotes(QString& text) const;

  /// Selects the whole text of a box, whichever control it is.
  template <class TextBox>
  void HighlightText(TextBox& box) const {
    box.selectAll();
  }

  /// Lower-cased and trimmed, both: exactly one of the three holds for any two texts.
  bool StringsEqual(QStringView a, QStringView b) const;
  bool StringLower(QStringView a, QStringView b) const;
  bool StringHigher(QStringView a, QStringView b) const;

  bool StringContains(QStringView text, QStringView find) const { return MyInstr(text, find) > 0; }
  bool Contains(QStringView text, QStringView find) const { return MyInstr(text, find) > 0; }
  qsizetype MyInstr(QStringView text, QStringView find) const { return SubstringLocation(text, find, 1); }
  qsizetype TextInstr(QStringView text, QStringView find) const { return SubstringLocation(text, find, 1); }
  /// From position `start`; below 1 is 1.
  qsizetype SubstringLocation(QStringView text, QStringView find, qsizetype start = 0) const;
  /// The last occurrence that lies within the first `start` characters; below 1 or beyond the end is the whole text.
  qsizetype SubstringLocationRev(QStringView text, QStringView find, qsizetype start = 0) const;
  /// Occurrences that overlap count each; an empty `find` counts none.
  qsizetype CountStringInString(QStringView text, QStringView find) const;

  /// Title case: a capital at the front and behind every blank and "-", all other letters small.
  void SentenceCase(QString& text) const;
  void FirstLetterUpperCase(QString& text) const;

  /// Carriage returns, line feeds, blanks and "-" at that end go.
  void EatCrapFromEnd(QString& text) const;
  void EatCrapFromStart(QString& text) const;
  /// Cuts at the first NUL, then trims the right; TrimcTrim trims both sides.
  void TrimNull(QString& text) const;
  QString cTrim(QStringView text) const;
  void TrimcTrim(QString& text) const;
  /// Whole CR LF pairs at the end.
  void RemoveCRLFFromEnd(QString& text) const;
  /// Keeps a-z, A-Z, digits and blanks, and trims.
  void RemoveNonAlphaNumeric(QString& text) const;
  /// Runs of blanks become one.
  void RemoveDoubleSpaces(QString& text) const;
  /// Each of a pair becomes a blank of its own.
  void CRLFToSpaces(QString& text) const;
  /// A pair becomes one blank.
  void CleanCRLF(QString& text) const;
  /// Removes , ! : . ? - ' and double quotes, and trims.
  void RemovePunctuation(QString& text) const;
};

/// The application's one instance.
cSharedText& TextTools();
