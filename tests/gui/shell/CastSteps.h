#pragma once

#include "gui/shell/WalkedBook.h"
#include "support/ModalHelper.h"
#include "support/Required.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

/// What a walk does with characters, locations and items.
class CastSteps : public virtual WalkedBook {
 protected:
  void dragCast() {
    const auto kind = static_cast<size_t>(below(3));
    control<QTabWidget>("TabStrip1").setCurrentIndex(static_cast<int>(kind) + 2);
    const IDs selected = select(scenes(), 1 + below(3));
    ListView& from = list(oneIn(3) ? kCast.at(kind) : kAllCast.at(kind));
    ListView& all = list(kAllCast.at(kind));
    ListView& to = oneIn(2) ? scenes() : oneIn(2) ? all : list(kCast.at(kind));
    // On the scenes that are selected, wherever among them it is dropped.
    const IDs changed = &to == &scenes() ? selected : IDs{scenes().SelectedTag()};
    const IDs dragged = select(from, 1 + below(2));
    EXPECT_FALSE(drag_.drop(from, list(kAllCast.at((kind + 1) % kAllCast.size())), -1));
    EXPECT_EQ(drag_.drop(from, to, to.rowCount() - 1), !dragged.isEmpty());
    for (const qint32 id : dragged.isEmpty() ? IDs() : changed) {
      book_.changeCast(id, kind, dragged, &to != &all);
    }
  }

  /// Chooses in the list window, from the menu.
  void addCast() {
    constexpr std::array kEntries{"mnuAddCharToScene", "mnuAddLocToCurrentScene", "mnuAddItemToCurrentScene"};
    const auto kind = static_cast<size_t>(below(3));
    const IDs scene = select(scenes(), 1);
    const bool sure = !oneIn(4);
    IDs chosen;
    if (scene.isEmpty()) {
      toolkit.expectBox(u"Select a scene first"_s);
      trigger(kEntries.at(kind));
      return;
    }
    const WhenModal whenUp([&](QWidget& form) {
      chosen = select(childOf<ListView>(form, u"ListItems"_s), 1 + below(3));
      childOf<QPushButton>(form, sure ? u"cmdOK"_s : u"cmdCancel"_s).click();
    });
    trigger(kEntries.at(kind));
    if (sure) {
      book_.changeCast(scene.first(), kind, chosen, true);
    }
  }

  /// Removes what is selected in the scene, or makes another character its viewpoint.
  void takeCastOut() {
    constexpr std::array kEntries{"mnuRemoveCharFromScene", "mnuRemoveLocation", "mnuRemoveItem"};
    const auto kind = static_cast<size_t>(below(3));
    const qint32 scene = select(scenes(), 1).value(0);
    control<QTabWidget>("TabStrip1").setCurrentIndex(static_cast<int>(kind) + 2);
    const IDs selected = select(list(kCast.at(kind)), 1 + below(2));
    if (selected.isEmpty()) {
      return;
    }
    if (kind == 0 && oneIn(2)) {
      const qint32 narrator = list(kCast[0]).SelectedTag();
      IDs& cast = book_.scenes[scene].cast[0];
      cast.move(cast.indexOf(narrator), 0);
      trigger("mnuSetVP");
    } else if (kind == 0 && scene == book_.open) {
      toolkit.expectBox(u"Cannot change scene, it's being edited."_s);
      trigger(kEntries[0]);
    } else {
      trigger(kEntries.at(kind));
      book_.changeCast(scene, kind, selected, false);
    }
  }

  /// Deletes, moves or enters one in the window of its kind.
  void manageCast() {
    constexpr std::array kEntries{"mnuEditChar", "mnuAddLocation", "mnuAddItem"};
    const auto kind = static_cast<size_t>(below(3));
    const WhenModal whenUp([&](QWidget& form) {
      auto& rows = childOf<ListView>(form, u"ListItems"_s);
      if (rows.rowCount() < 3 || oneIn(4)) {
        enterNew(form, kind);
      } else if (const qint32 id = select(rows, 1).value(0); oneIn(2)) {
        remove(form, kind, id);
      } else if (const int other = rows.SelectedRow() + 1; kind > 0 && other < rows.rowCount()) {
        press(rows, Qt::Key_Down, Qt::AltModifier);
        EXPECT_EQ(rows.tagAt(other), id);
      }
      childOf<QPushButton>(form, u"cmdCancel"_s).click();
    });
    trigger(kEntries.at(kind));
  }

 private:
  void enterNew(const QWidget& form, size_t kind) {
    const qint32 id = book_.names.at(kind).isEmpty() ? 1 : book_.names.at(kind).lastKey() + 1;
    const QString name = u"New "_s + someWords();
    const WhenModal whenUp([&](QWidget& sheet) {
      childOf<QLineEdit>(sheet, kind == 0 ? u"txtShortName"_s : u"txtTitle"_s).setText(name);
      childOf<QPushButton>(sheet, u"cmdOK"_s).click();
    });
    childOf<QPushButton>(form, u"cmdAdd"_s).click();
    book_.names.at(kind).insert(id, name);
  }

  void remove(const QWidget& form, size_t kind, qint32 id) {
    const bool narrates = kind == 0 && book_.narratesSomewhere(id);
    const bool sure = !oneIn(3);
    if (narrates) {
      toolkit.expectBox(u"You can't delete viewpoint characters."_s);
    } else {
      toolkit.expectBox(u"Are you sure you want to delete "_s + book_.names.at(kind).value(id),
                        sure ? Answer::Yes : Answer::No);
    }
    childOf<QPushButton>(form, u"cmdDel"_s).click();
    if (!narrates && sure) {
      book_.removeCast(kind, id);
    }
  }
};
