#include "faults/FaultyProcess.h"

#include "support/SampleProject.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTimeLimit = 60000;

QString program(const QString& name) {
  return QCoreApplication::applicationDirPath() + u'/' + name;
}

}  // namespace

FaultyRun saveWithFault(Means means, const Fault& fault, const QString& folder, const QString& home,
                        const QStringList& arguments, const QString& name) {
  const QString counts = home + u"/count"_s;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(u"FAULT_BELOW"_s, folder);
  environment.insert(u"FAULT_COUNT"_s, counts);
  environment.insert(u"FAULT_AT"_s, QString::number(fault.at));
  environment.insert(u"FAULT_HOW"_s, fault.how);
  QStringList command{program(name), home};
  command += arguments;
  if (means == Means::Preloaded) {
    environment.insert(u"LD_PRELOAD"_s, program(u"libfaultycalls.so"_s));
  } else {
    command.prepend(program(u"fault_at_call"_s));
  }
  QProcess process;
  process.setProcessEnvironment(environment);
  process.start(command.first(), command.mid(1));
  EXPECT_TRUE(process.waitForFinished(kTimeLimit)) << process.errorString();
  return {process.exitStatus() == QProcess::CrashExit, process.exitCode(),
          QString::fromUtf8(process.readAllStandardOutput()), fileBytes(counts).toInt()};
}

QString whyNotTraced(const QString& how, const QString& home) {
  constexpr int kNotPermitted = 77;
  const FaultyRun run = saveWithFault(Means::Traced, {how}, {}, home, {});
  return run.status == kNotPermitted ? run.said : QString();
}

std::vector<int> faultPoints(int all, int sample) {
  std::vector<int> points(static_cast<size_t>(all));
  std::iota(points.begin(), points.end(), 1);
  if (qEnvironmentVariableIsSet("QUILLANE_ALL_FAULTS") || all <= sample + 2) {
    return points;
  }
  std::mt19937 random(1);
  for (size_t i = 1; i < static_cast<size_t>(sample); ++i) {
    std::swap(points[i], points[i + random() % (points.size() - 1 - i)]);
  }
  points[static_cast<size_t>(sample)] = all;
  points.resize(static_cast<size_t>(sample) + 1);
  return points;
}

QString quickFolder() {
  const QString inMemory = u"/dev/shm"_s;
  return QFileInfo(inMemory).isWritable() ? inMemory : QDir::tempPath();
}
