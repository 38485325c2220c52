// Thousands of edits in real windows, from scene to scene, beside a model of each text: what is saved is what was
// written, to the letter and the format.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorText.h"
#include "gui/editor/EditorWindow.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/frmFind.h"
#include "support/WaitFor.h"

#include <QComboBox>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTest>

#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr int kScenes = 40;
constexpr int kEditsEach = 60;
constexpr int kVisitsToASplit = 8;
constexpr size_t kStates = 51;

class EditorWalkTest : public EditorTest {
 protected:
  int below(qsizetype limit) { return random_.bounded(static_cast<int>(limit)); }

  /// The scene's window, with what its text is when nothing is done to it.
  void enter(frmEditor* editor, qint32 id) {
    editor_ = editor;
    pane_ = &control<RichTextBox>(*editor, "txtMain");
    id_ = id;
    RichText text = readRtf(scene(id)->TextRTF());
    SetMainIndent(text);
    states_ = {text};
    state_ = 0;
  }
  const RichText& text() const { return states_[state_]; }

  template <class Change>
  void change(const Change& change) {
    RichText changed = text();
    change(changed);
    if (changed == text()) {
      return;
    }
    states_.resize(state_ + 1);
    states_.push_back(changed);
    if (states_.size() > kStates) {
      states_.erase(states_.begin());
    }
    state_ = states_.size() - 1;
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(pane_, key, modifiers); }

  /// Some of the text, never the last paragraph's end.
  void selectAny() {
    const qsizetype from = below(pane_->Text().size());
    pane_->select(from, 1 + below(qMin<qsizetype>(pane_->Text().size() - from, 30)));
  }
  void typeLetters() {
    static const QStringList kWords{u"a"_s, u"We "_s, u"went."_s, u"e-"_s};
    const QString word = kWords[below(kWords.size())];
    pane_->setSelStart(below(pane_->Text().size() + 1));
    for (const QChar letter : word) {
      const qsizetype at = pane_->SelStart();
      QTest::keyClick(pane_, letter.toLatin1());
      change([&](RichText& is) { is.insert(at, QString(letter)); });
    }
  }
  void style() {
    selectAny();
    const qsizetype from = pane_->SelStart();
    const qsizetype length = pane_->SelLength();
    const bool bold = below(2) == 0;
    const bool CharLook::*const look = bold ? &CharLook::bold : &CharLook::italic;
    press(bold ? Qt::Key_B : Qt::Key_I, Qt::ControlModifier);
    change([&](RichText& is) {
      // Off when all that is selected has it.
      const QString& letters = is.text();
      bool on = false;
      for (qsizetype at = from; at < from + length; ++at) {
        on = on || (letters[at] != u'\r' && letters[at] != u'\n' && !(is.charFormatAt(at).*look));
      }
      is.formatCharacters(from, length, [&](CharFormat& format) { format.*(const_cast<bool CharLook::*>(look)) = on; });
    });
  }
  void cut() {
    selectAny();
    const qsizetype from = pane_->SelStart();
    const qsizetype length = pane_->SelLength();
    clipboard_ = text().slice(from, length);
    press(Qt::Key_X, Qt::ControlModifier);
    change([&](RichText& is) { is.remove(from, length); });
  }
  void paste() {
    if (clipboard_.isEmpty()) {
      return;
    }
    pane_->setSelStart(below(pane_->Text().size() + 1));
    const qsizetype at = pane_->SelStart();
    press(Qt::Key_V, Qt::ControlModifier);
    change([&](RichText& is) { is.insert(at, clipboard_); });
  }
  void undo() {
    press(Qt::Key_Z, Qt::ControlModifier);
    state_ -= state_ > 0 ? 1 : 0;
  }
  void redo() {
    press(Qt::Key_Y, Qt::ControlModifier);
    state_ += state_ + 1 < states_.size() ? 1 : 0;
  }
  void replaceAll() {
    if (editor_->findChild<frmFind*>() == nullptr) {
      trigger(*editor_, "mnuReplace");
    }
    auto& dialog = childOf<frmFind>(*editor_, u"frmFind"_s);
    childOf<QComboBox>(dialog, u"cmbFind"_s).setEditText(u"e"_s);
    childOf<QComboBox>(dialog, u"cmbReplace"_s).setEditText(u"We"_s);
    QTest::mouseClick(&childOf<QPushButton>(dialog, u"cmdReplaceAll"_s), Qt::LeftButton);
    change([](RichText& is) { is.replaceAll(u"e", u"We", Qt::CaseInsensitive); });
    trigger(*editor_, "mnuUndo");
    --state_;
    dialog.close();
  }
  void edit() {
    const int kind = below(100);
    if (text().size() < 20 || kind < 40) {
      typeLetters();
    } else if (kind < 55) {
      style();
    } else if (kind < 65) {
      cut();
    } else if (kind < 73) {
      paste();
    } else if (kind < 88) {
      undo();
    } else if (kind < 99) {
      redo();
    } else {
      replaceAll();
    }
  }

