#include "gui/toolkit/Mnemonics.h"

#include <QAction>
#include <QObject>
#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString assigned(const QStringList& captions) {
  QObject owner;
  QList<QAction*> actions;
  for (const QString& caption : captions) {
    actions += new QAction(caption, &owner);
  }
  assignMnemonics(actions);
  assignMnemonics(actions);  // As when the menu is shown again.
  QStringList texts;
  for (const QAction* action : actions) {
    texts += action->text();
  }
  return texts.join(u", "_s);
}

}  // namespace

TEST(Mnemonics, EveryCaptionHasALetterOfItsOwnAsLongAsThereAreLetters) {
  EXPECT_EQ(assigned({u"File"_s, u"Search"_s, u"Chapter"_s, u"Scene"_s, u"Characters"_s, u"Language"_s, u"Help"_s}),
            u"&File, &Search, &Chapter, Sc&ene, Ch&aracters, &Language, &Help"_s);
  EXPECT_EQ(assigned({u"Save"_s, u"Save As..."_s, u"Sav"_s, u"v"_s, u"12 point"_s}),
            u"Sav&e, Save &As..., &Sav, &v, &12 point"_s);
}

TEST(Mnemonics, AnAccentedLetterIsTheLast) {
  EXPECT_EQ(assigned({u"Élan"_s, u"Сцена"_s, u"é"_s}), u"É&lan, &Сцена, &é"_s);
}

TEST(Mnemonics, AnAmpersandThatIsShownStaysOne) {
  EXPECT_EQ(assigned({u"&& Sons && Daughters"_s, u"Sun && &Moon"_s}), u"&& &Sons && Daughters, Sun && &Moon"_s);
  EXPECT_EQ(withoutMnemonic(u"Sun && &Moon &"_s), u"Sun & Moon &"_s);
}

TEST(Mnemonics, HiddenEntriesTakeNoLetter) {
  QObject owner;
  QAction hidden(u"Save"_s);
  QAction shown(u"Settings"_s);
  hidden.setVisible(false);
  assignMnemonics({&hidden, &shown});
  EXPECT_EQ(shown.text(), u"&Settings"_s);
  EXPECT_EQ(hidden.text(), u"Save"_s);
}
