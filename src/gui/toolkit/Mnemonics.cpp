#include "gui/toolkit/Mnemonics.h"

#include <QAction>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

/// The place of a letter that nobody has yet, at the beginning of a word or anywhere; -1 when all are taken.
qsizetype freeLetter(const QString& caption, const QSet<QChar>& taken, bool beginningOfWord) {
  for (qsizetype i = 0; i < caption.size(); ++i) {
    const bool begins = i == 0 || !caption[i - 1].isLetterOrNumber();
    if (caption[i].isLetterOrNumber() && (begins || !beginningOfWord) && !taken.contains(caption[i].toLower())) {
      return i;
    }
  }
  return -1;
}

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

// Beginnings of words are given out first, to all captions; only what goes without takes another letter.
void assignMnemonics(const QList<QAction*>& actions) {
  QList<QAction*> open = actions;
  open.removeIf([](const QAction* action) { return action->isSeparator() || !action->isVisible(); });
  QSet<QChar> taken;
  for (const bool beginningOfWord : {true, false}) {
    for (QAction*& action : open) {
      const QString caption = withoutMnemonic(action->text());
      const qsizetype at = freeLetter(caption, taken, beginningOfWord);
      if (at < 0 && beginningOfWord) {
        continue;
      }
      if (at >= 0) {
        taken.insert(caption[at].toLower());
      }
      if (const QString text = marked(caption, at); text != action->text()) {
        action->setText(text);
      }
      action = nullptr;
    }
    open.removeAll(nullptr);
  }
}
