#include "gui/shell/main/SceneBody.h"

#include "core/model/clsScene.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorColours.h"
#include "gui/editor/EditorText.h"
#include "gui/toolkit/Controls.h"

using namespace Qt::StringLiterals;

SceneBody::SceneBody(QWidget* parent) : RichTextBox(parent) {
  giveName(*this, u"txtBody"_s, u"Scene text"_s);
  makeReadOnly(*this);
}

void SceneBody::showText(const clsScene& scene) {
  const EditorColours colours = EditorColours::fromSettings();
  colours.applyTo(*this);
  RichText text = readRtf(scene.TextRTF());
  if (text.plainText().trimmed().isEmpty()) {
    text = RichText::fromPlain(u"This scene has no content"_s);
  }
  ResetFontColour(text, colours.textColour());
  setRichText(text);
  moveCursor(QTextCursor::Start);
}

void SceneBody::clearText() {
  setRichText({});
}
