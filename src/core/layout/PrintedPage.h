#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

// What is printed, as pages of placed texts and lines. All lengths are twips, 1440 to the inch, from the upper left
// corner of the paper.

struct PrintFont {
  QString name;
  double points = 10;
  bool bold = false;

  bool operator==(const PrintFont&) const = default;
};

/// A text on one line; y is its upper edge.
struct PlacedText {
  double x = 0;
  double y = 0;
  QString text;
  PrintFont font;
};

struct PlacedLine {
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
};

/// A picture (the bytes of a PNG file), scaled to this rectangle.
struct PlacedPicture {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  QByteArray png;
};

struct PrintedPage {
  std::vector<PlacedText> texts;
  std::vector<PlacedLine> lines;
  std::vector<PlacedPicture> pictures;
};

struct PaperSize {
  int width = 0;
  int height = 0;

  static constexpr PaperSize a4() { return {11906, 16838}; }
  constexpr PaperSize turned() const { return {height, width}; }
  constexpr bool isLandscape() const { return width > height; }
};

/// All pages of one print, with what a document knows of itself.
struct PrintDocument {
  QString title;
  QString author;
  PaperSize paper = PaperSize::a4();
  std::vector<PrintedPage> pages;
};
