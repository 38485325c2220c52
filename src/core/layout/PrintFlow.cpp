#include "core/layout/PrintFlow.h"

#include "core/infra/Clock.h"
#include "core/infra/cSharedLang.h"

#include <QLocale>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kSceneSeparator = u"* * *"_s;
constexpr double kBelowText = 1600;
constexpr double kNumberFromBottom = 900;
constexpr double kFooterFromBottom = 1100;
constexpr double kHeaderTop = 200;
constexpr double kPageLeft = 500;
/// A text doesn't begin in the last lines of a page.
constexpr int kWidowLines = 4;
const PrintFont kHeaderFont{u"Arial"_s, 8, false};
constexpr double kFooterPoints = 7;
/// A larger number would run into what a printer can't print on.
constexpr double kLargestNumber = 30;

bool isBlank(QStringView text) {
  return std::all_of(text.begin(), text.end(), [](QChar c) { return c == u' '; });
}

/// As much of the text as fits, with three dots behind where it is cut.
QString elided(const QString& text, double room, const LineBreaker& breaker) {
  if (breaker.widthOf(text) <= room) {
    return text;
  }
  QString cut = text;
  while (!cut.isEmpty() && breaker.widthOf(QString(cut + u'\u2026')) > room) {
    cut.truncate(qMin<qsizetype>(cut.size() - 1, cut.size() * 9 / 10));
    if (!cut.isEmpty() && cut.back().isHighSurrogate()) {
      cut.chop(1);
    }
  }
  return cut + u'\u2026';
}

}  // namespace

QString PrintFlow::plainLines(QString text) {
  text.replace(u"\r\n"_s, u"\n"_s);
  text.replace(QChar::LineSeparator, u'\n');
  text.replace(QChar::ParagraphSeparator, u'\n');
  text.remove(u'\r');
  return text.replace(u"\t"_s, u"    "_s);
}

PrintFlow::PrintFlow(const TextMeasure& measure, const PrintState& state, const PaperSize& paper)
    : font(state.font()),
      doubleSpaced(state.PrintDoubleSpaced),
      oneAndHalf(state.PrintOneAndHalf),
      measure_(measure),
      paper_(paper),
      furnitureAhead_([this] { printNumber(); }) {}

void PrintFlow::PrintText(const QString& text, bool firstPage) {
  furnitureAhead_ = [this] { printNumber(); };
  if (firstPage) {
    printNumber();
  }
  if (text.isEmpty()) {
    headings_.reset();
    return;
  }
  beginText();
  flow(text, textColumn());
}

void PrintFlow::PrintBold(const QString& text) {
  if (text.isEmpty()) {
    return;
  }
  beginHeading();
  font.bold = true;
  flow(text, textColumn());
  font.bold = false;
}

void PrintFlow::PrintPage(const QString& text, const QString& title) {
  furnitureAhead_ = [this, title] { printHeaderAndFooter(title); };
  headings_.reset();
  turnPage();
  page();
  flow(text, {kPageLeft, paper_.width - 1400.0, paper_.width - 1000.0, u"   "_s});
}

void PrintFlow::PrintRuns(const QList<PrintRun>& runs, double x) {
  furnitureAhead_ = [this] { printNumber(); };
  beginText();
  flowRuns(runs, x);
}

void PrintFlow::PrintHeading(const QList<PrintRun>& runs, double x) {
  beginHeading();
  flowRuns(runs, x);
}

void PrintFlow::flowRuns(const QList<PrintRun>& runs, double x) {
  const Column column = textColumn();
  const double right = column.left + column.width;
  double at = x;
  for (const PrintRun& run : runs) {
    font.bold = run.bold;
    const QString text = oneLine(run.text);
    for (qsizetype from = 0; from < text.size();) {
      const bool startsLine = at <= x;
      const LineBreaker::Line line = breaker().lineAt(text, from, right - at);
      const QStringView shown = QStringView(text).mid(from, line.length);
      // A word that only the rest of a line is too narrow for goes to the next one whole.
      const bool isCut = line.next < text.size() && text.at(line.next - 1) != u' ';
      if (!startsLine && (isCut || breaker().widthOf(shown) > right - at)) {
        flushLine({}, column);
        at = x;
        from += text.at(from) == u' ' ? 1 : 0;
        continue;
      }
      place(at, shown);
      at += breaker().widthOf(shown);
      from = line.next;
      if (from < text.size()) {
        flushLine({}, column);
        at = x;
      }
    }
  }
  font.bold = false;
  blankLine();
}

void PrintFlow::PrintCentred(const QString& text) {
  furnitureAhead_ = [this] { printNumber(); };
  const QString line = oneLine(text);
  for (qsizetype from = 0; from < line.size();) {
    const LineBreaker::Line part = breaker().lineAt(line, from, textColumn().width);
    const QStringView shown = QStringView(line).mid(from, part.length);
    place((paper_.width - breaker().widthOf(shown)) / 2, shown);
    blankLine();
    from = part.next;
    if (y_ > bottom()) {
      printNumber();
      turnPage();
    }
  }
}

void PrintFlow::spacing() {
  if (doubleSpaced) {
    y_ += lineHeight();
  } else if (oneAndHalf) {
    y_ += lineHeight() / 2;
  }
}

void PrintFlow::newPage() {
  turned_ = true;
  furniture_ = nullptr;
  y_ = 0;
  headings_.reset();
}

void PrintFlow::newNumberedPage() {
  furnitureAhead_ = [this] { printNumber(); };
  turnPage();
}

