#pragma once

#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/toolkit/QtToolkit.h"
#include "support/TestHome.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <benchmark/benchmark.h>
#include <memory>

/// What a benchmark of windows stands on: an application without a screen, a home of its own, and who answers for the
/// person at the screen. The open book goes when it does.
template <class Screen = QtToolkit>
class BenchProgram {
 public:
  BenchProgram(int argc, char** argv) : argc_(argc), application_(argc_, argv) {
    benchmark::Initialize(&argc_, argv);
    book_ = argc_ == 2 ? QDir(QString::fromLocal8Bit(argv[1])).absolutePath() : QString();
    installToolkit(&screen);
  }
  ~BenchProgram() {
    g_Project = std::make_unique<clsProject>();
    installToolkit(nullptr);
  }
  BenchProgram(const BenchProgram&) = delete;
  BenchProgram& operator=(const BenchProgram&) = delete;

  /// The project file that the command line names; empty when it names none or more than one.
  const QString& book() const { return book_; }

  /// Settings that are there already, so that nobody is greeted.
  static void leaveSettings(const QByteArray& lines = QByteArray()) {
    QFile settings(Paths::programFolder() + QStringLiteral("Quillane4.ini"));
    if (settings.open(QIODevice::WriteOnly)) {
      settings.write("LANGID,English\r\n" + lines);
    }
  }

 private:
  bool withoutScreen_ = qputenv("QT_QPA_PLATFORM", "offscreen");
  int argc_;
  QApplication application_;
  TestHome home_;
  QString book_;

 public:
  Screen screen;
};
