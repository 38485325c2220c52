#include "core/infra/HelpFile.h"

#include "core/infra/Maker.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"

#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString page(const QString& name) {
  return Paths::installed(u"Help/"_s + name + u".html"_s);
}

QString manual() {
  return page(u"index"_s);
}

HelpFile::Window& installedWindow() {
  static HelpFile::Window window;
  return window;
}

}  // namespace

namespace HelpFile {

bool isInstalled() {
  return Files().FileExists(manual());
}

QString address(const QString& topic) {
  if (isInstalled() && !topic.isEmpty() && Files().FileExists(page(topic))) {
    return QUrl::fromLocalFile(page(topic)).toString(QUrl::FullyEncoded);
  }
  QUrl url = isInstalled() ? QUrl::fromLocalFile(manual()) : QUrl(QLatin1String(Maker::kWebAddress) + u"/help"_s);
  if (!topic.isEmpty()) {
    url.setFragment(topic);
  }
  return url.toString(QUrl::FullyEncoded);
}

void installWindow(Window window) {
  installedWindow() = std::move(window);
}

bool open(const QString& topic) {
  const QString where = address(topic);
  return installedWindow() && isInstalled() ? installedWindow()(where) : toolkit().openDocument(where);
}

}  // namespace HelpFile
