#pragma once

#include "core/spell/TextMarks.h"
#include "core/spell/WordLists.h"
#include "core/spell/cDict.h"

#include <QString>
#include <QStringView>

#include <array>

/// The spell checker over seven word lists. Nothing is read before the first check. It knows words and positions, and
/// no window: an editor colours what it is told.
class cSharedSpell {
 public:
  bool Initialised() const { return initialised_; }
  /// Whether a list besides the custom one was loaded; false until the load has ended.
  bool Available() const { return available_; }
  /// The lists, the custom one first.
  const std::array<cDict, WordLists::kCount>& Dicts() const { return dicts_; }

  /// Whether there is a list to check with, found out without reading any: for the start, and for menus.
  bool DictionaryFound() const;
  /// The same for sure: the lists are read first if they weren't yet.
  bool DictAvailable();
  /// Reads all lists, anew when they were read before. Yields to the message loop meanwhile; who asks then finds none
  /// available.
  void InitDict();
  /// Reads the lists a little at a time, a few milliseconds at a call, for when there is nothing else to do. True once
  /// there is nothing left to read.
  bool LoadSome();

  /// Numbers and dates are right, and what a list holds as it stands or without its "'s".
  bool WordOK(QStringView word);
  /// What is to be marked in a text; nothing without a dictionary.
  TextMarks Misspellings(const QString& text);
  void CleanUpScene(QString& text) const;

  /// From now on the word, or the piece of text, is right: what in it a check would still mark is added piece by piece,
  /// and so is a word as a whole, but no more than one together.
  /// Empty when it is on disk, else why not, as it may be told; it is right in this run all the same, and is written
  /// with the next one.
  QString AddWordToCustomDict(const QString& word);
  /// Tries again to write what could not be written; for the end of the program.
  QString SaveCustomDict() { return dicts_[WordLists::kCustom].SaveNewWords(); }

  /// Tells how to install the lists by hand.
  void ShowInstructions() const;

 private:
  bool isListed(QStringView word) const;
  void beginLoad();
  void finishLoad();
  void load();

  bool initialised_ = false;
  /// All that there are to read were read.
  bool loaded_ = false;
  bool finishing_ = false;
  /// The list that is being read.
  size_t reading_ = 0;
  bool available_ = false;
  std::array<cDict, WordLists::kCount> dicts_;
};

/// The application's one instance.
cSharedSpell& Spell();
