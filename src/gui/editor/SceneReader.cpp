#include "gui/editor/SceneReader.h"

#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"

#include <QString>

using namespace Qt::StringLiterals;

void viewInReader(const QByteArray& rtf) {
  const QString name = u"plbook_temp_text.plrtf"_s;
  for (const QString& folder : {Paths::programFolder(), Paths::temporaryFolder()}) {
    if (!Files().WriteTextFile(folder + name, QByteArrayView(rtf))) {
      continue;
    }
    if (!toolkit().openDocument(folder + name)) {
      toolkit().MsgBox(translated(u"No program could be started that opens this file:\n%1"_s).arg(folder + name));
    }
    return;
  }
  toolkit().MsgBox(translated(u"The text could not be written to a file for the reader:\n%1"_s)
                       .arg(Paths::temporaryFolder() + name));
}
