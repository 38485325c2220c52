#include "gui/shell/main/SceneBody.h"

#include "core/infra/cSharedLang.h"
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
  const QString none = translated(u"This scene has no content"_s);
  const bool isSame = sceneID_ == scene.ID() && shown_ == scene.TextRTF() && colour_ == colour;
  if (isSame && (hasContent_ || toPlainText() == none)) {
    return hasContent_;
  }
  sceneID_ = scene.ID();
  shown_ = scene.TextRTF();
  colour_ = colour;
  RichText text = readRtf(shown_);
  hasContent_ = !text.text().trimmed().isEmpty();
  if (!hasContent_) {
    text = RichText::fromPlain(none);
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
