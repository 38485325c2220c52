#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

/// Cut, copy and paste of a window's menu: in the field that has the keyboard, else in the window's text; and what such
/// a field can undo. An open menu doesn't take the keyboard in this sense, nor does another window.
class FieldClipboard : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the text.
  explicit FieldClipboard(QWidget& text);

  bool canCut() const;
  bool canCopy() const;
  bool canPaste() const;
  void cut();
  void copy();
  void paste();

  /// A field has the keyboard that isn't the text and can be written in.
  bool writesInField() const;
  // Of such a field alone.
  bool canUndo() const;
  bool canRedo() const;
  void undo();
  void redo();

 private:
  void follow(QWidget* focused);
  QWidget& field() const;

  QWidget& text_;
  QPointer<QWidget> field_;
};
