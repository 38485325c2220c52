// A thousand commands, drags and edits in the real main window, and again with other seeds. After each of them the book
// is what a plain record of them says, and the lists, the display and the total show that.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/CastSteps.h"
#include "gui/shell/SearchSteps.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/ModalHelper.h"
#include "support/Required.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using IDs = ShadowBook::IDs;

IDs sorted(IDs ids) {
  std::sort(ids.begin(), ids.end());
  return ids;
}

/// The lines that only one of the two has; empty where they are the same.
std::string difference(const QStringList& shown, const QStringList& told) {
  QStringList found;
  for (const auto& [lines, others, whose] : {std::tuple{&shown, &told, u"is:   "_s}, {&told, &shown, u"told: "_s}}) {
    for (const QString& line : *lines) {
      found += others->contains(line) ? QStringList() : QStringList(whose + line);
    }
  }
  return (found.isEmpty() && shown != told ? u"another order"_s : found.join(u'\n')).toStdString();
}

/// Tag, cells with the colours of those that have one, and what the row says of itself.
QStringList shownRows(ListView& list) {
  QStringList rows;
  for (int row = 0; row < list.rowCount(); ++row) {
    QStringList fields{QString::number(list.tagAt(row))};
    for (int column = 0; column < list.model()->columnCount(); ++column) {
      const QVariant colour = list.model()->index(row, column).data(Qt::ForegroundRole);
      fields += list.text(row, column) + (colour.isValid() ? u' ' + colour.value<QBrush>().color().name() : QString());
    }
    fields += list.model()->index(row, 0).data(ListModel::kStatesRole).toString();
    rows += fields.join(u" | "_s);
  }
  return rows;
}

}  // namespace

class RandomWalkTest : public CastSteps, public SearchSteps, public ::testing::WithParamInterface<unsigned> {
 protected:
  void SetUp() override {
    WalkedBook::SetUp();
    random_.seed(GetParam());
    path_ = smallProject();
    startWith(path_);
    for (int i = 4; i <= 7; ++i) {
      const auto chapter = std::make_shared<clsChapter>();
      chapter->Title = u"Chapter %1"_s.arg(i);
      g_Project->AddChapter(chapter);
      for (int j = 0; j < i; ++j) {
        addScene(*chapterAt(i / 2));
      }
    }
    g_Project->SaveQN4(false);
    window().RefreshAll();
    book_ = ShadowBook::of(*g_Project);
  }

  void walk(int steps) {
    using Step = std::pair<const char*, void (RandomWalkTest::*)()>;
    const std::vector<Step> table{{"look around", &RandomWalkTest::lookAround},
                                  {"drag scenes", &RandomWalkTest::dragScenes},
                                  {"drag scenes", &RandomWalkTest::dragScenes},
                                  {"drag chapters", &RandomWalkTest::dragChapters},
                                  {"drag cast", &RandomWalkTest::dragCast},
                                  {"drag cast", &RandomWalkTest::dragCast},
                                  {"move rows", &RandomWalkTest::moveRows},
                                  {"move rows", &RandomWalkTest::moveRows},
                                  {"mark", &RandomWalkTest::mark},
                                  {"mark", &RandomWalkTest::mark},
                                  {"add to a scene", &RandomWalkTest::addCast},
                                  {"take out of a scene", &RandomWalkTest::takeCastOut},
                                  {"manage the cast", &RandomWalkTest::manageCast},
                                  {"write", &RandomWalkTest::write},
                                  {"change from outside", &RandomWalkTest::outside},
                                  {"add, edit or remove", &RandomWalkTest::addOrRemove},
                                  {"find", &RandomWalkTest::find},
                                  {"replace", &RandomWalkTest::replace},
                                  {"create many or renumber", &RandomWalkTest::createManyOrRenumber}};
    for (int step = 0; step < steps && !HasFailure(); ++step) {
      const auto& [what, take] = table.at(static_cast<size_t>(below(std::ssize(table))));
      SCOPED_TRACE("seed " + std::to_string(GetParam()) + ", step " + std::to_string(step) + ": " + what);
      (this->*take)();
      check();
      if (oneIn(100)) {
        openAgain();
        check();
      }
    }
  }

  void openAgain() {
    closeEditor(false);
    trigger("mnuSaveProj");
    trigger("mnuCloseProject");
    EXPECT_EQ(chapters().rowCount() + scenes().rowCount(), 0);
    if (oneIn(2)) {
      trigger("mnuRecent(1)");
    } else {
      toolkit.expectFile(path_);
      trigger("mnuLoadProj");
    }
  }

