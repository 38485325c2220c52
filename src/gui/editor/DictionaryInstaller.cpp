#include "gui/editor/DictionaryInstaller.h"

#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/spell/WordListArchive.h"
#include "core/spell/cSharedSpell.h"
#include "gui/toolkit/OverActiveWindow.h"
#include "gui/toolkit/fSHAREDProxy.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

DictionaryInstaller* running = nullptr;

}  // namespace

bool DictionaryInstaller::isRunning() {
  return running != nullptr;
}

bool DictionaryInstaller::run() {
  if (isRunning()) {
    return false;
  }
  running = this;
  const auto ended = qScopeGuard([] { running = nullptr; });
  const QString outcome = install();
  if (!cancelled_ && !outcome.isEmpty()) {
    toolkit().MsgBox(outcome);
  }
  return !cancelled_;
}

void DictionaryInstaller::Cancel() {
  cancelled_ = true;
  internet_.Cancel();
}

void DictionaryInstaller::CancelRunning() {
  if (isRunning()) {
    running->Cancel();
  }
}

QString DictionaryInstaller::install() {
  Status(translated(u"Downloading dictionary ..."_s));
  internet_.Progress = [this](qint64 received) { tellProgress(received); };
  if (!download()) {
    return {};
  }
  Status(translated(u"Unpacking dictionary ..."_s));
  if (!WordListArchive::unpack()) {
    return shownText(u"Could not unpack the dictionary. Bad download?"_s);
  }
  Status(translated(u"Loading dictionary ..."_s));
  Spell().InitDict();
  return Spell().DictAvailable() ? shownText(u"Dictionary installed. Spell check enabled."_s)
                                 : shownText(u"Dictionary NOT installed."_s);
}

// The way to the web may be what is missing: it can be set here, and the download tried again.
bool DictionaryInstaller::download() {
  const ChoiceQuestion question{shownText(u"Could not download the dictionary."_s),
                                {shownText(u"Try again"_s), shownText(u"Proxy settings..."_s)}};
  for (;;) {
    internet_.ApplyProxy();
    if (internet_.GetFile(WordListArchive::address(), WordListArchive::path())) {
      return true;
    }
    const int choice = cancelled_ ? ChoiceQuestion::kNone : toolkit().Choose(question);
    const bool again = choice == 0 || (choice == 1 && OverActiveWindow<fSHAREDProxy>().accepted());
    if (cancelled_ || !again) {
      return false;
    }
  }
}

void DictionaryInstaller::tellProgress(qint64 received) const {
  constexpr qint64 kPercent = 100;
  constexpr qint64 kKilobyte = 1000;
  const qint64 expected = internet_.ExpectedFilesize();
  const QString far =
      expected > 0 ? u"%1%"_s.arg(received * kPercent / expected) : u"%L1 kB"_s.arg(received / kKilobyte);
  Status(translated(u"Downloading dictionary ... %1"_s).arg(far));
}
