#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

/// The person at the screen, behind one interface. The core asks through it and draws nothing itself.
class ProgressWindow {
 public:
  virtual ~ProgressWindow() = default;
  virtual void Show() = 0;
  virtual void Hide() = 0;
  virtual void setCaption(const QString& caption) = 0;
  /// To be called before Show: the window has a Stop button then, which Escape presses too. `stop` is called once.
  virtual void offerStop(std::function<void()> stop) = 0;
};

/// While it lives, what the user types and clicks, and a closing of windows, goes nowhere. Modal windows are answered
/// as usual, and the Stop of a progress window can be pressed.
class InputHold {
 public:
  virtual ~InputHold() = default;
};

/// NoUnlessYes is YesNo in which Enter says No and a typed letter nothing. YesNoOrBack has Cancel too, which closing
/// the box without a choice is, so that neither is taken for it.
enum class Buttons { Ok, YesNo, NoUnlessYes, YesNoOrBack, RetryCancel };
enum class Answer { Ok, Yes, No, Retry, Cancel };
enum class Pointer { Normal, Busy, Background };

struct FileQuestion {
  QString title;
  /// Patterns parted by ";", such as "*.qn3;*.qn4".
  QString filter;
  QString defaultName;
  QString folder;
};

/// A question whose answers are named. An index stands for a choice.
struct ChoiceQuestion {
  /// Escape, or the box closed.
  static constexpr int kNone = -1;

  QString text;
  /// Cancel stands behind them.
  QStringList choices;
  /// What Enter takes.
  int byDefault = 0;
  /// What is taken when nobody is there to answer.
  int unattended = kNone;
};

class Toolkit {
 public:
  virtual ~Toolkit() = default;

  /// Modal. Closing the box without a choice is Ok, No or Cancel.
  virtual Answer MsgBox(const QString& text, Buttons buttons = Buttons::Ok) = 0;
  /// Modal. The index of the choice, or kNone.
  virtual int Choose(const ChoiceQuestion& question) = 0;
  /// Modal; the default text is offered. Empty on cancel.
  virtual QString InputBox(const QString& prompt, const QString& title, const QString& text) = 0;
  /// Full path in the platform's form, or empty on cancel.
  virtual QString OpenFileDialog(const FileQuestion& question) = 0;
  /// The same for one or more files; none on cancel.
  virtual QStringList GetFiles(const FileQuestion& question) = 0;
  virtual QString SaveFileDialog(const FileQuestion& question) = 0;
  virtual QString PickFolder(const QString& title, const QString& folder) = 0;
  /// Colours are 24-bit numbers in blue-green-red order. Nothing on cancel.
  virtual std::optional<quint32> PickColour(const QString& title, quint32 initial) = 0;
  /// The modal error reporter.
  virtual void ShowErrorReport(const QString& text, const QString& helpTopic) = 0;

  virtual void setPointer(Pointer pointer) = 0;
  virtual QString clipboardText() = 0;
  virtual void setClipboardText(const QString& text) = 0;
  /// Opens a document or web address in its program. False when nothing could be started.
  virtual bool openDocument(const QString& pathOrAddress) = 0;
  virtual bool runProgram(const QString& program, const QStringList& arguments, bool hidden) = 0;
  /// Yields to the message loop once.
  virtual void DoEvents() = 0;
  virtual std::unique_ptr<ProgressWindow> makeProgressWindow() = 0;
  [[nodiscard]] virtual std::unique_ptr<InputHold> holdInput() = 0;
};

/// The installed toolkit; a silent one that cancels every question until one is installed.
Toolkit& toolkit();
/// Installs a toolkit that the caller keeps alive; null goes back to the silent one.
void installToolkit(Toolkit* toolkit);
