#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <memory>

/// HTML, entities, tags, escapes and Base64 over the helper libraries. The routines that need one are marked (L):
/// when it is missing they say so in the log under their own name and give their input back, or 0; the user is told
/// once that the library is required, at the first call that needs one. "Trim" means blanks alone; a text compare
/// ignores case.
class cSharedHTML {
 public:
  cSharedHTML();
  ~cSharedHTML();
  cSharedHTML(const cSharedHTML&) = delete;
  cSharedHTML& operator=(const cSharedHTML&) = delete;

  /// (L) Comments go first, then all from "<" to ">". A mark that finds no partner stays; blank text stays.
  QString StripHtml(const QString& text) const;
  /// (L) Trims; HTML 4's names and numeric references become the characters, what names nothing stays.
  QString HtmlToChar(const QString& text) const;
  /// Every character that HTML 4 has a name for, except the ampersand, so that entities pass through. Every blank
  /// becomes "&nbsp;". Blank text stays.
  QString CharToHtml(const QString& text) const;
  /// Typographic constants to typewriter ones, then every numeric reference. Blank text stays.
  QString HTMLConstToChar(const QString& text) const;
  QString TrimHeadTags(const QString& text) const;
  QString ConvertBR(const QString& text) const;
  /// (L) Trims, sets "[pb]" on a line of its own and turns known tags into the reader format, which is written down
  /// at cConvertKnownFormatting (helpers/qnHtml.h). Other tags stay.
  QString ConvertToPagelingFormatting(const QString& text) const;
  /// (L) "<br>" is stripped as any other tag: only one that was spelt with entities becomes a line end.
  QString HtmlToPlainText(const QString& text) const;
  /// (L) The same, with known formatting kept as marks.
  QString HtmlToPagelingText(const QString& text) const;

  /// Every occurrence; an empty `find` replaces nothing. ReplaceWith and MyReplaceNoCaps are text compares.
  QString ReplaceWith(const QString& text, const QString& find, const QString& replace) const;     // (L)
  QString ReplaceWith_NC(const QString& text, const QString& find, const QString& replace) const;  // (L)
  QString ReplaceUsingC(const QString& text, const QString& find, const QString& replace) const;   // (L)
  QString MyReplace(const QString& text, const QString& find, const QString& replace,
                    bool caseInsensitive = false) const;
  QString MyReplaceNoCaps(const QString& text, const QString& find, const QString& replace) const;
  /// (L) Every occurrence of the first character of `character`; cut at a NUL.
  QString RemoveChar(const QString& text, const QString& character) const;
  QString CutOffNull(const QString& text) const;
  /// (L) Runs of blanks become one; cut at a NUL.
  QString RemoveExtraSpaces(const QString& text) const;
  QString EndParaCRLF(const QString& text) const;
  QString EndParaCR(const QString& text) const;
  /// A word as someone may have disguised it, in letters.
  QString CleanWord(const QString& text) const;
  /// (L) Bytes of the code page as text.
  QString ByteArrayToString(QByteArrayView bytes) const;
  /// Counted from 1; 0 for none.
  qsizetype cInstr(QStringView text, QStringView find) const;

  /// The rules of the project file: the value is taken from the first opening tag, found by a text compare; a missing
  /// closing tag swallows the rest; every occurrence of either tag goes from the value.
  QString ExtractBetweenTags(const QString& text, const QString& open, const QString& close) const;
  /// The same with the tags kept.
  QString ExtractWithTags(const QString& text, const QString& open, const QString& close) const;
  /// Split by a text compare; always one piece more than there are separators.
  QStringList ExtractXMLArray(const QString& text, const QString& separator) const;
  /// What ExtractWithTags gives, split.
  QStringList ExtractXMLArray(const QString& text, const QString& open, const QString& close,
                              const QString& separator) const;
  /// Between the tags of this name, which is given without angle brackets. Both decimal marks are read; what is no
  /// number is 0, what is no date is day 0, and only "-1" is true.
  QString ExtractWithTags(const QString& text, const QString& tag) const;
  QString ExtractString(const QString& text, const QString& tag) const;
  double ExtractFloat(const QString& text, const QString& tag) const;
  qint32 ExtractInt(const QString& text, const QString& tag) const;
  bool ExtractBool(const QString& text, const QString& tag) const;
  qint32 ExtractDate(const QString& text, const QString& tag) const;

  /// The value between the tags of this name. A number has the fewest digits that read back the same, and a point.
  QString EncloseString(QStringView value, QStringView tag) const;
  QString EncloseFloat(double value, QStringView tag) const;
  QString EncloseInt(qint32 value, QStringView tag) const;
  QString EncloseBool(bool value, QStringView tag) const;
  /// "YYYY-MM-DD".
  QString EncloseDate(qint32 dayNumber, QStringView tag) const;
  /// The content of every pair, found by a text compare; an opening tag without a closing one stays as it is.
  QString ReplaceBetweenTags(const QString& text, const QString& open, const QString& close,
                             const QString& content) const;

  /// The escapes of the project file (text/Tags.h).
  QByteArray HtmlEncode(QStringView text) const;
  QString HtmlDecode(QByteArrayView text) const;

  /// (L) The words of a text: parted at white space, at en and em dashes, at two or more hyphens in a row; a piece
  /// counts when it holds a letter or a digit of any script.
  qint32 CalcWordCount(QStringView text) const;

  /// (L) Base64 on one line, padded.
  QByteArray EncodeMime64String(QByteArrayView text) const;
  QByteArray EncodeMime64Array(QByteArrayView bytes) const;
  /// (L) The bytes of a Base64 text; line ends, blanks and missing padding are borne. Text that is no Base64 is
  /// logged and comes back unchanged.
  QByteArray DecodeMime64(QByteArrayView text) const;

  /// The same for files, which must not take one for the other: these throw, RuntimeError 53 for a missing library
  /// and 5 for text that is no Base64.
  QByteArray encodedMime64(QByteArrayView bytes) const;
  QByteArray decodedMime64(QByteArrayView text) const;

 private:
  struct Libraries;

  template <class Statement>
  bool withLibrary(const char* routine, Statement&& statement) const;
  const struct QnHtmlRoutines& qnHtml() const;
  const struct QnHtml2Routines& qnHtml2() const;
  void testLibrary() const;
  void tellRequired(const char* library) const;
  QString replacedByC(const char* routine, const QString& text, const QString& find, const QString& replace,
                      Qt::CaseSensitivity cs) const;
  /// In place; false when the library failed.
  bool strip(QString& text) const;
  bool entitiesToChars(QString& text) const;
  bool toPageling(QString& text) const;
  void constantsToChars(QString& text) const;
  QString toPlain(const QString& text, bool keepFormatting) const;

  std::unique_ptr<Libraries> libraries_;
  mutable bool LibraryChecked = false;
  mutable bool told_ = false;
};

/// The application's one instance.
cSharedHTML& Html();
