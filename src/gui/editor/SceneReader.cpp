#include "gui/editor/SceneReader.h"

#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"

#include <QString>

using namespace Qt::StringLiterals;

void viewInReader(const QByteArray& rtf) {
  const QString name = u"plbook_temp_text.plrtf"_s;
  for (const QString& folder : {Paths::programFolder(), Paths::temporaryFolder()}) {
    if (!Files().WriteTextFile(folder + name, QByteArrayView(rtf))) {
      continue;
    }
    if (!toolkit().openDocument(folder + name)) {
      toolkit().MsgBox(u"No program could be started that opens this file:\n"_s + folder + name);
    }
    return;
  }
  toolkit().MsgBox(u"The text could not be written to a file for the reader:\n"_s + Paths::temporaryFolder() + name);
}
