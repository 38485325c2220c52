#include "core/infra/HelpFile.h"

#include "core/infra/Maker.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QString manual() {
  return Paths::installed(u"Help/index.html"_s);
}

}  // namespace

namespace HelpFile {

bool isInstalled() {
  return Files().FileExists(manual());
}

QString address(const QString& topic) {
  QUrl url = isInstalled() ? QUrl::fromLocalFile(manual()) : QUrl(QLatin1String(Maker::kWebAddress) + u"/help"_s);
  if (!topic.isEmpty()) {
    url.setFragment(topic);
  }
  return url.toString(QUrl::FullyEncoded);
}

bool open(const QString& topic) {
  return toolkit().openDocument(address(topic));
}

}  // namespace HelpFile
