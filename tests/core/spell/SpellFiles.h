#pragma once

#include "core/infra/Paths.h"
#include "support/TestHome.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include <gtest/gtest.h>

inline void put(const QString& path, const QByteArray& bytes) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ASSERT_EQ(file.write(bytes), bytes.size());
}

inline QByteArray contentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

/// A program's folder of its own for one test, with room beside it.
class ProgramFolder {
 public:
  ProgramFolder() : former_(Paths::programFolder()) {
    QDir(scratch_.path()).mkdir(QStringLiteral("bin"));
    Paths::overrideFolders(path({}));
  }
  ~ProgramFolder() { Paths::overrideFolders(former_); }
  ProgramFolder(const ProgramFolder&) = delete;
  ProgramFolder& operator=(const ProgramFolder&) = delete;

  QString path(const QString& name) const { return scratch_.path(QStringLiteral("bin/") + name); }

 private:
  ScratchFolder scratch_;
  QString former_;
};
