#include "gui/shell/life/FileAssociation.h"

#include "core/infra/cSharedLogging.h"

#include <QSettings>

using namespace Qt::StringLiterals;

QList<RegistryValue> associationValues(const QString& extension, const QString& program, const QString& product) {
  return {{extension, product}, {product + u"/shell/open/command"_s, u'"' + program + u"\" \"%1\""_s}};
}

void registerFileAssociation(const QString& extension, const QString& program, const QString& product) {
  if (product.trimmed().isEmpty()) {
    Logging().LogEvent(u"Product name is blank.  Cannot register extension"_s);
    return;
  }
#ifdef Q_OS_WIN
  QSettings classes(u"HKEY_CURRENT_USER\\Software\\Classes"_s, QSettings::NativeFormat);
  for (const RegistryValue& entry : associationValues(extension, program, product)) {
    classes.setValue(entry.key + u"/."_s, entry.value);
  }
#else
  Q_UNUSED(extension)
  Q_UNUSED(program)
#endif
}
