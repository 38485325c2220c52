#include "gui/toolkit/Mnemonics.h"

#include <QAction>
#include <QHash>
#include <QSet>
#include <QStringList>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Who has which letter.
class Letters {
 public:
  explicit Letters(const QStringList& captions) : captions_(captions), places_(captions.size(), -1) {}

  qsizetype placeOf(qsizetype caption) const { return places_[caption]; }

  /// Beginnings of words are given out first, to all captions; only what goes without takes another letter.
  void giveOut() {
    const auto each = [this](auto give) {
      for (qsizetype caption = 0; caption < captions_.size(); ++caption) {
        if (places_[caption] < 0) {
          give(caption);
        }
      }
    };
    for (const Wanted wanted : {Wanted::Beginnings, Wanted::Plain}) {
      each([&](qsizetype caption) { takeFree(caption, wanted); });
    }
    each([this](qsizetype caption) {
      QSet<QChar> tried;
      takeAny(caption, tried);
    });
    each([this](qsizetype caption) { takeFree(caption, Wanted::Accented); });
  }

 private:
  enum class Wanted { Beginnings, Plain, Accented };

  QChar letterAt(qsizetype caption, qsizetype at) const { return captions_[caption][at].toLower(); }

  bool suits(qsizetype caption, qsizetype at, Wanted wanted) const {
    const QString& text = captions_[caption];
    const bool begins = at == 0 || !text[at - 1].isLetterOrNumber();
    return text[at].isLetterOrNumber() && isAccented(text[at]) == (wanted == Wanted::Accented) &&
           (begins || wanted != Wanted::Beginnings);
  }

  void take(qsizetype caption, qsizetype at) {
    places_[caption] = at;
    owners_.insert(letterAt(caption, at), caption);
  }

  void takeFree(qsizetype caption, Wanted wanted) {
    for (qsizetype at = 0; at < captions_[caption].size(); ++at) {
      if (suits(caption, at, wanted) && !owners_.contains(letterAt(caption, at))) {
        take(caption, at);
        return;
      }
    }
  }

  /// Also a letter whose owner finds another one; one that he has at the beginning of a word comes last.
  bool takeAny(qsizetype caption, QSet<QChar>& tried) {
    for (const bool ofBeginnings : {false, true}) {
      for (qsizetype at = 0; at < captions_[caption].size(); ++at) {
        const QChar letter = letterAt(caption, at);
        const auto owner = owners_.constFind(letter);
        const bool isOwned = owner != owners_.cend();
        if (!suits(caption, at, Wanted::Plain) || tried.contains(letter) ||
            (isOwned && suits(*owner, places_[*owner], Wanted::Beginnings) != ofBeginnings)) {
          continue;
        }
        tried.insert(letter);
        if (!isOwned || takeAny(*owner, tried)) {
          take(caption, at);
          return true;
        }
      }
    }
    return false;
  }

  const QStringList captions_;
  QList<qsizetype> places_;
  QHash<QChar, qsizetype> owners_;
};

QString marked(const QString& caption, qsizetype at) {
  QString text = QString(caption).replace(u'&', u"&&"_s);
  return at < 0 ? text : text.insert(at + caption.first(at).count(u'&'), u'&');
}

}  // namespace

QString withoutMnemonic(const QString& text) {
  QString caption;
  caption.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    i += text[i] == u'&' && i + 1 < text.size() ? 1 : 0;
    caption += text[i];
  }
  return caption;
}

bool isAccented(QChar letter) {
  constexpr char16_t kBehindAscii = 0x80;
  return letter.unicode() >= kBehindAscii && letter.script() == QChar::Script_Latin;
}

void assignMnemonics(const QList<QAction*>& actions) {
  QList<QAction*> shown = actions;
  shown.removeIf([](const QAction* action) { return action->isSeparator() || !action->isVisible(); });
  QStringList captions;
  for (const QAction* const action : std::as_const(shown)) {
    captions.append(withoutMnemonic(action->text()));
  }
  Letters letters(captions);
  letters.giveOut();
  for (qsizetype i = 0; i < shown.size(); ++i) {
    if (const QString text = marked(captions[i], letters.placeOf(i)); text != shown[i]->text()) {
      shown[i]->setText(text);
    }
  }
}
