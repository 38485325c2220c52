#pragma once

#include "gui/shell/WalkedBook.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/Required.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

/// What a walk finds in the book, and replaces.
class SearchSteps : public virtual WalkedBook {
 protected:
  /// From the first chapter on, a few matches further, and one back.
  void find() {
    const QString term = someTerm();
    const QList<Hit> hits = hitsOf(term);
    trigger("mnuFind");
    auto& dialog = childOf<QDialog>(window(), u"frmFind"_s);
    childOf<QComboBox>(dialog, u"cmbFind"_s).setEditText(term);
    const auto expectAt = [&](qsizetype wanted, const std::function<void()>& act) {
      if (wanted < 0 || wanted >= hits.size()) {
        toolkit.expectBox(u"No match"_s);
        act();
        return;
      }
      act();
      EXPECT_EQ(scenes().SelectedTags(), IDs{hits[wanted].scene});
      EXPECT_EQ(control<RichTextBox>("txtBody").SelStart(), hits[wanted].place);
      EXPECT_EQ(control<RichTextBox>("txtBody").SelText(), term);
    };
    qsizetype at = 0;
    expectAt(at, [&] { childOf<QPushButton>(dialog, u"cmdFind"_s).click(); });
    dialog.close();
    for (int further = below(5); further > 0 && at < hits.size(); --further) {
      expectAt(++at, [&] { trigger("cmdFindNext"); });
    }
    if (at < hits.size()) {
      qsizetype before = at - 1;
      while (before >= 0 && hits[before].scene == hits[at].scene && hits[before].place + term.size() > hits[at].place) {
        --before;
      }
      expectAt(before, [&] { trigger("mnuFindPrev"); });
    }
  }

  void replace() {
    const QString term = someTerm();
    const QString with = someWords();
    const bool minded = oneIn(2);
    if (book_.open != 0 || (minded && term == with)) {
      EXPECT_EQ(isEnabled("mnuGlobalReplace"), book_.open == 0);
      return;
    }
    qsizetype count = 0;
    for (ShadowBook::Scene& scene : book_.scenes) {
      const QStringList parts = scene.text.split(term);
      count += parts.size() - 1;
      scene.text = parts.join(with);
      scene.title = minded ? scene.title.replace(term, with) : scene.title;
    }
    trigger("mnuGlobalReplace");
    auto& form = childOf<QDialog>(window(), u"frmGlobalReplace"_s);
    childOf<QLineEdit>(form, u"txtLookfor"_s).setText(term);
    childOf<QLineEdit>(form, u"txtReplaceWith"_s).setText(with);
    childOf<QCheckBox>(form, u"chkCaseSensitive"_s).setChecked(minded);
    toolkit.expectBox(u"Replaced %1 occurrences"_s.arg(QLocale().toString(count)));
    childOf<QPushButton>(form, u"cmdOK"_s).click();
    form.close();
    comeBack();
  }

 private:
  /// A word or a part of one, most often of some scene.
  QString someTerm() {
    const ShadowBook::Scene scene = book_.scenes.values().value(below(book_.scenes.size()));
    const QStringList words = (oneIn(4) ? someWords() : scene.text).split(u' ', Qt::SkipEmptyParts);
    const QString word = words.value(below(words.size()), u"none"_s);
    return word.left(1 + below(word.size()));
  }

  struct Hit {
    qint32 scene;
    qsizetype place;
  };
  QList<Hit> hitsOf(const QString& term) const {
    QList<Hit> hits;
    for (const qint32 chapter : book_.order) {
      for (const qint32 id : book_.chapters[chapter].scenes) {
        const QString& text = book_.scenes[id].text;
        for (qsizetype at = text.indexOf(term); at >= 0; at = text.indexOf(term, at + 1)) {
          hits.append({id, at});
        }
      }
    }
    return hits;
  }
};
