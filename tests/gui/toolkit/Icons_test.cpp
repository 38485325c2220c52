#include "gui/toolkit/Icons.h"

#include "gui/toolkit/Colours.h"

#include <QImage>
#include <QPixmap>

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace {

constexpr const char* kKeys[] = {"chapter", "chapterunused", "scene",     "sceneunused", "edit",     "note",
                                 "notes",   "goal",          "viewpoint", "character",   "location", "item",
                                 "bold",    "italic",        "underline", "quillane",    "file"};

/// Of the strongest pixels of the picture.
double bestContrast(const char* key, int size, const QColor& background) {
  const QImage picture = icon(key).pixmap(QSize(size, size), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
  double best = 1;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (qAlpha(picture.pixel(x, y)) > 240) {
        best = std::max(best, Colours::contrast(QColor(picture.pixel(x, y)), background));
      }
    }
  }
  return best;
}

TEST(Icons, OfEveryKeyAreVisibleOnLightAndDarkWindows) {
  for (const char* key : kKeys) {
    for (const QColor& window : {QColor(Qt::white), QColor(0x2b2b2b), QColor(0x1e1e1e)}) {
      for (const int size : {16, 24, 64}) {
        EXPECT_GT(bestContrast(key, size, window), 2.9) << key << " at " << size << " on " << window.name();
      }
    }
  }
}

TEST(Icons, AreKeptAndAnUnknownKeyHasNone) {
  EXPECT_EQ(icon("scene").cacheKey(), icon("scene").cacheKey());
  EXPECT_TRUE(icon("no such icon").isNull());
}

}  // namespace
