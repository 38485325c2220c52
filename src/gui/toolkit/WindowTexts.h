#pragma once

#include "core/infra/cSharedLang.h"

class QObject;
class QWidget;

/// What a translation gives back in the place of a text.
using TranslateText = std::function<QString(const FormText&)>;

/// Puts the texts of one control or entry of a menu into another language: caption, tip, hint, titles of tabs and
/// columns, and what a screen reader says. What was English is remembered with the object, so that it can come back.
void translateTexts(QObject& object, const TranslateText& translate);

/// What this shows was named by a writer, or is a name everywhere.
void keepWords(QObject& object);

/// Gives captions of a window other keys where the titles of its menu bar have theirs.
void partKeys(QWidget& window);

/// A window with all that stands in it.
class WindowTexts : public TranslatableForm {
 public:
  explicit WindowTexts(QWidget& window) : window_(window) {}

  void eachText(const TranslateText& translate) override;
  bool fontExists(const QString& family) const override;
  void setFontFamily(const QString& family) override;

 private:
  QWidget& window_;
};
