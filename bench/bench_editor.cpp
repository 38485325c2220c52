// The editor's window with a scene of 50,000 words, beside a bare text control of Qt's in a window of the same size
// with the same text; painted off the screen. Counters: "ratio" is how many times the control's time it takes; "texts"
// is what fifty steps of undo hold, as a multiple of the text's own size in memory.
#include "BenchProgram.h"
#include "Paired.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/Rtf.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/life/RegisterWindows.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/TextHistory.h"

#include <QKeyEvent>
#include <QRandomGenerator>
#include <QTest>

#include <functional>
#include <malloc.h>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWords = 50'000;

double heapInUse() {
  const struct mallinfo2 heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd);
}

/// Paragraphs of some sentences.
QString prose() {
  static const QStringList kSyllables{u"lo"_s, u"ra"_s, u"ten"_s, u"mi"_s, u"ves"_s, u"a"_s, u"hou"_s, u"ing"_s};
  QRandomGenerator random(1);
  QString text;
  for (int word = 1; word <= kWords; ++word) {
    for (int syllables = 1 + random.bounded(3); syllables > 0; --syllables) {
      text += kSyllables[random.bounded(static_cast<int>(kSyllables.size()))];
    }
    text += word % 60 == 0 ? u".\r\n"_s : word % 12 == 0 ? u". "_s : u" "_s;
  }
  return text;
}

void settle() {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QCoreApplication::processEvents();
}

void makeBook(const QString& text) {
  g_Project = std::make_unique<clsProject>();
  const auto chapter = std::make_shared<clsChapter>();
  g_Project->AddChapter(chapter);
  const auto scene = std::make_shared<clsScene>();
  g_Project->Addscene(scene);
  chapter->Addscene(scene);
  CharFormat format;
  format.fontName = u"Arial"_s;
  format.halfPoints = 20;
  scene->setTextRTF(writeRtf(RichText::fromPlain(text, format)));
}

/// The control lays out what isn't in view in idle moments; here at once.
void layOut(const QTextEdit& box) {
  settle();
  benchmark::DoNotOptimize(box.document()->size());
}

frmEditor* shownEditor() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (auto* const editor = dynamic_cast<frmEditor*>(window)) {
      return editor;
    }
  }
  return nullptr;
}

frmEditor* openEditor() {
  g_Project->SceneByID(1)->Edit();
  frmEditor* const editor = shownEditor();
  layOut(*editor->findChild<RichTextBox*>(u"txtMain"_s));
  return editor;
}

void closeEditor(frmEditor* editor) {
  editor->Finished();
  settle();
}

std::unique_ptr<QTextEdit> openBare(const QString& text, QSize size) {
  auto bare = std::make_unique<QTextEdit>();
  bare->setFont(QFont(u"Arial"_s, 10));
  bare->resize(size);
  bare->setPlainText(text);
  bare->show();
  layOut(*bare);
  return bare;
}

void press(QWidget& pane, const QString& letter) {
  QKeyEvent down(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, letter);
  QCoreApplication::sendEvent(&pane, &down);
  QKeyEvent up(QEvent::KeyRelease, Qt::Key_X, Qt::NoModifier, letter);
  QCoreApplication::sendEvent(&pane, &up);
  QCoreApplication::processEvents();
}

/// The editor, and the control beside it in the size of its pane.
struct Shown {
  explicit Shown(const QString& text) : editor(openEditor()), pane(*editor->findChild<RichTextBox*>(u"txtMain"_s)) {
    QTest::qWait(300);  // what the window does a moment after it has opened is no key's
    bare = openBare(text, pane.size());
    for (QTextEdit* const box : {static_cast<QTextEdit*>(&pane), bare.get()}) {
      box->activateWindow();
      box->setFocus();
      QTextCursor middle(box->document()->findBlockByNumber(box->document()->blockCount() / 2));
      middle.movePosition(QTextCursor::NextWord, QTextCursor::MoveAnchor, 20);
      box->setTextCursor(middle);
      settle();
    }
  }
  ~Shown() { closeEditor(editor); }

  frmEditor* editor;
  RichTextBox& pane;
  std::unique_ptr<QTextEdit> bare;
};

void key(benchmark::State& state, const QString& text) {
  Shown shown(text);
  const auto nothing = [] {};
  comparePaired(
      state, nothing, [&] { press(*shown.bare, u"x"_s); }, nothing, [&] { press(shown.pane, u"x"_s); });
}

