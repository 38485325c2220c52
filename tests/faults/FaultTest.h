#pragma once

#include "faults/BookAge.h"
#include "faults/FaultyProcess.h"

#include <QMap>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A book on disk, and processes of their own that save it, each from a fresh copy.
class FaultTest : public ::testing::Test {
 protected:
  void SetUp() override;

  /// Saves a fresh copy of the book with a fault. `what` is what save_a_book is told to do with it.
  FaultyRun save(Means means, const Fault& fault, const QString& what);
  /// Saves without a fault: what is on the disk then is the new book. The number of calls.
  int saveWhole(Means means, const QString& how, const QString& what);
  /// The age of the book in this folder, which opens without a word and has lost nothing; else this test fails.
  Age openedIn(const QString& folder, const QString& when);

  QString bookFolder() const { return scratch_.filePath(QStringLiteral("book")); }
  /// What the folder held when the first save of a process had failed.
  QString snapshotFolder() const { return scratch_.filePath(QStringLiteral("snapshot")); }
  QString home() const { return scratch_.filePath(QStringLiteral("home")); }

  BookContent before_;
  BookContent after_;

 private:
  void layOut() const;

  QTemporaryDir scratch_{quickFolder() + QStringLiteral("/quillane-faults-XXXXXX")};
  QMap<QString, QByteArray> book_;
};