  void check() {
    const ShadowBook real = ShadowBook::of(*g_Project);
    for (auto scene = book_.scenes.begin(); scene != book_.scenes.end(); ++scene) {
      // A file gets its name when the program wants it, once.
      scene->file = scene->file.isEmpty() ? real.scenes.value(scene.key()).file : scene->file;
    }
    ASSERT_EQ(difference(real.told(), book_.told()), "");
    for (const auto& chapter : g_Project->Chapters) {
      for (const qint32 id : chapter->SceneIDs()) {
        EXPECT_EQ(g_Project->SceneByID(id)->BelongsToChID, chapter->ID()) << "scene " << id;
      }
    }
    const qint32 chapter = chapters().SelectedTag();
    const qint32 scene = scenes().SelectedTag();
    ASSERT_EQ(chapter == 0, book_.order.isEmpty());
    ASSERT_EQ(scene == 0, book_.chapters.value(chapter).scenes.isEmpty());
    EXPECT_EQ(difference(shownRows(chapters()), book_.chapterRows()), "");
    EXPECT_EQ(difference(shownRows(scenes()), book_.sceneRows(chapter)), "");
    EXPECT_EQ(panel("Totalwords"), u"Total words: "_s + QLocale().toString(book_.words()));
    EXPECT_TRUE(memo("txtChapterDesc").startsWith(book_.chapters.value(chapter).title));
    checkDisplay(scene);
  }

 private:
  std::shared_ptr<clsScene> addScene(clsChapter& chapter) {
    const auto scene = std::make_shared<clsScene>();
    scene->Title = u"Scene "_s + someWords();
    scene->setTextRTF(simpleRtf(someWords().toLatin1()));
    g_Project->Addscene(scene);
    chapter.Addscene(scene);
    scene->Save();
    return scene;
  }

  void checkDisplay(qint32 id) {
    const ShadowBook::Scene scene = book_.scenes.value(id);
    const bool empty = id != 0 && scene.text.trimmed().isEmpty();
    EXPECT_EQ(control<QLineEdit>("txtSceneTitle").text(), scene.title);
    EXPECT_EQ(control<RichTextBox>("txtBody").toPlainText(), empty ? u"This scene has no content"_s : scene.text);
    EXPECT_EQ(memo("txtNotes"), scene.notes);
    for (size_t kind = 0; kind < kCast.size(); ++kind) {
      EXPECT_EQ(list(kCast.at(kind)).rows().tags(), scene.cast.at(kind));
      EXPECT_EQ(sorted(list(kAllCast.at(kind)).rows().tags()), id == 0 ? IDs() : book_.names.at(kind).keys());
      for (ListView* const view : {&list(kCast.at(kind)), &list(kAllCast.at(kind))}) {
        for (int row = 0; row < view->rowCount(); ++row) {
          EXPECT_EQ(view->text(row, 0), book_.names.at(kind).value(view->tagAt(row)));
        }
      }
    }
  }

  // What can happen.

  void lookAround() {
    constexpr std::array kKeys{Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown};
    ListView& view = oneIn(3) ? chapters() : scenes();
    switch (below(4)) {
      case 0:
        control<QTabWidget>("TabStrip1").setCurrentIndex(below(7));
        break;
      case 1:
        press(view, kKeys.at(static_cast<size_t>(below(std::ssize(kKeys)))),
              oneIn(3) ? Qt::ShiftModifier : Qt::NoModifier);
        break;
      case 2:
        oneIn(2) ? window().RefreshAll() : tick();
        break;
      default:
        select(view, 1 + below(2));
    }
  }

  void dragScenes() {
    const IDs moved = select(scenes(), 1 + below(3));
    const qint32 home = chapters().SelectedTag();
    const bool inside = oneIn(2);
    ListView& to = inside ? scenes() : chapters();
    const int row = below(to.rowCount() + 1);
    const qint32 target = to.tagAt(row);
    const bool allowed = target != 0 && !moved.isEmpty() && (inside || target != home);
    ASSERT_EQ(drag_.drop(scenes(), to, target == 0 ? -1 : row), allowed);
    if (allowed) {
      inside ? book_.moveScenes(home, moved, target) : book_.moveScenesTo(target, moved);
      EXPECT_EQ(chapters().SelectedTag(), inside ? home : target);
      EXPECT_TRUE(moved.contains(scenes().SelectedTag()));
    }
  }

  void dragChapters() {
    const IDs moved = select(chapters(), 1 + below(3));
    const int row = below(chapters().rowCount());
    const qint32 target = chapters().tagAt(row);
    EXPECT_FALSE(drag_.drop(chapters(), scenes(), 0));
    if (drag_.drop(chapters(), chapters(), row)) {
      book_.moveChapters(moved, target);
      EXPECT_TRUE(moved.contains(chapters().SelectedTag()));
    }
  }

