#include "core/exchange/PublishingScript.h"

#include "core/exchange/LogFolder.h"
#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"

#include <QCryptographicHash>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isWindows() {
  return Paths::separator() == u'\\';
}

bool isComment(QByteArray line) {
  line = line.trimmed().toLower();
  if (!isWindows()) {
    return line.isEmpty() || line.startsWith('#');
  }
  return line.isEmpty() || line == "@echo off" || line.startsWith("rem ") || line.startsWith("@rem ") ||
         line.startsWith("::");
}

/// As the one that comes with the program.
bool doesNothing(const QByteArray& script) {
  const QList<QByteArray> lines = script.split('\n');
  const QString ours = Paths::installed(u"WebTemplate"_s) + Paths::separator() + PublishingScript::name();
  return std::all_of(lines.begin(), lines.end(), isComment) || script == readWholeFile(ours);
}

/// Of the present book; empty for one that needs no answer.
QByteArray scriptToRun() {
  QByteArray script;
  if (g_Project->HasPlace()) {
    Guard("WriteProgressLog", "modProgressLog")([&] { script = LogFolder(*g_Project).read(PublishingScript::name()); });
  }
  return doesNothing(script) ? QByteArray() : script;
}

/// Of this script in this folder: another one has to be asked about again.
QString settingOf(const QByteArray& script) {
  QCryptographicHash hash(QCryptographicHash::Sha256);
  hash.addData(Paths::identity(g_Project->Path()).toUtf8() + '\n' + script);
  return u"PublishingScript_"_s + QString::fromLatin1(hash.result().toHex());
}

void runScript(const QByteArray& script) {
  const QString path = LogFolder(*g_Project).pathOf(PublishingScript::name());
  if (!isWindows() && !script.startsWith("#!")) {
    Logging().LogEvent(path + u" was not run: its first line doesn't say by what"_s);
    return;
  }
  QFile::setPermissions(path, QFile::permissions(path) | QFile::ExeOwner | QFile::ExeUser);
  if (!Files().RunFileHidden(path)) {
    Logging().LogEvent(path + u" could not be run"_s);
  }
}

}  // namespace

QString PublishingScript::name() {
  return isWindows() ? u"copyto.bat"_s : u"copyto.sh"_s;
}

void PublishingScript::ask() {
  const QByteArray script = scriptToRun();
  if (script.isEmpty() || Settings().IsSettingPresent(settingOf(script))) {
    return;
  }
  const QString setting = settingOf(script);
  const QString question =
      translated(
          u"This project has a publishing script:\n%1\n\nRun it after each save? A script can do anything that "
          "you can do on this computer: say Yes only to one that you have written or looked through "
          "yourself."_s)
          .arg(LogFolder(*g_Project).pathOf(name()));
  const bool allowed = toolkit().MsgBox(question, Buttons::NoUnlessYes) == Answer::Yes;
  Settings().sSet(setting, allowed);
  Settings().SaveSettings(g_SettingsFile);
  run();
}

// What stands there now may be another script than the one that was asked about.
bool PublishingScript::run() {
  const QByteArray script = scriptToRun();
  if (script.isEmpty()) {
    return false;
  }
  const QString setting = settingOf(script);
  const bool isUnasked = !Settings().IsSettingPresent(setting);
  if (Settings().RetrieveWithDefault(setting, 0).toInt() != 0) {
    runScript(script);
  }
  return isUnasked;
}
