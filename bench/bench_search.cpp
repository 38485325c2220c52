// A search through a large book in the main window, and a replacement in all of it, painted off the screen:
//     bench_search PROJECT.qn4
// The project is copied, and the copies are changed.
#include "BenchProgram.h"
#include "Paired.h"
#include "core/infra/Paths.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/Globals.h"
#include "core/model/StorySearch.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/GlobalReplace.h"
#include "core/text/Rtf.h"
#include "gui/shell/life/RegisterWindows.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/QtToolkit.h"
#include "gui/views/ListView.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QString kNowhere = u"qzxq"_s;
const QString kName = u"Pierre"_s;
const QString kOther = u"Pjotr"_s;

/// Nobody is there to press OK.
class QuietToolkit : public QtToolkit {
 public:
  Answer MsgBox(const QString& text, Buttons) override {
    told = text;
    return Answer::Ok;
  }
  QString told;
};

struct Bench {
  frmMain& main;
  QuietToolkit& screen;
  /// The folder of another copy of the book's texts.
  QString texts;
};

void copyFolder(const QString& from, const QString& to) {
  QDir().mkpath(to);
  QDirIterator walk(from, QDir::Files | QDir::NoDotAndDotDot);
  while (walk.hasNext()) {
    const QString file = walk.next();
    QFile::copy(file, to + u'/' + walk.fileName());
  }
}

std::vector<QString> plainTexts() {
  std::vector<QString> texts;
  for (const auto& scene : g_Project->Scenes) {
    texts.push_back(scene->ConvertedToBodyText());
  }
  return texts;
}

/// Beside `indexOf` over the texts at hand.
void searchForNothing(benchmark::State& state, Bench& bench) {
  const std::vector<QString> texts = plainTexts();
  ListView& chapters = bench.main.panes().chapters().listChapters();
  qsizetype found = 0;
  comparePaired(
      state, [] {},
      [&] {
        for (const QString& text : texts) {
          found += text.indexOf(kNowhere, 0, Qt::CaseInsensitive) + 1;
        }
      },
      [&] {
        chapters.SelectRow(0);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1000);
      },
      [&] { bench.main.menus().action(u"mnuUDW(1)"_s)->trigger(); });
  if (found != 0 || bench.screen.told != u"No match"_s) {
    state.SkipWithError("the search was none");
  }
}

/// The same with the case minded, which is looked for far faster, and without the window.
void searchMindingCase(benchmark::State& state, Bench&) {
  const std::vector<QString> texts = plainTexts();
  StorySearch search;
  search.setSearch(kNowhere, true);
  qsizetype found = 0;
  comparePaired(
      state, [] {},
      [&] {
        for (const QString& text : texts) {
          found += text.indexOf(kNowhere) + 1;
        }
      },
      [&] { search.restart(); }, [&] { found += search.FindNext() ? 1 : 0; });
  if (found != 0) {
    state.SkipWithError("the word is there");
  }
}

/// The files of the texts that hold the word.
QStringList filesWith(const QString& folder, const QString& word) {
  QStringList files;
  for (const auto& scene : g_Project->Scenes) {
    if (scene->ConvertedToBodyText().contains(word)) {
      files.append(folder + scene->RTFFilename());
    }
  }
  return files;
}

void replaceInFiles(const QStringList& files, const QString& find, const QString& with) {
  for (const QString& file : files) {
    QByteArray rtf;
    Files().LoadTextFile(file, rtf);
    RichText text = readRtf(rtf);
    text.replaceAll(find, with, Qt::CaseSensitive);
    Files().ReplaceFile(file, writeRtf(text), ReplacementFile::Durability::ContentOnDisk);
  }
}

/// There and back, beside the same with the files alone, as safely written.
void replaceEverywhere(benchmark::State& state, Bench& bench) {
  const QStringList files = filesWith(bench.texts, kName);
  std::pair limit{kName, kOther};
  std::pair work{kName, kOther};
  qint32 changed = 0;
  comparePaired(
      state, [] {},
      [&] {
        replaceInFiles(files, limit.first, limit.second);
        std::swap(limit.first, limit.second);
      },
      [] {},
      [&] {
        changed = GlobalReplace(work.first, work.second, true).run().scenes;
        std::swap(work.first, work.second);
      });
  state.counters["scenes"] = changed;
  if (changed < files.size()) {
    state.SkipWithError("not all was replaced");
  }
}

}  // namespace

int main(int argc, char** argv) {
  BenchProgram<QuietToolkit> program(argc, argv);
  const QString& project = program.book();
  if (project.isEmpty()) {
    return 1;
  }
  registerWindows();
  // On the disk of the project: in memory nothing would wait for it.
  const QTemporaryDir folder(Files().PathOnly(project) + u"bench_XXXXXX"_s);
  const QString copy = folder.filePath(u"book/"_s);
  copyFolder(Files().PathOnly(project), copy);
  copyFolder(Files().PathOnly(project) + u"RTF"_s, copy + u"RTF"_s);
  copyFolder(Files().PathOnly(project) + u"RTF"_s, folder.filePath(u"texts"_s));
  program.leaveSettings("BadWord1," + kNowhere.toLatin1() + "\r\n");
  {
    frmMain main(copy + Files().FileOnly(project));
    main.Form_Load();
    main.StopScanTimer();
    main.stopUpdateCheck();
    main.show();
    Bench bench{main, program.screen, folder.filePath(u"texts/"_s)};
    const auto add = [&](const char* name, void (*measured)(benchmark::State&, Bench&)) {
      return benchmark::RegisterBenchmark(name, [=, &bench](benchmark::State& state) { measured(state, bench); })
          ->UseManualTime()
          ->Unit(benchmark::kMillisecond);
    };
    add("SearchForNothing", searchForNothing)->MinTime(2);
    add("SearchMindingCase", searchMindingCase)->MinTime(1);
    add("ReplaceEverywhere", replaceEverywhere)->Iterations(4);
    benchmark::RunSpecifiedBenchmarks();
  }
}
