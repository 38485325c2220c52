// A project loaded and saved by the core, beside reading and writing the same files:
//     bench_project PROJECT.qn4 [PROJECT.qn4 ...]
// Loads take the projects where they stand; saves write them back, unchanged.
#include "Paired.h"
#include "core/infra/FileChannels.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/persist/BookFont.h"
#include "core/text/Rtf.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QStringList>
#include <QTemporaryDir>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

QStringList filesOf(const QString& project) {
  QStringList files{project};
  QDirIterator walk(Files().PathOnly(project) + u"RTF"_s, QDir::Files);
  while (walk.hasNext()) {
    files.append(walk.next());
  }
  files.sort();
  return files;
}

void freshProject() {
  g_Project = std::make_unique<clsProject>();
  initChangeTables();
}

void load(benchmark::State& state, const QString& project) {
  const QStringList files = filesOf(project);
  std::vector<QByteArray> held;
  comparePaired(
      state, [&] { held = {}; },
      [&] {
        held.reserve(static_cast<size_t>(files.size()));
        for (const QString& file : files) {
          QByteArray bytes;
          Files().LoadTextFile(file, bytes);
          held.push_back(std::move(bytes));
        }
      },
      [&] {
        held = {};
        freshProject();
      },
      [&] {
        if (!g_Project->Load(project, false)) {
          state.SkipWithError("the project does not load");
        }
      });
  const qint32 scenes = g_Project->SceneCount();
  state.counters["scenes"] = scenes;
  state.counters["time_per_scene"] =
      benchmark::Counter(static_cast<double>(scenes) * static_cast<double>(state.iterations()),
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void writeFile(const QString& path, const QByteArray& bytes, bool toDisk) {
  Files().EraseFile(path);
  const int file = Files().CreateOutputFile(path);
  Channels().Print(file, bytes);
  if (toDisk) {
    Channels().CloseToDisk(file);
  } else {
    Channels().Close(file);
  }
}

/// The limit waits for the disk as the save does.
void save(benchmark::State& state, const QString& project) {
  freshProject();
  g_Project->Load(project, false);
  QByteArray bytes;
  Files().LoadTextFile(project, bytes);
  comparePaired(
      state, [] {}, [&] { writeFile(project, bytes, true); }, [] {}, [&] { g_Project->SaveQN4(false); });
}

/// With the plain-text mirrors beside one without; nothing has changed.
void saveMirrored(benchmark::State& state, const QString& project) {
  freshProject();
  g_Project->Load(project, false);
  const auto save = [](bool mirrored) {
    Settings().sSet(u"CreateTextToo"_s, mirrored);
    g_Project->SaveQN4(false);
  };
  save(true);
  comparePaired(
      state, [] {}, [&] { save(false); }, [] {}, [&] { save(true); });
  Settings().sSet(u"CreateTextToo"_s, false);
  QDir(Files().PathOnly(project) + u"Data"_s).removeRecursively();
}

/// What is written, without the disk: the text of the whole project beside a copy of its bytes.
void composeText(benchmark::State& state, const QString& project) {
  freshProject();
  g_Project->Load(project, false);
  QByteArray bytes;
  Files().LoadTextFile(project, bytes);
  const QString elsewhere = QDir::tempPath() + u"/bench_project.tmp"_s;
  comparePaired(
      state, [] {}, [&] { writeFile(elsewhere, bytes, false); }, [] {},
      [&] {
        const int file = Files().CreateOutputFile(elsewhere);
        QByteArray head;
        g_Project->DataAsXML(head);
        Channels().PrintLine(file, QByteArrayView(head));
        g_Project->Locations.WriteXML(file);
        g_Project->Items.WriteXML(file);
        g_Project->Chars.WriteXML(file);
        g_Project->Notes.WriteXML(file);
        g_Project->Scenes.WriteXML(file, false);
        g_Project->Chapters.WriteXML(file);
        Channels().Close(file);
      });
  Files().EraseFile(elsewhere);
}

/// A copy of a project in a folder of its own; its project file.
QString copyOf(const QString& project, const QTemporaryDir& folder) {
  const QString copy = folder.filePath(Files().FileOnly(project));
  Files().CopyFile(project, copy);
  Files().CopyFolder(Files().PathOnly(project) + u"RTF"_s, folder.filePath(u"RTF"_s));
  return copy;
}

/// Another font for every text, beside reading, changing and writing the same ones in a loop that waits for the disk.
void setFont(benchmark::State& state, const QString& project) {
  const QTemporaryDir here;
  const QTemporaryDir there;
  const QString name = copyOf(project, here);
  QStringList files = filesOf(copyOf(project, there));
  files.removeIf([](const QString& file) { return !file.endsWith(u".rtf"); });
  freshProject();
  g_Project->Load(name, false);
  int turn = 0;
  QString font;
  comparePaired(
      state, [&] { font = ++turn % 2 == 0 ? u"Arial"_s : u"Georgia"_s; },
      [&] {
        for (const QString& file : files) {
          QByteArray bytes;
          Files().LoadTextFile(file, bytes);
          RichText text = readRtf(bytes);
          text.formatCharacters(0, -1, [&](CharFormat& format) {
            format.fontName = font;
            format.halfPoints = 24;
          });
          writeFile(file, writeRtf(text), true);
        }
      },
      [] {},
      [&] {
        const bool mayBegin = BookFont::mayBegin();
        const BookFont::Outcome outcome = BookFont(font, 12).apply([](qint32) { return true; });
        if (!mayBegin || outcome.done != files.size()) {
          state.SkipWithError("the font could not be set");
        }
      });
  freshProject();
}

void add(const char* name, void (*measured)(benchmark::State&, const QString&), const QString& project) {
  benchmark::RegisterBenchmark((std::string(name) + '/' + Files().FileOnly(project).toStdString()).c_str(),
                               [=](benchmark::State& state) { measured(state, project); })
      ->UseManualTime()
      ->MinTime(2)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  Logging().OverrideLogFilename(QDir::tempPath() + u"/bench_project.log"_s);
  benchmark::Initialize(&argc, argv);
  for (int i = 1; i < argc; ++i) {
    const QString project = QDir(QString::fromLocal8Bit(argv[i])).absolutePath();
    add("Load", load, project);
    add("Save", save, project);
    add("SaveMirrored", saveMirrored, project);
    add("SaveTextOnly", composeText, project);
    add("SetFont", setFont, project);
  }
  benchmark::RunSpecifiedBenchmarks();
}
