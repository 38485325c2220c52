#include "core/exchange/clsQN2Text.h"

#include "core/infra/WholeText.h"
#include "core/persist/OldFolder.h"
#include "core/text/cSharedHTML.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

const QString kMarker = u"<@@@>"_s;
const QString kScene = u"[SCENE]"_s;

}  // namespace

bool clsQN2Text::MarksScenes(const QString& text) {
  return text.contains(kScene, Qt::CaseInsensitive);
}

bool clsQN2Text::LoadText(OldFolder& folder, const QString& name, bool countWords) {
  *this = {};
  const auto bytes = folder.read(name);
  if (bytes) {
    SetText(WholeText::fromBytes(*bytes), countWords);
  }
  return bytes.has_value();
}

void clsQN2Text::SetText(const QString& text, bool countWords) {
  *this = {};
  const qsizetype marker = text.indexOf(kMarker);
  QString body = text;
  if (marker >= 0) {
    Header = text.first(marker);
    body = text.sliced(marker + kMarker.size()).remove(kMarker);
  }
  if (MarksScenes(body)) {
    QStringList spans = body.split(kScene, Qt::KeepEmptyParts, Qt::CaseInsensitive);
    Front = spans.takeFirst();
    for (QString& span : spans) {
      Scenes.emplace_back(std::move(span));
    }
  } else {
    Scenes.push_back(clsQN2Scene::ofWholeText(body));
  }
  if (countWords) {
    for (clsQN2Scene& scene : Scenes) {
      scene.Wordcount = Html().CalcWordCount(scene.Text);
    }
  }
}
