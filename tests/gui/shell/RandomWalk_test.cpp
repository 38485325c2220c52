// A thousand commands, drags and edits in the real main window, and again with other seeds. After each of them the book
// is what a plain record of them says, and the lists, the display and the total show that.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/RowDrag.h"
#include "gui/shell/ShadowBook.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/ModalHelper.h"
#include "support/Required.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <random>
#include <set>

using namespace Qt::StringLiterals;

namespace {

using IDs = ShadowBook::IDs;

constexpr std::array kCast{"ListChar(0)", "ListLoc(0)", "ListItems(0)"};
constexpr std::array kAllCast{"ListChar(1)", "ListLoc(1)", "ListItems(1)"};

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

IDs sorted(IDs ids) {
  std::sort(ids.begin(), ids.end());
  return ids;
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

class RandomWalkTest : public ShellTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
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
  int below(qsizetype limit) {
    return static_cast<int>(random_() % static_cast<size_t>(std::max<qsizetype>(limit, 1)));
  }
  bool oneIn(int chances) { return below(chances) == 0; }
  QString someWords() {
    QStringList words;
    for (int count = below(6); count > 0; --count) {
      words += QString(1 + below(7), QChar(u'a' + below(26)));
    }
    return words.join(u' ');
  }

  ListView& chapters() { return list("ListChapters"); }
  ListView& scenes() { return list("ListScenes"); }
  QString memo(const char* name) { return control<QPlainTextEdit>(name).toPlainText(); }
  /// Clicks so many rows, fewer where there aren't so many. What is selected then, in the order of the list.
  IDs select(ListView& list, int count) {
    std::set<int> rows;
    while (static_cast<int>(rows.size()) < std::min(count, list.rowCount())) {
      const int row = below(list.rowCount());
      if (rows.insert(row).second) {
        click(list, row, rows.size() == 1 ? Qt::NoModifier : Qt::ControlModifier);
      }
    }
    return list.SelectedTags();
  }
  void press(ListView& list, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    list.setFocus();
    QTest::keyClick(&list, key, modifiers);
  }
  /// Chooses the entry where its menu offers it.
  void choose(const char* menu, const QByteArray& entry) {
    Q_EMIT control<QMenu>(menu).aboutToShow();
    if (isEnabled(entry.constData())) {
      trigger(entry.constData());
    }
  }
  void tick() { QMetaObject::invokeMethod(&control<QTimer>("TimerScanScenes"), "timeout"); }
  /// Back from an editor that has closed; what it saved is seen at the next scan.
  void comeBack() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(waitUntilActive(window()));
    tick();
  }
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

  void dragCast() {
    const auto kind = static_cast<size_t>(below(3));
    control<QTabWidget>("TabStrip1").setCurrentIndex(static_cast<int>(kind) + 2);
    const IDs selected = select(scenes(), 1 + below(3));
    ListView& from = list(oneIn(3) ? kCast.at(kind) : kAllCast.at(kind));
    ListView& all = list(kAllCast.at(kind));
    ListView& to = oneIn(2) ? scenes() : oneIn(2) ? all : list(kCast.at(kind));
    // On the scenes that are selected, wherever among them it is dropped.
    const IDs changed = &to == &scenes() ? selected : IDs{scenes().SelectedTag()};
    const IDs dragged = select(from, 1 + below(2));
    EXPECT_FALSE(drag_.drop(from, list(kAllCast.at((kind + 1) % kAllCast.size())), -1));
    EXPECT_EQ(drag_.drop(from, to, to.rowCount() - 1), !dragged.isEmpty());
    for (const qint32 id : dragged.isEmpty() ? IDs() : changed) {
      book_.changeCast(id, kind, dragged, &to != &all);
    }
  }

