#pragma once

#include "core/infra/Toolkit.h"

#include <QStringList>

class SilentProgress : public ProgressWindow {
 public:
  void Show() override {}
  void Hide() override {}
  void setCaption(const QString&) override {}
  void offerStop(std::function<void()>) override {}
};

/// Nobody is at the screen: questions are cancelled, nothing is shown or started.
class SilentToolkit : public Toolkit {
 public:
  Answer MsgBox(const QString&, Buttons buttons) override {
    switch (buttons) {
      case Buttons::Ok:
        return Answer::Ok;
      case Buttons::RetryCancel:
        return Answer::Cancel;
      default:
        return Answer::No;
    }
  }
  int Choose(const ChoiceQuestion& question) override { return question.unattended; }
  QString InputBox(const QString&, const QString&, const QString&) override { return {}; }
  QString OpenFileDialog(const FileQuestion&) override { return {}; }
  QStringList GetFiles(const FileQuestion&) override { return {}; }
  QString SaveFileDialog(const FileQuestion&) override { return {}; }
  QString PickFolder(const QString&, const QString&) override { return {}; }
  std::optional<quint32> PickColour(const QString&, quint32) override { return {}; }
  void ShowErrorReport(const QString&, const QString&) override {}
  void setPointer(Pointer) override {}
  QString clipboardText() override { return {}; }
  void setClipboardText(const QString&) override {}
  bool openDocument(const QString&) override { return false; }
  bool runProgram(const QString&, const QStringList&, bool) override { return false; }
  void DoEvents() override {}
  std::unique_ptr<ProgressWindow> makeProgressWindow() override { return std::make_unique<SilentProgress>(); }
  std::unique_ptr<InputHold> holdInput() override { return std::make_unique<InputHold>(); }
};
