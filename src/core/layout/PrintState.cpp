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
  store();
}

void PrintState::store() const {
  Settings().sSet(u"DblSpaced"_s, PrintDoubleSpaced);
  Settings().sSet(u"12Spaced"_s, PrintOneAndHalf);
  Settings().sSet(u"FontSize"_s, static_cast<int>(PrintFontSize));
  Settings().sSet(u"FontName"_s, PrintFontName);
}
