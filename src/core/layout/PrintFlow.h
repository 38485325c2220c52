#pragma once

#include "core/layout/LineBreaker.h"
#include "core/layout/PrintState.h"
#include "core/layout/PrintedPage.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// A stretch of a line, in bold or not.
struct PrintRun {
  QString text;
  bool bold = false;
};

/// The flow of text over pages: a position that moves down, lines that are broken, pages that are turned, with their
/// numbers, headers and footers. A page that was turned to comes into being with the first thing that stands on it, so
/// there are no empty ones. Page numbers count on through the whole flow.
class PrintFlow {
 public:
  /// The measure outlives this.
  PrintFlow(const TextMeasure& measure, const PrintState& state, const PaperSize& paper = PaperSize::a4());
  PrintFlow(const PrintFlow&) = delete;
  PrintFlow& operator=(const PrintFlow&) = delete;

  // The settings of what is printed next; they can be changed at any time.
  PrintFont font;
  bool doubleSpaced = false;
  bool oneAndHalf = false;

  /// Flows text between the margins, each page with its number below. On a first page that number is printed at once,
  /// where nothing else has begun the page. A text does not begin within the last four lines of a page.
  void PrintText(const QString& text, bool firstPage = false);
  /// The same in bold: a heading. Headings, with all their lines, go to the next page together with the text that
  /// follows them.
  void PrintBold(const QString& text);
  /// Flows text over pages of its own, each with a header and a footer.
  void PrintPage(const QString& text, const QString& title);
  /// Text of runs one behind the other from x on, broken between words, and a line end.
  void PrintRuns(const QList<PrintRun>& runs, double x = kTextLeft);
  /// The same as a heading.
  void PrintHeading(const QList<PrintRun>& runs, double x = kTextLeft);
  /// A title in the middle, in as many lines as it needs.
  void PrintCentred(const QString& text);
  /// The room that the chosen line spacing leaves after a paragraph.
  void spacing();
  void blankLine() { y_ += lineHeight(); }
  void moveDown(double twips) { y_ += twips; }
  void moveTo(double y) { y_ = y; }

  /// What comes next stands on a fresh page, without a number of its own unless it is flowed there as a first page.
  void newPage();
  /// The same, with its number; text begins at its top.
  void newNumberedPage();
  /// The page that is being filled, for whoever places things by hand.
  PrintedPage& page();
  double lineHeight() { return breaker().lineHeight(); }
  /// For the present font.
  const LineBreaker& breaker();
  const PaperSize& paper() const { return paper_; }
  std::vector<PrintedPage> takePages() { return std::move(pages_); }

  /// The text with line ends of all kinds as LF and tabs as blanks.
  static QString plainLines(QString text);
  /// The same on one line.
  static QString oneLine(const QString& text) { return plainLines(text).replace(QChar(u'\n'), QChar(u' ')); }

  static constexpr double kTextLeft = 600;
  /// Where text begins on a page that goes on.
  static constexpr double kTextTop = 650;

 private:
  /// Where text may stand, what stands around it, and where the middle is.
  struct Column {
    double left;
    double width;
    double centredIn;
    QString indent;
  };

  /// Headings that no text has followed yet, the last texts of the page.
  struct Headings {
    size_t firstText;
    double top;
  };

  Column textColumn() const;
  double bottom();
  void flow(const QString& text, const Column& column);
  void flowRuns(const QList<PrintRun>& runs, double x);
  void flowParagraph(const QString& paragraph, const Column& column, bool isLast);
  void flushLine(QStringView line, const Column& column);
  void turnPage();
  void turnNearBottom();
  void beginText();
  void beginHeading();
  void takeHeadingsAlong(const Headings& headings);
  void place(double x, QStringView text);
  void placeAt(double x, double y, const QString& text, const PrintFont& textFont);
  void printNumber();
  void printHeaderAndFooter(const QString& title);

  const TextMeasure& measure_;
  PaperSize paper_;
  std::vector<std::unique_ptr<LineBreaker>> breakers_;
  std::vector<PrintedPage> pages_;
  double y_ = kTextTop;
  qint32 number_ = 0;
  /// A page was turned to that nothing stands on yet.
  bool turned_ = true;
  /// The page that is being filled has its number.
  bool numbered_ = false;
  std::optional<Headings> headings_;
  /// What stands on a turned page by itself, and on one that the present text goes on to; empty for nothing.
  std::function<void()> furniture_;
  std::function<void()> furnitureAhead_;
};
