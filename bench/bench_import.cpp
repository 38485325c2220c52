// A manuscript cut into chapters and scenes, and imported to the disk, beside reading the same file and writing what
// was read:
//     bench_import FOLDER
// 5 MB of War and Peace as text, RTF and HTML; the projects are made in the folder.
#include "Paired.h"
#include "Yardsticks.h"
#include "core/exchange/Manuscript.h"
#include "core/exchange/WorkImport.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/text/Rtf.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

struct Book {
  QString file;
  Manuscript::Kind kind;
};

/// Every seventh paragraph has a word in italics.
QString asHtml(const QString& text) {
  QString html = u"<html><head><title>t</title></head><body>\n"_s;
  qsizetype number = 0;
  for (const QString& line : text.split(u'\n')) {
    const bool slanted = ++number % 7 == 0;
    html += u"<p class=\"text\">"_s + (slanted ? u"<i>So</i> "_s : QString()) + line.toHtmlEscaped() + u"</p>\n"_s;
  }
  return html + u"</body></html>"_s;
}

/// 5 MB of the novel, whose chapters have headings; breaks between scenes are put in.
QString manuscript(QString novel) {
  constexpr qsizetype kSize = 5 << 20;
  constexpr int kLinesAScene = 40;
  novel += QString(novel);
  novel.remove(u'\r').truncate(kSize);
  QString text;
  int number = 0;
  for (const QStringView line : QStringView(novel).split(u'\n')) {
    text.append(++number % kLinesAScene == 0 ? u"* * *\n"_s : QString()).append(line).append(u'\n');
  }
  return text;
}

QByteArray readAndWrite(const Book& book) {
  const QByteArray bytes = Manuscript::bytesOf(book.file);
  // Of HTML its source is the text: there is no cheaper reading.
  const auto kind = book.kind == Manuscript::Kind::Html ? Manuscript::Kind::Text : book.kind;
  return writeRtf(Manuscript::read(bytes, kind));
}

WorkImport cut(const Book& book) {
  return WorkImport::cut(Manuscript::read(Manuscript::bytesOf(book.file), book.kind)).value();
}

/// Without writing.
void cutIt(benchmark::State& state, const Book& book) {
  qsizetype written = 0;
  qint32 scenes = 0;
  comparePaired(
      state, [] {}, [&] { written += readAndWrite(book).size(); }, [] {}, [&] { scenes = cut(book).scenes; });
  state.counters["scenes"] = scenes;
  if (scenes < 300 || written == 0) {
    state.SkipWithError("the book was not cut");
  }
}

/// To the disk, beside the same bytes written to as many files as safely.
void import(benchmark::State& state, const Book& book) {
  const QTemporaryDir folder(Files().PathOnly(book.file) + u"bench_XXXXXX"_s);
  int turn = 0;
  QString place;
  const auto nextPlace = [&] {
    place = folder.filePath(QString::number(++turn)) + u'/';
    Files().MkMissingDir(place);
  };
  const qint32 scenes = cut(book).scenes;
  comparePaired(
      state, nextPlace,
      [&] {
        const QByteArray rtf = readAndWrite(book);
        const qsizetype part = rtf.size() / scenes;
        for (qint32 i = 0; i < scenes; ++i) {
          Files().ReplaceFile(place + QString::number(i), QByteArrayView(rtf).sliced(i * part, part),
                              ReplacementFile::Durability::ContentOnDisk);
        }
      },
      [&] {
        nextPlace();
        g_Project = std::make_unique<clsProject>();
        initChangeTables();
        g_Project->FileWithPath = place + u"Book.qn4"_s;
      },
      [&] {
        cut(book).fill(*g_Project);
        if (!g_Project->SaveQN4(false)) {
          state.SkipWithError("the project was not saved");
        }
      });
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  Logging().OverrideLogFilename(QDir::tempPath() + u"/bench_import.log"_s);
  benchmark::Initialize(&argc, argv);
  QString novel = sharedNovel();
  if (argc != 2 || novel.isEmpty()) {
    return 1;
  }
  novel = manuscript(novel);
  const QTemporaryDir folder(QDir(QString::fromLocal8Bit(argv[1])).absoluteFilePath(u"import_XXXXXX"_s));
  const auto place = [&](const QString& name) { return folder.filePath(name); };
  Files().WriteTextFile(place(u"book.txt"_s), QByteArrayView(novel.toUtf8()));
  Files().WriteTextFile(place(u"book.html"_s), QByteArrayView(asHtml(novel).toUtf8()));
  Files().WriteTextFile(place(u"book.rtf"_s), QByteArrayView(writeRtf(RichText::fromPlain(novel))));
  const std::pair<const char*, Book> books[] = {{"text", {place(u"book.txt"_s), Manuscript::Kind::Text}},
                                                {"RTF", {place(u"book.rtf"_s), Manuscript::Kind::Rtf}},
                                                {"HTML", {place(u"book.html"_s), Manuscript::Kind::Html}}};
  for (const auto& [name, book] : books) {
    for (const auto& [what, measured] : {std::pair{"Cut/", &cutIt}, std::pair{"Import/", &import}}) {
      benchmark::RegisterBenchmark((std::string(what) + name).c_str(),
                                   [measured, book](benchmark::State& state) { measured(state, book); })
          ->UseManualTime()
          ->MinTime(1)
          ->Unit(benchmark::kMillisecond);
    }
  }
  benchmark::RunSpecifiedBenchmarks();
  g_Project = std::make_unique<clsProject>();
}