/// Headings that would be left behind come along.
void PrintFlow::turnPage() {
  const std::optional<Headings> headings = std::exchange(headings_, {});
  const double left = y_;
  turned_ = true;
  furniture_ = furnitureAhead_;
  y_ = kTextTop;
  if (headings && headings->top > kTextTop && left - headings->top < (bottom() - kTextTop) / 2) {
    takeHeadingsAlong(*headings);
    y_ += left - headings->top;
  }
}

void PrintFlow::takeHeadingsAlong(const Headings& headings) {
  std::vector<PlacedText>& left = pages_.back().texts;
  const auto first = left.begin() + static_cast<std::ptrdiff_t>(headings.firstText);
  const std::vector<PlacedText> moved(first, left.end());
  left.erase(first, left.end());
  headings_ = {page().texts.size(), kTextTop};
  for (const PlacedText& text : moved) {
    placeAt(text.x, text.y + kTextTop - headings.top, text.text, text.font);
  }
}

PrintedPage& PrintFlow::page() {
  if (turned_) {
    turned_ = false;
    numbered_ = false;
    pages_.emplace_back();
    if (const auto begin = std::exchange(furniture_, nullptr)) {
      begin();
    }
  }
  return pages_.back();
}

/// Goes to the next page where only a few lines are left on this one.
void PrintFlow::turnNearBottom() {
  if (y_ > qMax(kTextTop, bottom() - kWidowLines * lineHeight())) {
    turnPage();
  }
}

/// It ends its headings, once they are on one page.
void PrintFlow::beginText() {
  turnNearBottom();
  headings_.reset();
}

void PrintFlow::beginHeading() {
  furnitureAhead_ = [this] { printNumber(); };
  turnNearBottom();
  if (!headings_) {
    headings_ = {page().texts.size(), y_};
  }
}

const LineBreaker& PrintFlow::breaker() {
  const auto known =
      std::find_if(breakers_.begin(), breakers_.end(), [this](const auto& one) { return one->font() == font; });
  if (known != breakers_.end()) {
    return **known;
  }
  return *breakers_.emplace_back(std::make_unique<LineBreaker>(measure_, font));
}

PrintFlow::Column PrintFlow::textColumn() const {
  return {kTextLeft, paper_.width - 1600.0, static_cast<double>(paper_.width), QString()};
}

/// The last line begins here at the latest, and never runs into what stands below the text.
double PrintFlow::bottom() {
  return qMin(paper_.height - kBelowText, paper_.height - kFooterFromBottom - lineHeight());
}

void PrintFlow::flow(const QString& text, const Column& column) {
  const QString lines = plainLines(text);
  for (qsizetype from = 0; from <= lines.size();) {
    const qsizetype end = lines.indexOf(u'\n', from);
    const bool isLast = end < 0;
    flowParagraph(column.indent + lines.mid(from, isLast ? -1 : end - from), column, isLast);
    from = isLast ? lines.size() + 1 : end + 1;
  }
}

/// The last line of a text gets no spacing behind it: who goes on after it says what comes there.
void PrintFlow::flowParagraph(const QString& paragraph, const Column& column, bool isLast) {
  qsizetype from = 0;
  do {
    const LineBreaker::Line line = breaker().lineAt(paragraph, from, column.width);
    const QStringView shown = QStringView(paragraph).mid(from, line.length);
    from = line.next;
    if (!isLast || from < paragraph.size()) {
      flushLine(shown, column);
    } else if (!isBlank(shown)) {
      place(column.left, shown);
      blankLine();
    }
  } while (from < paragraph.size());
}

void PrintFlow::flushLine(QStringView line, const Column& column) {
  if (line.contains(kSceneSeparator)) {
    const QStringView centred = line.trimmed();
    place((column.centredIn - breaker().widthOf(centred)) / 2, centred);
  } else {
    place(column.left, line);
  }
  blankLine();
  spacing();
  if (y_ > bottom()) {
    turnPage();
  }
}

void PrintFlow::place(double x, QStringView text) {
  if (!isBlank(text)) {
    page();
    placeAt(x, y_, text.toString(), font);
  }
}

void PrintFlow::placeAt(double x, double y, const QString& text, const PrintFont& textFont) {
  page().texts.push_back({x, y, text, textFont});
}

/// Once on a page, however often it is asked for.
void PrintFlow::printNumber() {
  page();
  if (std::exchange(numbered_, true)) {
    return;
  }
  const PrintFont textFont = font;
  font.bold = false;
  font.points = qMin(font.points, kLargestNumber);
  const QString number = QString::number(++number_);
  placeAt((paper_.width - breaker().widthOf(number)) / 2, paper_.height - kNumberFromBottom, number, font);
  font = textFont;
}

void PrintFlow::printHeaderAndFooter(const QString& title) {
  const PrintFont textFont = std::exchange(font, kHeaderFont);
  const QString number = translated(u"Page: %1"_s).arg(++number_);
  const double numberLeft = paper_.width - breaker().widthOf(number) - 1200;
  const double blank = breaker().widthOf(u"    ");
  const QString line = oneLine(title);
  const double centred = (paper_.width - breaker().widthOf(line)) / 2 - 500;
  const double left = qMax(kPageLeft, centred);
  placeAt(left, kHeaderTop, elided(line, numberLeft - blank - left, breaker()), font);
  placeAt(numberLeft, kHeaderTop, number, font);
  font = textFont;
  const QString printed = QLocale().toString(Clock::now(), u"dd-MMM-yyyy, HH:mm"_s);
  placeAt(kPageLeft, paper_.height - kFooterFromBottom, translated(u"Printed %1"_s).arg(printed),
          {font.name, kFooterPoints, false});
}