  /// Chooses in the list window, from the menu.
  void addCast() {
    constexpr std::array kEntries{"mnuAddCharToScene", "mnuAddLocToCurrentScene", "mnuAddItemToCurrentScene"};
    const auto kind = static_cast<size_t>(below(3));
    const IDs scene = select(scenes(), 1);
    const bool sure = !oneIn(4);
    IDs chosen;
    if (scene.isEmpty()) {
      toolkit.expectBox(u"Select a scene first"_s);
      trigger(kEntries.at(kind));
      return;
    }
    const WhenModal whenUp([&](QWidget& form) {
      chosen = select(childOf<ListView>(form, u"ListItems"_s), 1 + below(3));
      childOf<QPushButton>(form, sure ? u"cmdOK"_s : u"cmdCancel"_s).click();
    });
    trigger(kEntries.at(kind));
    if (sure) {
      book_.changeCast(scene.first(), kind, chosen, true);
    }
  }

  /// Removes what is selected in the scene, or makes another character its viewpoint.
  void takeCastOut() {
    constexpr std::array kEntries{"mnuRemoveCharFromScene", "mnuRemoveLocation", "mnuRemoveItem"};
    const auto kind = static_cast<size_t>(below(3));
    const qint32 scene = select(scenes(), 1).value(0);
    control<QTabWidget>("TabStrip1").setCurrentIndex(static_cast<int>(kind) + 2);
    const IDs selected = select(list(kCast.at(kind)), 1 + below(2));
    if (selected.isEmpty()) {
      return;
    }
    if (kind == 0 && oneIn(2)) {
      const qint32 narrator = list(kCast[0]).SelectedTag();
      IDs& cast = book_.scenes[scene].cast[0];
      cast.move(cast.indexOf(narrator), 0);
      trigger("mnuSetVP");
    } else if (kind == 0 && scene == book_.open) {
      toolkit.expectBox(u"Cannot change scene, it's being edited."_s);
      trigger(kEntries[0]);
    } else {
      trigger(kEntries.at(kind));
      book_.changeCast(scene, kind, selected, false);
    }
  }

  /// Deletes, moves or enters one in the window of its kind.
  void manageCast() {
    constexpr std::array kEntries{"mnuEditChar", "mnuAddLocation", "mnuAddItem"};
    const auto kind = static_cast<size_t>(below(3));
    const WhenModal whenUp([&](QWidget& form) {
      auto& rows = childOf<ListView>(form, u"ListItems"_s);
      if (rows.rowCount() < 3 || oneIn(4)) {
        enterNew(form, kind);
      } else if (const qint32 id = select(rows, 1).value(0); oneIn(2)) {
        remove(form, kind, id);
      } else if (const int other = rows.SelectedRow() + 1; kind > 0 && other < rows.rowCount()) {
        press(rows, Qt::Key_Down, Qt::AltModifier);
        EXPECT_EQ(rows.tagAt(other), id);
      }
      childOf<QPushButton>(form, u"cmdCancel"_s).click();
    });
    trigger(kEntries.at(kind));
  }

  void enterNew(const QWidget& form, size_t kind) {
    const qint32 id = book_.names.at(kind).isEmpty() ? 1 : book_.names.at(kind).lastKey() + 1;
    const QString name = u"New "_s + someWords();
    const WhenModal whenUp([&](QWidget& sheet) {
      childOf<QLineEdit>(sheet, kind == 0 ? u"txtShortName"_s : u"txtTitle"_s).setText(name);
      childOf<QPushButton>(sheet, u"cmdOK"_s).click();
    });
    childOf<QPushButton>(form, u"cmdAdd"_s).click();
    book_.names.at(kind).insert(id, name);
  }