  void moveRows() {
    const int step = oneIn(2) ? -1 : 1;
    const bool ofChapters = oneIn(3);
    const bool away = !ofChapters && oneIn(3);
    ListView& view = ofChapters ? chapters() : scenes();
    const IDs moved = select(view, oneIn(4) ? 2 : 1);
    const int row = view.SelectedRow();
    const qint32 home = chapters().SelectedTag();
    IDs& order = ofChapters || away ? book_.order : book_.chapters[home].scenes;
    const qint32 neighbour = order.value((away ? order.indexOf(home) : row) + step);
    if (away) {
      press(view, step < 0 ? Qt::Key_PageUp : Qt::Key_PageDown, Qt::AltModifier);
    } else if (oneIn(2)) {
      press(view, step < 0 ? Qt::Key_Up : Qt::Key_Down, Qt::AltModifier);
    } else {
      const QByteArray entry = ofChapters ? "mnuMoveChapter" : "mnuMoveScene";
      choose(ofChapters ? "mnuChapters" : "mnuScene", entry + (step < 0 ? "Up" : "Down"));
    }
    if (away && neighbour != 0) {
      book_.moveScenesTo(neighbour, moved);
    } else if (!away && moved.size() == 1 && neighbour != 0) {
      order.swapItemsAt(row, row + step);
    }
    EXPECT_EQ(view.SelectedTag() == 0, moved.isEmpty());
    EXPECT_TRUE(moved.isEmpty() || moved.contains(view.SelectedTag()));
  }

  /// Scenes that are to change; an open one stays as it is, which is said.
  void expectRefusal(const IDs& changed) {
    if (book_.open != 0 && changed.contains(book_.open)) {
      toolkit.expectBox(u"One or more scenes could not be updated, since they're being edited"_s);
    }
  }

  void mark() {
    const int what = below(8);
    const bool ofScenes = what < 5;
    const IDs marked = select(ofScenes ? scenes() : chapters(), 1 + below(3));
    if (marked.isEmpty()) {
      return;
    }
    const qint32 current = chapters().SelectedTag();
    if (what == 5 || what == 6) {
      choose("mnuChapters", what == 5 ? "mnuMarkEndBeginning" : "mnuMarkEndMiddle");
      (what == 5 ? book_.endOfBeginning : book_.endOfMiddle) = current;
    } else if (what == 7) {
      IDs held;
      for (const qint32 id : marked) {
        held += book_.chapters[id].scenes;
      }
      expectRefusal(held);
      choose("mnuChapters", "mnuMarkChaptersUnused");
      for (const qint32 id : marked) {
        ShadowBook::Chapter& chapter = book_.chapters[id];
        chapter.unused = !chapter.unused;
        for (const qint32 scene : chapter.scenes) {
          bool& unused = book_.scenes[scene].unused;
          unused = scene == book_.open ? unused : chapter.unused;
        }
      }
    } else {
      expectRefusal(marked);
      choose("mnuScene", what == 0 ? "mnuMarkScenesUnused" : "mnuStatus(" + QByteArray::number(what) + ')');
      for (const qint32 id : marked) {
        ShadowBook::Scene& scene = book_.scenes[id];
        scene.unused = scene.unused != (what == 0 && id != book_.open);
        scene.status = what == 0 || id == book_.open ? scene.status : what + 1;
      }
    }
  }

  /// Opens a scene in an editor; the next time it is closed.
  void write() {
    if (book_.open != 0) {
      closeEditor(oneIn(2));
    } else if (const IDs opened = select(scenes(), 1); !opened.isEmpty()) {
      oneIn(2) ? press(scenes(), Qt::Key_Return) : doubleClick(scenes(), scenes().SelectedRow());
      book_.open = opened.first();
    }
  }

  void closeEditor(bool save) {
    if (book_.open == 0) {
      return;
    }
    if (save) {
      auto& text = childOf<RichTextBox>(openEditor(), u"txtMain"_s);
      ShadowBook::Scene& scene = book_.scenes[book_.open];
      // The editor's list of states begins with the first: a scene that never had one gets that.
      scene.status = std::max(scene.status, 1);
      QString& written = scene.text;
      written = someWords();
      QTest::keyClick(&text, Qt::Key_A, Qt::ControlModifier);
      QTest::keyClick(&text, Qt::Key_Delete);
      QTest::keyClicks(&text, written);
      childOf<QPushButton>(openEditor(), u"cmdSaveAndExit"_s).click();
    } else {
      openEditor().close();
    }
    EXPECT_EQ(editor(), nullptr);
    book_.open = 0;
    comeBack();
  }

