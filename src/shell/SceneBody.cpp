#include "shell/SceneBody.h"

#include "editor/EditorColours.h"
#include "editor/EditorText.h"
#include "model/clsScene.h"
#include "text/Rtf.h"
#include "toolkit/ReadOnlyText.h"

using namespace Qt::StringLiterals;

SceneBody::SceneBody(QWidget* parent) : RichTextBox(parent) {
  setObjectName(u"txtBody"_s);
  setAccessibleName(u"Scene text"_s);
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