  void remove(const QWidget& form, size_t kind, qint32 id) {
    const bool narrates = kind == 0 && book_.narratesSomewhere(id);
    const bool sure = !oneIn(3);
    if (narrates) {
      toolkit.expectBox(u"You can't delete viewpoint characters."_s);
    } else {
      toolkit.expectBox(u"Are you sure you want to delete "_s + book_.names.at(kind).value(id),
                        sure ? Answer::Yes : Answer::No);
    }
    childOf<QPushButton>(form, u"cmdDel"_s).click();
    if (!narrates && sure) {
      book_.removeCast(kind, id);
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

  /// A word or a part of one, most often of some scene.
  QString someTerm() {
    const ShadowBook::Scene scene = book_.scenes.values().value(below(book_.scenes.size()));
    const QStringList words = (oneIn(4) ? someWords() : scene.text).split(u' ', Qt::SkipEmptyParts);
    const QString word = words.value(below(words.size()), u"none"_s);
    return word.left(1 + below(word.size()));
  }

  struct Hit {
    qint32 scene;
    qsizetype place;
  };
  QList<Hit> hitsOf(const QString& term) const {
    QList<Hit> hits;
    for (const qint32 chapter : book_.order) {
      for (const qint32 id : book_.chapters[chapter].scenes) {
        const QString& text = book_.scenes[id].text;
        for (qsizetype at = text.indexOf(term); at >= 0; at = text.indexOf(term, at + 1)) {
          hits.append({id, at});
        }
      }
    }
    return hits;
  }

  /// From the first chapter on, a few matches further, and one back.
  void find() {
    const QString term = someTerm();
    const QList<Hit> hits = hitsOf(term);
    trigger("mnuFind");
    auto& dialog = childOf<QDialog>(window(), u"frmFind"_s);
    childOf<QComboBox>(dialog, u"cmbFind"_s).setEditText(term);
    const auto expectAt = [&](qsizetype wanted, const std::function<void()>& act) {
      if (wanted < 0 || wanted >= hits.size()) {
        toolkit.expectBox(u"No match"_s);
        act();
        return;
      }
      act();
      EXPECT_EQ(scenes().SelectedTags(), IDs{hits[wanted].scene});
      EXPECT_EQ(control<RichTextBox>("txtBody").SelStart(), hits[wanted].place);
      EXPECT_EQ(control<RichTextBox>("txtBody").SelText(), term);
    };
    qsizetype at = 0;
    expectAt(at, [&] { childOf<QPushButton>(dialog, u"cmdFind"_s).click(); });
    dialog.close();
    for (int further = below(5); further > 0 && at < hits.size(); --further) {
      expectAt(++at, [&] { trigger("cmdFindNext"); });
    }
    if (at < hits.size()) {
      qsizetype before = at - 1;
      while (before >= 0 && hits[before].scene == hits[at].scene && hits[before].place + term.size() > hits[at].place) {
        --before;
      }
      expectAt(before, [&] { trigger("mnuFindPrev"); });
    }
  }

  void replace() {
    const QString term = someTerm();
    const QString with = someWords();
    const bool minded = oneIn(2);
    if (book_.open != 0 || (minded && term == with)) {
      EXPECT_EQ(isEnabled("mnuGlobalReplace"), book_.open == 0);
      return;
    }
    qsizetype count = 0;
    for (ShadowBook::Scene& scene : book_.scenes) {
      const QStringList parts = scene.text.split(term);
      count += parts.size() - 1;
      scene.text = parts.join(with);
      scene.title = minded ? scene.title.replace(term, with) : scene.title;
    }
    trigger("mnuGlobalReplace");
    auto& form = childOf<QDialog>(window(), u"frmGlobalReplace"_s);
    childOf<QLineEdit>(form, u"txtLookfor"_s).setText(term);
    childOf<QLineEdit>(form, u"txtReplaceWith"_s).setText(with);
    childOf<QCheckBox>(form, u"chkCaseSensitive"_s).setChecked(minded);
    toolkit.expectBox(u"Replaced %1 occurrences"_s.arg(QLocale().toString(count)));
    childOf<QPushButton>(form, u"cmdOK"_s).click();
    form.close();
    comeBack();
  }

  ShadowBook book_;
  QString path_;
  RowDrag drag_;
  std::mt19937 random_{GetParam()};
};

TEST_P(RandomWalkTest, TheWindowShowsWhatTheBookIsAndItIsTheSameBookWhenItIsOpenedAgain) {
  walk(1000);
  openAgain();
  check();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalkTest, ::testing::Values(1U, 2U, 3U));
