// A check of a scene's spelling with the names of forty characters, shown in the editor's text, beside setting the same
// colours once in a plain text field; both off the screen.
#include "Paired.h"
#include "Yardsticks.h"
#include "core/infra/cSharedLogging.h"
#include "core/spell/cSharedSpell.h"
#include "gui/editor/TextMarkLayer.h"
#include "gui/toolkit/RichTextBox.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(900, 500);
constexpr qsizetype kNames = 40;

/// So many words of the novel, in its paragraphs.
QString wordsOfNovel(qsizetype words) {
  const QString novel = sharedNovel().replace(u"\r\n"_s, u"\n"_s).replace(u"\n\n"_s, u"\r"_s).replace(u'\n', u' ');
  const QString text =
      novel.isEmpty() ? u"“Well,” said he, it was Julyy, “don’t wait, Anna.”\r"_s.repeated(6000) : novel;
  qsizetype at = 0;
  while (words-- > 0 && at >= 0) {
    at = text.indexOf(u' ', at + 1);
  }
  return text.left(at).replace(u'\r', u"\r\n"_s);
}

QStringList namesIn(const QString& text) {
  QStringList names;
  for (const QString& word : text.simplified().split(u' ')) {
    if (names.size() < kNames && word.size() > 3 && word.front().isUpper() && !names.contains(word)) {
      names.append(word);
    }
  }
  return names;
}

void colour(QTextEdit& plain, const TextMarks& marks) {
  QTextCursor cursor(plain.document());
  cursor.beginEditBlock();
  QTextCharFormat format;
  for (const TextMark& mark : marks) {
    cursor.setPosition(static_cast<int>(mark.start));
    cursor.setPosition(static_cast<int>(mark.end()), QTextCursor::KeepAnchor);
    format.setForeground(mark.kind == TextMark::Kind::Name ? Qt::blue : Qt::darkRed);
    cursor.mergeCharFormat(format);
  }
  cursor.endEditBlock();
}

void show(QTextEdit& box) {
  box.resize(kSize);
  box.show();
  QApplication::processEvents();
}

void check(benchmark::State& state, qsizetype words) {
  const QString text = wordsOfNovel(words);
  const QStringList names = namesIn(text);
  RichTextBox box;
  box.setRichText(RichText::fromPlain(text));
  TextMarkLayer layer(box);
  show(box);
  QTextEdit plain;
  plain.setPlainText(QString(text).remove(u'\r'));
  show(plain);
  const QString inPlain = plain.toPlainText();
  const TextMarks told = laidOver(Spell().Misspellings(inPlain), findNames(inPlain, names));
  comparePaired(
      state,
      [&] {
        plain.selectAll();
        plain.setCurrentCharFormat({});
        plain.moveCursor(QTextCursor::Start);
        QApplication::processEvents();
      },
      [&] {
        colour(plain, told);
        QApplication::processEvents();
      },
      [&] {
        layer.clear();
        QApplication::processEvents();
      },
      [&] {
        {
          const TextMarkLayer::Together together(layer);
          layer.setMarks(TextMark::Kind::Misspelling, Spell().Misspellings(box.Text()));
          layer.setMarks(TextMark::Kind::Name, findNames(box.Text(), names));
        }
        QApplication::processEvents();
      });
  state.counters["marks"] = static_cast<double>(told.size());
}

void checkScene(benchmark::State& state) {
  constexpr qsizetype kWords = 5000;
  check(state, kWords);
}

void checkLongScene(benchmark::State& state) {
  constexpr qsizetype kWords = 50'000;
  check(state, kWords);
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  Logging().NOLOGGING = true;
  benchmark::RegisterBenchmark("CheckScene", checkScene)->UseManualTime()->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("CheckLongScene", checkLongScene)->UseManualTime()->Unit(benchmark::kMillisecond);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
