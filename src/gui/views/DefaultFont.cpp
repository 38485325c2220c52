#include "gui/views/DefaultFont.h"

#include "core/infra/Numbers.h"
#include "core/infra/cSHAREDSettings.h"
#include "gui/views/FontLists.h"

using namespace Qt::StringLiterals;

namespace {

const QString kName = u"EditorFontName"_s;
const QString kSize = u"EditorFontSize"_s;
constexpr double kPoints = 10;
constexpr double kMostPoints = 400;

}  // namespace

DefaultFont DefaultFont::fromSettings() {
  const QString arial = u"Arial"_s;
  const QString name = withoutFoundry(Settings().sGet(kName, arial).toString());
  const double points = Numbers::Val(Settings().sGet(kSize, QString::number(kPoints)).toString().trimmed());
  return {name.isEmpty() ? arial : name, points >= 1 && points <= kMostPoints ? points : kPoints};
}

void DefaultFont::toSettings() const {
  Settings().sSet(kName, name);
  Settings().sSet(kSize, size());
}
