#include "gui/editor/DictionaryInstaller.h"

#include "core/infra/Toolkit.h"
#include "core/spell/WordListArchive.h"
#include "core/spell/cSharedSpell.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

bool running = false;

}  // namespace

bool DictionaryInstaller::isRunning() {
  return running;
}

bool DictionaryInstaller::run() {
  if (running) {
    return false;
  }
  running = true;
  const auto ended = qScopeGuard([] { running = false; });
  const QString outcome = install();
  if (!cancelled_) {
    toolkit().MsgBox(outcome);
  }
  return !cancelled_;
}

void DictionaryInstaller::Cancel() {
  cancelled_ = true;
  internet_.Cancel();
}

QString DictionaryInstaller::install() {
  Status(u"Downloading dictionary ..."_s);
  internet_.Progress = [this](qint64 received) { tellProgress(received); };
  if (!internet_.GetFile(WordListArchive::address(), WordListArchive::path())) {
    return u"Could not download the dictionary."_s;
  }
  Status(u"Unpacking dictionary ..."_s);
  if (!WordListArchive::unpack()) {
    return u"Could not unpack the dictionary. Bad download?"_s;
  }
  Status(u"Loading dictionary ..."_s);
  Spell().InitDict();
  return Spell().DictAvailable() ? u"Dictionary installed. Spell check enabled."_s : u"Dictionary NOT installed."_s;
}

void DictionaryInstaller::tellProgress(qint64 received) const {
  constexpr qint64 kPercent = 100;
  constexpr qint64 kKilobyte = 1000;
  const qint64 expected = internet_.ExpectedFilesize();
  const QString far =
      expected > 0 ? u"%1%"_s.arg(received * kPercent / expected) : u"%L1 kB"_s.arg(received / kKilobyte);
  Status(u"Downloading dictionary ... "_s + far);
}