void open(benchmark::State& state, const QString& text) {
  frmEditor* editor = openEditor();
  const QSize size = editor->findChild<RichTextBox*>(u"txtMain"_s)->size();
  std::unique_ptr<QTextEdit> bare;
  comparePaired(
      state, [&] { bare.reset(); }, [&] { bare = openBare(text, size); }, [&] { closeEditor(editor); },
      [&] { editor = openEditor(); });
  closeEditor(editor);
}

/// Waits until a text that can be written in has been painted, in whatever window comes.
class TextPainted : public QObject {
 public:
  TextPainted() { qApp->installEventFilter(this); }
  void wait() const {
    while (!isPainted_) {
      QCoreApplication::processEvents();
    }
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* const box = qobject_cast<QTextEdit*>(watched->parent());
    isPainted_ = isPainted_ || (event->type() == QEvent::Paint && box != nullptr && !box->document()->isEmpty());
    return false;
  }

 private:
  bool isPainted_ = false;
};

/// Until the text is there to be read.
void openPainted(benchmark::State& state, const QString& text) {
  frmEditor* editor = openEditor();
  const QSize size = editor->findChild<RichTextBox*>(u"txtMain"_s)->size();
  std::unique_ptr<QTextEdit> bare;
  comparePaired(
      state, [&] { bare.reset(); },
      [&] {
        const TextPainted painted;
        bare = std::make_unique<QTextEdit>();
        bare->setFont(QFont(u"Arial"_s, 10));
        bare->resize(size);
        bare->setPlainText(text);
        bare->show();
        painted.wait();
      },
      [&] { closeEditor(editor); },
      [&] {
        const TextPainted painted;
        g_Project->SceneByID(1)->Edit();
        painted.wait();
        editor = shownEditor();
      });
  closeEditor(editor);
}

void undo(benchmark::State& state, const QString& text) {
  Shown shown(text);
  comparePaired(
      state, [&] { press(*shown.bare, u"x"_s); },
      [&] {
        shown.bare->undo();
        settle();
      },
      [&] { press(shown.pane, u"x"_s); },
      [&] {
        shown.pane.findChild<TextHistory*>()->undo();
        settle();
      });
}

/// What fifty such changes take in memory.
void memory(benchmark::State& state, const QString& text, const std::function<void(RichTextBox&, int)>& change) {
  Shown shown(text);
  for (auto turn : state) {
    auto* const history = shown.pane.findChild<TextHistory*>();
    history->clear();
    for (int step = 0; step < static_cast<int>(TextHistory::kSteps); ++step) {
      change(shown.pane, step);
    }
    const RichText kept = shown.pane.richText();
    const double with = heapInUse();
    history->clear();
    state.counters["texts"] = (with - heapInUse()) / static_cast<double>(text.size() * 2);
  }
}

void addMemory(const char* name, const QString& text, std::function<void(RichTextBox&, int)> change) {
  benchmark::RegisterBenchmark(name, [=](benchmark::State& state) { memory(state, text, change); })
      ->Iterations(1)
      ->Unit(benchmark::kMillisecond);
}

void addAll(const QString& text) {
  const auto add = [&](const char* name, void (*measured)(benchmark::State&, const QString&)) {
    return benchmark::RegisterBenchmark(name, [=](benchmark::State& state) { measured(state, text); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  };
  add("Key", key)->Iterations(400);
  add("Undo", undo)->Iterations(200);
  add("Open", open)->Iterations(15);
  add("OpenPainted", openPainted)->Iterations(15);
  addMemory("Memory/letters", text, [](RichTextBox& pane, int step) {
    pane.setSelStart(step * 1000);
    press(pane, u"x"_s);
  });
  addMemory("Memory/bold_whole_text", text, [](RichTextBox& pane, int step) {
    pane.selectAll();
    pane.setSelBold(step % 2 == 0);
  });
  addMemory("Memory/cut_and_put_back", text, [](RichTextBox& pane, int step) {
    static RichText all;
    pane.selectAll();
    all = step % 2 == 0 ? pane.richText() : all;
    pane.setSelRichText(step % 2 == 0 ? RichText::fromPlain(u"-") : all);
  });
  addMemory("Memory/replace_all", text, [](RichTextBox& pane, int step) {
    pane.replaceAll(step % 2 == 0 ? u"raten"_s : u"Anna"_s, step % 2 == 0 ? u"Anna"_s : u"raten"_s, Qt::CaseSensitive);
  });
}

}  // namespace

int main(int argc, char** argv) {
  const BenchProgram program(argc, argv);
  registerWindows();
  const QString text = prose();
  makeBook(text);
  addAll(text);
  benchmark::RunSpecifiedBenchmarks();
}
