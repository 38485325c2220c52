// The exports that write one text, to the file on the disk, beside converting the same scenes and writing the same
// bytes:
//     bench_export PROJECT.qn4 [PROJECT.qn4 ...]
// "ratio" is how many times that an export takes; the goal is 1.5.
#include "Paired.h"
#include "core/exchange/DescriptionExport.h"
#include "core/exchange/HtmlExport.h"
#include "core/exchange/NanoExport.h"
#include "core/exchange/OutlineExport.h"
#include "core/exchange/RtfExport.h"
#include "core/exchange/TextExport.h"
#include "core/infra/FileChannels.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/Rtf.h"
#include "core/text/mSHAREDRtf2Html3.h"

#include <QCoreApplication>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

using Content = QByteArray (*)();
using Conversion = void (*)(const QByteArray& rtf);

const ExportStep kNoStep = [](qint32) {};

QByteArray text() {
  return CombineFiles({}, kNoStep);
}
QByteArray rtf() {
  return ExportToRTF({}, kNoStep);
}
QByteArray html() {
  return ExportToHTML({{}, false}, kNoStep);
}
QByteArray nano() {
  return ExportToNano(false, kNoStep);
}
QByteArray outline() {
  return ExportOutline(kNoStep);
}
QByteArray descriptions() {
  return ExportDescriptionsByChapter(1, g_Project->ChapterCount(), kNoStep);
}

void toPlain(const QByteArray& rtf) {
  benchmark::DoNotOptimize(rtfToPlainText(rtf));
}
void toRtf(const QByteArray& rtf) {
  benchmark::DoNotOptimize(writeRtf(readRtf(rtf)));
}
void toHtml(const QByteArray& rtf) {
  benchmark::DoNotOptimize(Rtf2Html(rtf, u"+CR+U"));
}
void notAtAll(const QByteArray&) {}

/// As it is after it was opened: no text was converted yet.
void open(const QString& project) {
  g_Project = std::make_unique<clsProject>();
  initChangeTables();
  g_Project->Load(project, false);
}

void write(const QString& path, const QByteArray& bytes) {
  Files().EraseFile(path);
  const int file = Files().CreateOutputFile(path);
  Channels().Print(file, bytes);
  Channels().CloseToDisk(file);
}

void measure(benchmark::State& state, const QString& project, Content content, Conversion conversion) {
  const QTemporaryDir folder(QCoreApplication::applicationDirPath() + u"/export-XXXXXX"_s);
  const QString path = folder.filePath(u"Exported"_s);
  open(project);
  const QByteArray bytes = content();
  comparePaired(
      state, [] {},
      [&] {
        for (const auto& scene : g_Project->Scenes) {
          conversion(scene->TextRTF());
        }
        write(path, bytes);
      },
      [&] { open(project); },
      [&] { Files().ReplaceFile(path, content(), ReplacementFile::Durability::ContentOnDisk); });
  state.counters["MB"] = static_cast<double>(bytes.size()) / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  const struct {
    const char* name;
    Content content;
    Conversion conversion;
  } exports[] = {{"text", text, toPlain},        {"RTF", rtf, toRtf},
                 {"HTML", html, toHtml},         {"obfuscated", nano, toPlain},
                 {"outline", outline, notAtAll}, {"descriptions", descriptions, notAtAll}};
  for (int i = 1; i < argc; ++i) {
    const QString project = QString::fromLocal8Bit(argv[i]);
    for (const auto& one : exports) {
      benchmark::RegisterBenchmark(
          (one.name + (u'/' + Files().FileOnly(project)).toStdString()).c_str(),
          [=](benchmark::State& state) { measure(state, project, one.content, one.conversion); })
          ->UseManualTime()
          ->Unit(benchmark::kMillisecond);
    }
  }
  benchmark::RunSpecifiedBenchmarks();
}
