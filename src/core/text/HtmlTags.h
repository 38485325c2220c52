#pragma once

#include <QLatin1StringView>
#include <QString>
#include <QStringView>

#include <vector>

/// What a piece of text can be between. Each has one closing tag.
enum class HtmlCode : quint8 { Bold, Italic, Underline, StrikeOut, Subscript, Superscript, Font, ListItem, Alignment };

/// The parts of a font tag as attributes hold them; empty ones are not told.
struct HtmlFont {
  QString CurrentFace{};
  QString CurrentSize{};
  QString CurrentColor{};

  /// The opening tag; empty when there is nothing to tell.
  QString tag() const;
  /// The size of HTML for a height in half points: 10 points are 2.
  static int sizeOf(int halfPoints);
};

/// The opening tag of text that stands at "center" or "right".
QString alignmentTag(QLatin1StringView where);

/// Writes text between tags that are always well nested. Codes are asked for and closed as the text goes along; tags
/// are written with the next text, so that none encloses nothing. Blanks alone are no text to that end: they go out
/// where they stand. A code that closes takes those above it along, and they are asked for again.
class HtmlTags {
 public:
  /// `LineEnd` stands behind each "<br>".
  explicit HtmlTags(QString LineEnd, qsizetype sizeHint = 0);

  /// Between the usual tags of the code. One that is open or asked for already stays as it is.
  void open(HtmlCode code);
  /// With an opening tag of its own; a tied code ends with its group of paragraphs.
  void open(HtmlCode code, const QString& begCode, bool isTied = false);
  void close(HtmlCode code);
  bool isOpenOrAsked(HtmlCode code) const { return isOpen(code) || isAsked(code); }
  bool isAsked(HtmlCode code) const;
  /// The font from here on; an empty tag ends it.
  void setFont(const QString& tag);
  /// The next `setFont` finds that nothing was told.
  void forgetFont() { CurrentFontTag.clear(); }

  /// All codes end with the group of paragraphs from here on.
  void tieAll();
  void closeTied();
  /// Nothing is asked for again.
  void closeAll();

  void breakLine();
  bool hasBreak() const { return !PendingBreak.isEmpty(); }
  /// Takes one back that no text came behind.
  void dropBreak() { PendingBreak.chop(kBreak.size() + LineEnd.size()); }
  /// Blanks that follow stand at the start of a line, as behind a break.
  void startLine() { AtLineStart = true; }
  /// The text is HTML: references, no tags.
  void text(QStringView html);
  /// Closes what is closing: not even blanks come into it any more.
  void writeClosed();
  /// Opens what is asked for: even blanks come into it.
  void writeTags();
  /// Closes what is open and gives the whole; breaks that no text came behind are none.
  QString finish();

  /// The stacks in words, for whoever looks for a fault.
  QString dump() const;

 private:
  enum class Status : quint8 { Pending, PendingInGroup, OpenInGroup, Active, Closing };
  /// A pair of tags: the closing one is the code's, the opening one its own.
  struct Pair {
    HtmlCode code;
    Status status;
    QString begCode;
  };

  static constexpr QLatin1StringView kBreak{"<br>"};

  bool isOpen(HtmlCode code) const;
  void dropAsked(HtmlCode code);
  void closeFrom(size_t first, bool keepsTied);
  void writeBreak();

  std::vector<Pair> Codes;      ///< In force, in order of opening; those that are closing stand at the end.
  std::vector<Pair> NextCodes;  ///< Asked for since text was last written.
  QString CurrentFontTag;
  QString Output;
  QString PendingBreak;
  QString LineEnd;
  bool AtLineStart = true;
};
