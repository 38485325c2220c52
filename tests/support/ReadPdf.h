#pragma once

#include "support/WaitFor.h"

#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

/// What one of the programs that read PDF files says; empty where it isn't there.
inline QString outputOf(const QString& program, const QStringList& arguments) {
  const QString path = QStandardPaths::findExecutable(program);
  if (path.isEmpty()) {
    return {};
  }
  QProcess process;
  process.start(path, arguments);
  EXPECT_TRUE(process.waitForFinished(kPatience));
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return QString::fromUtf8(process.readAllStandardOutput());
}