  /// What stands behind some place becomes a scene of its own, which nobody opens.
  void split() {
    const qsizetype at = below(pane_->Text().size() + 1);
    pane_->setSelStart(at);
    const qsizetype typed = pane_->SelStart();  // no position parts a line end
    QTest::keyClick(pane_, '#');
    change([&](RichText& is) { is.insert(typed, u"#"_s); });
    const RichText behind = text().slice(typed + 1);
    toolkit.expectBox(u"Are you sure you want to split this scene on '#' markers?"_s, Answer::Yes);
    trigger(*editor_, "mnuSplitScene(2)");
    change([&](RichText& is) { is.remove(typed, is.size() - typed); });
    qint32 made = 0;
    for (const auto& one : g_Project->Scenes) {
      made = qMax(made, one->ID());
    }
    expected_[made] = named(behind);
  }

  /// To the neighbour; what was left is in its file then.
  void move() {
    const RichText left = named(text());
    const qint32 leftId = id_;
    const QPointer<frmEditor> leaving(editor_);
    click(*editor_, below(3) == 0 ? "cmdSaveAndPrev" : "cmdSaveAndNext");
    ASSERT_TRUE(waitFor([&] {
      deleteUnloaded();
      return leaving.isNull();
    }));
    ASSERT_EQ(readRtf(scene(leftId)->TextRTF()), left);
    expected_[leftId] = left;
    for (const auto& one : g_Project->Scenes) {
      if (one->EditingScene()) {
        id_ = one->ID();
      }
    }
    enter(editorWindows().first(), id_);
    ASSERT_TRUE(waitUntilActive(*editor_));
  }
  /// As saved, in the fonts that it is seen in.
  static RichText named(RichText text) {
    text.formatCharacters(0, -1, [](CharFormat& format) {
      format.colour.reset();
      format.fontName = u"Arial"_s;
      format.halfPoints = 20;
    });
    return text;
  }

  QRandomGenerator random_{3};
  frmEditor* editor_ = nullptr;
  RichTextBox* pane_ = nullptr;
  qint32 id_ = 0;
  std::vector<RichText> states_;
  size_t state_ = 0;
  RichText clipboard_;
  std::map<qint32, RichText> expected_;
};

TEST_F(EditorWalkTest, WhatAnyEditsHaveMadeOfTheScenesIsWhatIsSavedAndLoadedAgain) {
  enter(open(1), 1);
  for (int visited = 0; visited < kScenes; ++visited) {
    for (int step = 0; step < kEditsEach; ++step) {
      edit();
      ASSERT_EQ(pane_->Text(), text().text()) << "scene " << id_ << ", visit " << visited << ", step " << step;
    }
    if (visited % kVisitsToASplit == 0) {
      split();
      ASSERT_EQ(pane_->Text(), text().text()) << "scene " << id_ << ", split at visit " << visited;
      undo();
      redo();
    }
    ASSERT_NO_FATAL_FAILURE(move()) << "visit " << visited;
  }
  trigger(*editor_, "mnuSaveAndExit");
  deleteUnloaded();
  ASSERT_TRUE(g_Project->SaveQN4(true));
  g_Project = std::make_unique<clsProject>();
  ASSERT_TRUE(g_Project->Load(folder.path(u"Small/Small.qn4"_s), false));
  EXPECT_EQ(expected_.size(), 5U + kScenes / kVisitsToASplit);
  for (const auto& [id, text] : expected_) {
    EXPECT_EQ(readRtf(scene(id)->TextRTF()), text) << id;
  }
}

}  // namespace
