// What is done with the characters, locations and items beside the scene list.

#include "core/model/EntityDialogs.h"
#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/sheets/frmList.h"
#include "gui/shell/MainWindow.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"

#include <QPushButton>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using IDs = QList<qint32>;

IDs charsOf(qint32 scene) {
  const auto& ids = g_Project->SceneByID(scene)->CharIDs();
  return {ids.begin(), ids.end()};
}

void setChars(qint32 scene, const IDs& ids) {
  for (const qint32 id : charsOf(scene)) {
    g_Project->SceneByID(scene)->RemoveCharByID(id);
  }
  for (const qint32 id : ids) {
    g_Project->SceneByID(scene)->AddCharByID(id);
  }
}

}  // namespace

/// Anna is character 1, Zoë 2, Пётр 3; Zoë narrates the first scene, Anna is in it.
class CastCommandsTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
    control<QTabWidget>("TabStrip1").setCurrentIndex(2);
  }

  void select(const char* name, const IDs& ids) {
    ListView& view = list(name);
    view.clearSelection();
    for (const qint32 id : ids) {
      click(view, view.rowOfTag(id), Qt::ControlModifier);
    }
    ASSERT_EQ(view.SelectedTags().size(), ids.size());
  }
  /// Chooses an entry and acts on the list window that it brings up, which is confirmed or cancelled then.
  void inList(const char* entry, bool confirm, const std::function<void(frmList&)>& act) {
    const WhenModal whenUp([&](QWidget& window) {
      auto& form = dynamic_cast<frmList&>(window);
      act(form);
      childOf<QPushButton>(form, confirm ? u"cmdOK"_s : u"cmdCancel"_s).click();
    });
    trigger(entry);
  }
  static void choose(frmList& form, const IDs& ids) {
    auto& rows = childOf<ListView>(form, u"ListItems"_s);
    rows.clearSelection();
    for (const qint32 id : ids) {
      const QModelIndex row = rows.rows().index(rows.rowOfTag(id), 0);
      rows.selectionModel()->select(row, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
  }
  QString viewpointShown(int row) { return cell("ListScenes", row, 0); }
};

TEST_F(CastCommandsTest, AnotherCharacterBecomesTheViewpoint) {
  const QByteArray before = fileBytes(g_Project->FileWithPath);
  click(list("ListChar(0)"), 1);
  trigger("mnuSetVP");
  EXPECT_EQ(charsOf(1), IDs({1, 2}));
  EXPECT_EQ(viewpointShown(0), u"Anna"_s);
  EXPECT_EQ(list("ListChar(0)").rows().tags(), IDs({1, 2}));
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_FALSE(window().isWindowModified());
  EXPECT_TRUE(fileBytes(g_Project->FileWithPath) != before) << "it is saved at once";
}

TEST_F(CastCommandsTest, WhoIsNextNarratesWhenTheViewpointIsRemoved) {
  struct Case {
    IDs removed;
    IDs left;
    QString viewpoint;
  };
  for (const Case& known : {Case{{1}, {2, 3}, u"Zoë"_s}, Case{{2}, {1, 3}, u"Anna"_s}, Case{{2, 1}, {3}, u"Пётр"_s},
                            Case{{2, 1, 3}, {}, u"N/A"_s}}) {
    setChars(1, {2, 1, 3});
    window().RefreshAll();
    window().ProjectChanged = false;
    select("ListChar(0)", known.removed);
    trigger("mnuRemoveCharFromScene");
    EXPECT_EQ(charsOf(1), known.left);
    EXPECT_EQ(viewpointShown(0), known.viewpoint);
    EXPECT_EQ(list("ListChar(0)").rows().tags(), known.left);
    EXPECT_TRUE(window().ProjectChanged);
  }
}

TEST_F(CastCommandsTest, ASceneInAnEditorKeepsItsCharacters) {
  window().EditSelectedScene();
  click(list("ListChar(0)"), 0);
  toolkit.expectBox(u"Cannot change scene, it's being edited."_s);
  trigger("mnuRemoveCharFromScene");
  EXPECT_EQ(charsOf(1), IDs({2, 1}));
  EXPECT_FALSE(window().ProjectChanged);
}

TEST_F(CastCommandsTest, SelectedCharactersGoIntoAllSelectedScenesAndOut) {
  select("ListScenes", {1, 2});
  select("ListChar(1)", {1, 3});
  trigger("mnuAddCharToAll");
  EXPECT_EQ(charsOf(1), IDs({2, 1, 3}));
  EXPECT_EQ(charsOf(2), IDs({1, 3}));
  EXPECT_EQ(viewpointShown(1), u"Anna"_s) << "the first one narrates a scene that had nobody";
  EXPECT_EQ(list("ListScenes").SelectedTags(), IDs({1, 2}));
  EXPECT_TRUE(window().ProjectChanged);
  select("ListChar(1)", {1});
  trigger("mnuRemoveCharFromAll");
  EXPECT_EQ(charsOf(1), IDs({2, 3}));
  EXPECT_EQ(charsOf(2), IDs({3}));
  EXPECT_EQ(viewpointShown(1), u"Пётр"_s);
}

TEST_F(CastCommandsTest, ARowIsOpenedByADoubleClickAndByEnter) {
  std::vector<std::pair<EntityKind, qint32>> opened;
  bool confirmed = false;
  const auto answer = [&](const SheetSubject& subject, const auto& details) {
    opened.emplace_back(subject.kind, subject.id);
    auto edited = details;
    edited.Title += u'!';
    return confirmed ? std::optional(edited) : std::nullopt;
  };
  entityDialogs().character = [&](const SheetSubject& subject, const CharacterDetails& details, qint32) {
    return answer(subject, details);
  };
  entityDialogs().thing = answer;
  struct Case {
    int tab;
    const char* lists;
    EntityKind kind;
    qint32 id;
  };
  for (const Case& known : {Case{2, "ListChar", EntityKind::Character, 2}, Case{3, "ListLoc", EntityKind::Location, 1},
                            Case{4, "ListItems", EntityKind::Item, 1}}) {
    SCOPED_TRACE(known.lists);
    opened.clear();
    window().ProjectChanged = confirmed = false;
    control<QTabWidget>("TabStrip1").setCurrentIndex(known.tab);
    ListView& inScene = list((QByteArray(known.lists) + "(0)").constData());
    ListView& all = list((QByteArray(known.lists) + "(1)").constData());
    const QString before = inScene.text(0, 0);
    doubleClick(inScene, 0);
    EXPECT_FALSE(window().ProjectChanged) << "it was cancelled";
    confirmed = true;
    select(qPrintable(all.objectName()), {known.id});
    QTest::keyClick(&all, Qt::Key_Return);
    EXPECT_EQ(opened, decltype(opened)(2, {known.kind, known.id}));
    EXPECT_TRUE(window().ProjectChanged);
    EXPECT_FALSE(window().isWindowModified()) << "it is saved at once";
    EXPECT_EQ(inScene.text(0, 0), before + u'!');
    EXPECT_EQ(all.text(all.rowOfTag(known.id), 0), before + u'!');
  }
  EXPECT_EQ(viewpointShown(0), u"Zoë!"_s);
}

TEST_F(CastCommandsTest, WhoOnlyLooksHasNothingToSave) {
  const auto nothing = [](const frmList&) {};
  const QString path = g_Project->FileWithPath;
  for (const qint32 id : {1, 2, 3}) {
    g_Project->CharByID(id)->SortOrder = 0;
  }
  const QByteArray saved = fileBytes(path);
  writeFile(path, saved + "\n");  // a save would ask about it
  for (const char* const entry : {"mnuEditChar", "mnuAddLocation", "mnuAddItem"}) {
    inList(entry, true, nothing);
    EXPECT_TRUE(window().ProjectChanged);
    EXPECT_FALSE(window().isWindowModified()) << entry;
  }
  toolkit.expectChoice(u"Small.qn4"_s, u"Keep mine"_s);
  inList("mnuEditChar", true, [](frmList& form) {
    form.selectID(3);
    QTest::keyClick(&childOf<ListView>(form, u"ListItems"_s), Qt::Key_Up, Qt::AltModifier);
  });
  EXPECT_FALSE(window().isWindowModified());
  EXPECT_TRUE(fileBytes(path) != saved);
}

TEST_F(CastCommandsTest, WhatIsDoneAfterTheirsWasTakenIsNotLoadedOver) {
  entityDialogs().character = [](const SheetSubject&, const CharacterDetails& details, qint32) {
    auto named = details;
    named.Title = u"Ida"_s;
    return std::optional(named);
  };
  const QString path = g_Project->FileWithPath;
  writeFile(path, fileBytes(path).replace("<Title>Arrival<", "<Title>Theirs<"));
  toolkit.expectChoice(u"Small.qn4"_s, u"Take theirs"_s);
  inList("mnuEditChar", true, [this](frmList& form) {
    childOf<QPushButton>(form, u"cmdAdd"_s).click();
    EXPECT_TRUE(g_Project->ReloadWanted());
    toolkit.expectBox(u"Are you sure you want to delete Anna"_s, Answer::Yes);
    toolkit.expectChoice(u"Small.qn4"_s, u"Keep mine"_s);
    form.selectID(1);
    childOf<QPushButton>(form, u"cmdDel"_s).click();
  });
  EXPECT_EQ(list("ListChar(1)").rowOfTag(1), -1);
  EXPECT_TRUE(fileBytes(path).contains("Ida"));
}

TEST_F(CastCommandsTest, ASceneThatHasGoneIsNotSavedAnew) {
  const QString folderOfBook = g_Project->Path();
  select("ListScenes", {1});
  select("ListChar(0)", {1});
  select("ListChar(1)", {1});
  g_Project->RemoveSceneByID(1);
  const auto texts = filesBelow(folderOfBook);
  for (const char* const entry : {"mnuRemoveCharFromScene", "mnuSetVP", "mnuAddCharToAll"}) {
    trigger(entry);
  }
  EXPECT_EQ(filesBelow(folderOfBook).keys(), texts.keys());
}

TEST_F(CastCommandsTest, ChosenCharactersComeIntoTheSceneAndTheFirstNarratesOneWithoutAViewpoint) {
  select("ListScenes", {2});
  inList("mnuAddCharToScene", true, [](frmList& form) {
    EXPECT_FALSE(childOf<QWidget>(form, u"FrameChooser"_s).isVisible());
    choose(form, {1, 3});
  });
  EXPECT_EQ(charsOf(2), IDs({1, 3}));
  EXPECT_EQ(viewpointShown(1), u"Anna"_s);
  EXPECT_EQ(list("ListChar(0)").rows().tags(), IDs({1, 3}));
  EXPECT_TRUE(window().ProjectChanged);
  inList("mnuAddChar", true, [](frmList& form) { choose(form, {1, 2, 3}); });
  EXPECT_EQ(charsOf(2), IDs({1, 3, 2}));
  inList("mnuAddLocToCurrentScene", true, [](frmList& form) { choose(form, {1, 2}); });
  inList("mnuAddItemToCurrentScene", true, [](frmList& form) { choose(form, {1}); });
  EXPECT_EQ(g_Project->SceneByID(2)->LocationCount(), 2);
  EXPECT_EQ(g_Project->SceneByID(2)->ItemCount(), 1);
  EXPECT_EQ(logText().count(u"Error"_s), 0);
}

TEST_F(CastCommandsTest, WhoChoosesNobodyAddsNobodyButKeepsWhatWasChangedMeanwhile) {
  inList("mnuAddCharToScene", false, [](frmList& form) { choose(form, {3}); });
  EXPECT_EQ(charsOf(1), IDs({2, 1}));
  EXPECT_FALSE(window().ProjectChanged);
  inList("mnuAddCharToScene", false, [this](frmList& form) {
    toolkit.expectBox(u"Are you sure you want to delete Anna"_s, Answer::Yes);
    choose(form, {1});
    childOf<QPushButton>(form, u"cmdDel"_s).click();
  });
  EXPECT_EQ(charsOf(1), IDs{2});
  EXPECT_EQ(list("ListChar(0)").rows().tags(), IDs{2});
  EXPECT_TRUE(window().ProjectChanged);
  select("ListScenes", {});
  for (const char* const entry :
       {"mnuAddCharToScene", "mnuAddChar", "mnuAddLocToCurrentScene", "mnuAddItemToCurrentScene"}) {
    toolkit.expectBox(u"Select a scene first"_s);
    trigger(entry);
  }
}

TEST_F(CastCommandsTest, PlacesAndThingsLeaveTheSceneAsSelected) {
  for (const auto& [entry, inScene] :
       {std::pair{"mnuRemoveLocation", "ListLoc(0)"}, {"mnuRemoveItem", "ListItems(0)"}}) {
    window().ProjectChanged = false;
    list(inScene).SelectRow(0);
    trigger(entry);
    EXPECT_EQ(list(inScene).rowCount(), 0);
    EXPECT_TRUE(window().ProjectChanged);
  }
  EXPECT_EQ(g_Project->SceneByID(1)->LocationCount() + g_Project->SceneByID(1)->ItemCount(), 0);
}
