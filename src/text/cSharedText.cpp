#include "text/cSharedText.h"

bool cSharedText::StringsEqual(QStringView a, QStringView b) {
  return a.trimmed().compare(b.trimmed(), Qt::CaseInsensitive) == 0;
}
