#pragma once

#include "gui/editor/EditorTab.h"

#include <QHash>

class ElidedLabel;
class QPlainTextEdit;

/// The tab "Viewpoint Details": who tells the scene. Nothing is edited here.
class ViewpointTab : public EditorTab {
  Q_OBJECT

 public:
  explicit ViewpointTab(QWidget* parent = nullptr);

  /// 0 is nobody.
  void DisplayCharacter(qint32 id);

  void DataToForm(clsScene&) override {}
  void FormToData(clsScene&) const override {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  ElidedLabel* lblFullName;
  ElidedLabel* lblAltNames;
  QPlainTextEdit* txtCharDesc;
  QPlainTextEdit* txtCharNotes;
  /// The character that a double click edits, by the widget that is clicked on.
  QHash<const QObject*, qint32> opens_;
};
