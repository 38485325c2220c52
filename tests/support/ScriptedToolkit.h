#pragma once

#include "core/infra/Toolkit.h"

#include <QStringList>

#include <deque>
#include <functional>

/// Answers from a list, keeps what was asked, and fails the test when something is asked that it was not told
/// to expect or when an answer is left unused. Installs itself for its lifetime.
class ScriptedToolkit : public Toolkit {
 public:
  ScriptedToolkit();
  ~ScriptedToolkit() override;
  ScriptedToolkit(const ScriptedToolkit&) = delete;
  ScriptedToolkit& operator=(const ScriptedToolkit&) = delete;

  /// The next box must hold this text (as a part of its own) and is answered so.
  void expectBox(const QString& text, Answer answer = Answer::Ok);
  /// The next question with named answers must hold this text and is answered with the choice of this name; empty is
  /// none of them.
  void expectChoice(const QString& text, const QString& choice);
  /// The next file, folder or input question is answered with this text, several files a line each; empty is cancel.
  void expectFile(const QString& answer);
  void expectColour(std::optional<quint32> answer);
  /// The next thing asked is the error reporter with this text in it.
  void expectErrorReport(const QString& text);

  QStringList boxes;
  QList<ChoiceQuestion> choices;
  /// The buttons of the box that came last.
  Buttons lastButtons = Buttons::Ok;
  QList<FileQuestion> fileQuestions;
  QStringList errorReports;
  /// Every caption that a progress window showed, and how many windows were made and shown.
  QStringList progressCaptions;
  int progressWindowsMade = 0;
  int progressWindowsShown = 0;
  QStringList openedDocuments;
  QStringList programsRun;
  bool startsPrograms = true;
  QString clipboard;
  Pointer pointer = Pointer::Normal;
  int yields = 0;
  /// Input is held back now; and: somebody was asked something while it was.
  bool inputHeld() const { return holds_ > 0; }
  bool askedWhileHeld = false;
  /// What holds input back where there are windows; nothing by itself.
  std::function<std::unique_ptr<InputHold>()> makeHold = [] { return nullptr; };
  /// Presses the Stop of the progress window that offered one last; nothing where none did.
  std::function<void()> pressStop = [] {};
  /// What happens while the next question with named answers is up, and while the last expected box is; once.
  std::function<void()> onChoice;
  std::function<void()> onBox;
  /// What happens the next time that the program yields; once.
  std::function<void()> onYield;

  Answer MsgBox(const QString& text, Buttons buttons) override;
  int Choose(const ChoiceQuestion& question) override;
  QString InputBox(const QString& prompt, const QString& title, const QString& text) override;
  QString OpenFileDialog(const FileQuestion& question) override;
  QStringList GetFiles(const FileQuestion& question) override;
  QString SaveFileDialog(const FileQuestion& question) override;
  QString PickFolder(const QString& title, const QString& folder) override;
  std::optional<quint32> PickColour(const QString& title, quint32 initial) override;
  void ShowErrorReport(const QString& text, const QString& helpTopic) override;
  void setPointer(Pointer shape) override { pointer = shape; }
  QString clipboardText() override { return clipboard; }
  void setClipboardText(const QString& text) override { clipboard = text; }
  bool openDocument(const QString& pathOrAddress) override;
  bool runProgram(const QString& program, const QStringList& arguments, bool hidden) override;
  void DoEvents() override;
  std::unique_ptr<ProgressWindow> makeProgressWindow() override;
  std::unique_ptr<InputHold> holdInput() override;

 private:
  enum class Kind { Box, Choice, File, Colour, Report };
  struct Expected {
    Kind kind;
    QString text;
    Answer answer = Answer::Ok;
    std::optional<quint32> colour;
    QString choice = {};
  };

  std::optional<Expected> take(Kind kind, const QString& asked);

  std::deque<Expected> script_;
  int holds_ = 0;
};
