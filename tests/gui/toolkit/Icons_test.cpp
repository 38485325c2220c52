#include "gui/toolkit/Icons.h"

#include <QImage>
#include <QPixmap>

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace {

constexpr const char* kKeys[] = {"chapter", "chapterunused", "scene",     "sceneunused", "edit",     "note",
                                 "notes",   "goal",          "viewpoint", "character",   "location", "item",
                                 "bold",    "italic",        "underline", "quillane",    "file"};

/// Part of the picture that is painted, from 0 to 1.
double coverage(const char* key, int size) {
  const QImage picture = icon(key).pixmap(QSize(size, size), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
  int painted = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      painted += qAlpha(picture.pixel(x, y)) > 127 ? 1 : 0;
    }
  }
  return picture.isNull() ? 0 : static_cast<double>(painted) / (size * size);
}

/// Contrast of the picture's strongest pixels with a background, as legibility is measured on the web.
double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double bestContrast(const char* key, const QColor& background) {
  const QImage picture = icon(key).pixmap(QSize(32, 32), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
  double best = 1;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (qAlpha(picture.pixel(x, y)) > 240) {
        const double a = luminance(QColor(picture.pixel(x, y))) + 0.05;
        const double b = luminance(background) + 0.05;
        best = std::max({best, a / b, b / a});
      }
    }
  }
  return best;
}

TEST(Icons, EveryKeyHasAPictureAtEverySizeThatListsAndMenusUse) {
  for (const char* key : kKeys) {
    for (const int size : {16, 24, 64}) {
      EXPECT_GT(coverage(key, size), 0.05) << key << " at " << size;
    }
  }
}

TEST(Icons, AreVisibleOnLightAndDarkWindows) {
  for (const char* key : kKeys) {
    EXPECT_GT(bestContrast(key, Qt::white), 2.9) << key;
    EXPECT_GT(bestContrast(key, QColor(0x2b, 0x2b, 0x2b)), 2.9) << key;
  }
}

TEST(Icons, AreKeptAndAnUnknownKeyHasNone) {
  EXPECT_EQ(icon("scene").cacheKey(), icon("scene").cacheKey());
  EXPECT_TRUE(icon("no such icon").isNull());
}

}  // namespace