  void addOrRemove() {
    const int what = below(6);
    const bool ofScene = what == 2 || what > 3;
    const IDs selected = select(what > 3 ? scenes() : chapters(), what < 3 ? 1 : 1 + below(3));
    if (what == 0 || (what < 3 && !selected.isEmpty())) {
      addOrEdit(what, selected.value(0));
      return;
    }
    // While a scene is open no chapter can be removed, and no such scene.
    if (selected.isEmpty() || (book_.open != 0 && (!ofScene || selected.contains(book_.open)))) {
      return;
    }
    const bool sure = !oneIn(3);
    toolkit.expectBox(ofScene ? u"Remove selected scene(s)"_s : u"This will remove the selected chapter(s)"_s,
                      sure ? Answer::Yes : Answer::No);
    press(ofScene ? scenes() : chapters(), Qt::Key_Delete);
    for (const qint32 id : sure ? selected : IDs()) {
      ofScene ? book_.removeScene(id) : book_.removeChapter(id);
    }
  }

  /// Fewer where there are many already.
  void createManyOrRenumber() {
    const bool ofScenes = oneIn(2);
    const qint32 home = select(chapters(), 1).value(0);
    const int count = (ofScenes ? book_.scenes.size() > 60 : book_.order.size() > 12) ? 0 : below(4);
    const qint32 firstID = ofScenes ? g_Project->Scenes.nextID() : g_Project->Chapters.nextID();
    if (!ofScenes && oneIn(3)) {
      choose("mnuChapters", "mnuRenumber");
      book_.renumber();
    } else if (ofScenes && home == 0) {
      toolkit.expectBox(u"Select a chapter first"_s);
      choose("mnuScene", "mnuAddMultiScenes");
    } else {
      toolkit.expectFile(QString::number(count));
      choose(ofScenes ? "mnuScene" : "mnuChapters", ofScenes ? "mnuAddMultiScenes" : "mnuCreateChapters");
      ofScenes ? book_.addScenes(home, firstID, count) : book_.addChapters(firstID, count);
    }
  }

  /// A new chapter, another title for one, a new scene in it.
  void addOrEdit(int what, qint32 chapter) {
    const QString title = u"New "_s + someWords();
    const qint32 newChapter = g_Project->Chapters.nextID();
    const qint32 newScene = g_Project->Scenes.nextID();
    const WhenModal whenUp([&](QWidget& form) {
      childOf<QLineEdit>(form, u"txtTitle"_s).setText(title);
      childOf<QPushButton>(form, what == 2 ? u"cmdSaveAndExit"_s : u"cmdOK"_s).click();
    });
    constexpr std::array kEntries{"mnuFileNew", "mnuEditChapter", "mnuAddScene"};
    choose(what == 2 ? "mnuScene" : "mnuChapters", kEntries.at(static_cast<size_t>(what)));
    if (what == 0) {
      book_.order += newChapter;
      book_.chapters.insert(newChapter, {title, false, {}});
    } else if (what == 1) {
      book_.chapters[chapter].title = title;
    } else {
      book_.chapters[chapter].scenes += newScene;
      book_.scenes.insert(newScene, {title, {}, {}, {}, false, 1, {}});
      comeBack();
    }
  }

  /// Other windows change the book and mark what they have changed.
  void outside() {
    for (int changes = 1 + below(3); changes > 0; --changes) {
      changeOneThing();
    }
    oneIn(2) ? window().RefreshAll() : tick();
  }

  void changeOneThing() {
    const qint32 shown = chapters().SelectedTag();
    const IDs all = oneIn(2) ? book_.scenes.keys() : book_.chapters.value(shown).scenes;
    const qint32 id = all.value(below(all.size()));
    const auto scene = g_Project->SceneByID(id);
    const int what = below(6);
    if (what == 0 || id == book_.open || shown == 0) {
      const qint32 renamed = elementOf(book_.names[0].keys(), below(book_.names[0].size()));
      book_.names[0][renamed] = u"Name "_s + someWords();
      g_Project->CharByID(renamed)->setTitle(book_.names[0][renamed]);
    } else if (what == 1 || id == 0 || (what == 2 && book_.scenes.size() < 12)) {
      const qint32 chapter = oneIn(2) ? shown : book_.order[below(book_.order.size())];
      const auto added = addScene(*g_Project->ChapterByID(chapter));
      book_.scenes.insert(added->ID(), {added->Title, added->ConvertedToBodyText(), {}, {}, false, 0, {}});
      book_.chapters[chapter].scenes.append(added->ID());
    } else if (what == 2) {
      g_Project->ChapterByID(scene->BelongsToChID)->RemoveSceneByID(id);
      g_Project->RemoveSceneByID(id);
      book_.removeScene(id);
    } else {
      ShadowBook::Scene& written = book_.scenes[id];
      written.text = someWords();
      scene->setTextRTF(simpleRtf(written.text.toLatin1()));
      scene->Notes = written.notes = someWords();
      scene->Title = written.title = someWords();
      scene->Save();
    }
  }

  QString path_;
};

TEST_P(RandomWalkTest, TheWindowShowsWhatTheBookIsAndItIsTheSameBookWhenItIsOpenedAgain) {
  walk(1000);
  openAgain();
  check();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalkTest, ::testing::Values(1U, 2U, 3U));
