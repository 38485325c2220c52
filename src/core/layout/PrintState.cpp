#include "core/layout/PrintState.h"

#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"

using namespace Qt::StringLiterals;

PrintState PrintState::current() {
  return {g_DblSpaced, g_12Spaced, g_FontSize, g_FontName};
}

void PrintState::makeCurrent() const {
  g_DblSpaced = PrintDoubleSpaced;
  g_12Spaced = PrintOneAndHalf;
  g_FontSize = PrintFontSize;
  g_FontName = PrintFontName;
  Settings().sSet(u"DblSpaced"_s, g_DblSpaced);
  Settings().sSet(u"12Spaced"_s, g_12Spaced);
  Settings().sSet(u"FontSize"_s, static_cast<int>(g_FontSize));
  Settings().sSet(u"FontName"_s, g_FontName);
}
