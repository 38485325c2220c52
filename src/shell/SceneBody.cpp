#include "shell/SceneBody.h"

#include "infra/Numbers.h"
#include "infra/cSHAREDSettings.h"
#include "model/clsScene.h"
#include "toolkit/Colours.h"

using namespace Qt::StringLiterals;

SceneBody::SceneBody(QWidget* parent) : QTextEdit(parent) {
  setObjectName(u"txtBody"_s);
  setAccessibleName(u"Scene text"_s);
  setReadOnly(true);
  setTabChangesFocus(true);
}

void SceneBody::showText(clsScene& scene) {
  const QString text = scene.ConvertedToBodyText();
  setPlainText(text.trimmed().isEmpty() ? u"This scene has no content"_s : text);
}

void SceneBody::clearText() {
  clear();
}
