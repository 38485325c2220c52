#pragma once

#include "core/infra/Toolkit.h"

/// The toolkit of the running program: Qt's own boxes and dialogs over the window that is active.
class QtToolkit : public Toolkit {
 public:
  QtToolkit();
  Answer MsgBox(const QString& text, Buttons buttons = Buttons::Ok) override;
  int Choose(const ChoiceQuestion& question) override;
  QString InputBox(const QString& prompt, const QString& title, const QString& text) override;
  QString OpenFileDialog(const FileQuestion& question) override;
  QStringList GetFiles(const FileQuestion& question) override;
  QString SaveFileDialog(const FileQuestion& question) override;
  QString PickFolder(const QString& title, const QString& folder) override;
  std::optional<quint32> PickColour(const QString& title, quint32 initial) override;
  void ShowErrorReport(const QString& text, const QString& helpTopic) override;

  void setPointer(Pointer pointer) override;
  QString clipboardText() override;
  void setClipboardText(const QString& text) override;
  bool openDocument(const QString& pathOrAddress) override;
  bool runProgram(const QString& program, const QStringList& arguments, bool hidden) override;
  void DoEvents() override;
  std::unique_ptr<ProgressWindow> makeProgressWindow() override;
  std::unique_ptr<InputHold> holdInput() override;

 private:
  class PointerPause;

  void showPointer(Pointer pointer);

  Pointer pointer_ = Pointer::Normal;
  /// An entry on the application's pointer stack is ours.
  bool overriding_ = false;
};
