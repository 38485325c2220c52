#pragma once

#include "gui/editor/EditorTab.h"

class MemoEdit;

/// The tab "Scene Notes".
class NotesTab : public EditorTab {
  Q_OBJECT

 public:
  explicit NotesTab(QWidget* parent = nullptr);

  void DataToForm(clsScene& scene) override;
  void FormToData(clsScene& scene) const override;
  const char* sign() const override;

 private:
  MemoEdit* txtNotes;
};
