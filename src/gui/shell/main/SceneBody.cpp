#include "gui/shell/main/SceneBody.h"

#include "core/model/clsScene.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorColours.h"
#include "gui/editor/EditorText.h"
#include "gui/toolkit/Controls.h"
#include "gui/views/TextObjects.h"

using namespace Qt::StringLiterals;

SceneBody::SceneBody(QWidget* parent) : RichTextBox(parent) {
  giveName(*this, u"txtBody"_s, u"Scene text"_s);
  makeReadOnly(*this);
  new TextObjects(*this);
}

bool SceneBody::showText(clsScene& scene) {
  const EditorColours colours = EditorColours::fromSettings();
  colours.applyTo(*this);
  const std::optional<quint32> colour = colours.textColour();
  if (sceneID_ == scene.ID() && shown_ == scene.TextRTF() && colour_ == colour) {
    return hasContent_;
  }
  sceneID_ = scene.ID();
  shown_ = scene.TextRTF();
  colour_ = colour;
  RichText text = readRtf(shown_);
  hasContent_ = !text.text().trimmed().isEmpty();
  if (!hasContent_) {
    text = RichText::fromPlain(u"This scene has no content"_s);
  }
  ResetFontColour(text, colour);
  setRichText(text);
  moveCursor(QTextCursor::Start);
  return hasContent_;
}

void SceneBody::clearText() {
  sceneID_ = 0;
  setRichText({});
}
