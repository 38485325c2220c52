#include "support/ScriptedToolkit.h"

#include <gtest/gtest.h>
#include <utility>

namespace {

class RecordingProgress : public ProgressWindow {
 public:
  explicit RecordingProgress(ScriptedToolkit& owner) : owner_(owner) {}
  void Show() override { ++owner_.progressWindowsShown; }
  void Hide() override {}
  void setCaption(const QString& caption) override { owner_.progressCaptions.append(caption); }
  void offerStop(std::function<void()> stop) override { owner_.pressStop = std::move(stop); }

 private:
  ScriptedToolkit& owner_;
};

/// Once.
void happen(std::function<void()>& what) {
  if (const auto happens = std::exchange(what, nullptr)) {
    happens();
  }
}

class CountedHold : public InputHold {
 public:
  CountedHold(int& holds, std::unique_ptr<InputHold> real) : holds_(holds), real_(std::move(real)) { ++holds_; }
  ~CountedHold() override { --holds_; }
  CountedHold(const CountedHold&) = delete;
  CountedHold& operator=(const CountedHold&) = delete;

 private:
  int& holds_;
  std::unique_ptr<InputHold> real_;
};

}  // namespace

ScriptedToolkit::ScriptedToolkit() {
  installToolkit(this);
}

ScriptedToolkit::~ScriptedToolkit() {
  installToolkit(nullptr);
  for (const Expected& left : script_) {
    ADD_FAILURE() << "was never asked: " << left.text;
  }
}

void ScriptedToolkit::expectBox(const QString& text, Answer answer) {
  script_.push_back({Kind::Box, text, answer, {}});
}

void ScriptedToolkit::expectChoice(const QString& text, const QString& choice) {
  script_.push_back({Kind::Choice, text, Answer::Ok, {}, choice});
}

void ScriptedToolkit::expectFile(const QString& answer) {
  script_.push_back({Kind::File, answer, Answer::Ok, {}});
}

void ScriptedToolkit::expectColour(std::optional<quint32> answer) {
  script_.push_back({Kind::Colour, {}, Answer::Ok, answer});
}

void ScriptedToolkit::expectErrorReport(const QString& text) {
  script_.push_back({Kind::Report, text, Answer::Ok, {}});
}

std::optional<ScriptedToolkit::Expected> ScriptedToolkit::take(Kind kind, const QString& asked) {
  askedWhileHeld = askedWhileHeld || inputHeld();
  if (script_.empty() || script_.front().kind != kind) {
    ADD_FAILURE() << "was asked without being told to expect it: " << asked;
    return {};
  }
  const Expected expected = script_.front();
  script_.pop_front();
  return expected;
}

Answer ScriptedToolkit::MsgBox(const QString& text, Buttons buttons) {
  lastButtons = buttons;
  boxes.append(text);
  const auto expected = take(Kind::Box, text);
  if (!expected) {
    return buttons == Buttons::Ok ? Answer::Ok : buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
  }
  EXPECT_TRUE(text.contains(expected->text)) << text << " lacks " << expected->text;
  if (script_.empty()) {
    happen(onBox);
  }
  return expected->answer;
}

int ScriptedToolkit::Choose(const ChoiceQuestion& question) {
  choices.append(question);
  const auto expected = take(Kind::Choice, question.text);
  happen(onChoice);
  if (!expected) {
    return ChoiceQuestion::kNone;
  }
  EXPECT_TRUE(question.text.contains(expected->text)) << question.text << " lacks " << expected->text;
  const auto index = static_cast<int>(question.choices.indexOf(expected->choice));
  EXPECT_TRUE(index >= 0 || expected->choice.isEmpty()) << question.text << " doesn't offer " << expected->choice;
  return index;
}

QString ScriptedToolkit::InputBox(const QString& prompt, const QString&, const QString&) {
  const auto expected = take(Kind::File, prompt);
  return expected ? expected->text : QString();
}

QString ScriptedToolkit::OpenFileDialog(const FileQuestion& question) {
  fileQuestions.append(question);
  const auto expected = take(Kind::File, question.title);
  return expected ? expected->text : QString();
}

QStringList ScriptedToolkit::GetFiles(const FileQuestion& question) {
  return OpenFileDialog(question).split(u'\n', Qt::SkipEmptyParts);
}

QString ScriptedToolkit::SaveFileDialog(const FileQuestion& question) {
  return OpenFileDialog(question);
}

QString ScriptedToolkit::PickFolder(const QString& title, const QString& folder) {
  return OpenFileDialog({title, {}, {}, folder});
}

std::optional<quint32> ScriptedToolkit::PickColour(const QString& title, quint32) {
  const auto expected = take(Kind::Colour, title);
  return expected ? expected->colour : std::nullopt;
}

void ScriptedToolkit::ShowErrorReport(const QString& text, const QString&) {
  errorReports.append(text);
  const auto expected = take(Kind::Report, text);
  if (expected) {
    EXPECT_TRUE(text.contains(expected->text)) << text << " lacks " << expected->text;
  }
}

void ScriptedToolkit::DoEvents() {
  ++yields;
  happen(onYield);
}

bool ScriptedToolkit::openDocument(const QString& pathOrAddress) {
  openedDocuments.append(pathOrAddress);
  return true;
}

bool ScriptedToolkit::runProgram(const QString& program, const QStringList& arguments, bool) {
  programsRun.append((QStringList{program} + arguments).join(u' '));
  return startsPrograms;
}

std::unique_ptr<ProgressWindow> ScriptedToolkit::makeProgressWindow() {
  ++progressWindowsMade;
  return std::make_unique<RecordingProgress>(*this);
}

std::unique_ptr<InputHold> ScriptedToolkit::holdInput() {
  return std::make_unique<CountedHold>(holds_, makeHold());
}
