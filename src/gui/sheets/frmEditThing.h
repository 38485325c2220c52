#pragma once

#include "gui/sheets/Sheet.h"

class MemoEdit;

/// The sheet of a location or an item, which differ in its name and caption.
class frmEditThing : public SheetOf<ThingDetails> {
  Q_OBJECT

 public:
  explicit frmEditThing(const SubjectOf<ThingDetails>& subject, QWidget* parent = nullptr);

 private:
  void DataToForm(const ThingDetails& details) override;
  void writeTo(ThingDetails& details) const override;

  QLineEdit* txtTitle = nullptr;
  MemoEdit* txtDesc = nullptr;
  QLineEdit* txtTags = nullptr;
};
