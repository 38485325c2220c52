#pragma once

#include "core/infra/SilentToolkit.h"

/// Nobody who has been told what comes: keeps what is told and asked, gives one answer to every question and one place
/// to every file dialog.
class ListeningToolkit : public SilentToolkit {
 public:
  Answer MsgBox(const QString& text, Buttons buttons) override {
    told.append(text);
    return answer ? *answer : SilentToolkit::MsgBox(text, buttons);
  }
  int Choose(const ChoiceQuestion& question) override {
    told.append(question.text);
    return SilentToolkit::Choose(question);
  }
  void ShowErrorReport(const QString& text, const QString&) override { told.append(text); }
  QString SaveFileDialog(const FileQuestion&) override { return place; }

  QStringList told;
  /// What cancels, where there is none.
  std::optional<Answer> answer;
  QString place;
};
