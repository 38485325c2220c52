#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>
#include <vector>

/// One text of a window.
struct FormText {
  /// As it stands there.
  QString shown;
  /// What a translation has taken the place of; null where nothing has.
  QString english = {};
};

/// A window whose texts can be put into another language. What a writer has typed is none of them.
class TranslatableForm {
 public:
  virtual ~TranslatableForm() = default;
  /// Goes through all texts that aren't empty; what comes back takes a text's place.
  virtual void eachText(const std::function<QString(const FormText&)>& translate) = 0;
  virtual bool fontExists(const QString& family) const = 0;
  /// The font of all that isn't a symbol; empty for what the window had of itself.
  virtual void setFontFamily(const QString& family) = 0;
};

/// A list to choose a language from.
class LanguageList {
 public:
  virtual ~LanguageList() = default;
  virtual void clear() = 0;
  virtual void add(const QString& title) = 0;
  virtual void select(const QString& title) = 0;
};

/// Puts the program's texts into a language that stands in a file: "English||translated", an entry a line. What has no
/// entry stays English. Two remarks in it are read: "#font:Name", and "#colon:" with what stands for a colon at the end
/// of a caption, a blank in front included.
class cSharedLang {
 public:
  /// "Languages" is looked for in this folder from now on; nothing when it isn't there.
  void OverrideLanguagePath(const QString& folder);
  int LanguageCount() const { return static_cast<int>(titles_.size()); }
  /// Languages count from 1, 0 is English; empty for a bad index.
  QString LanguageTitle(int index) const;
  /// The index of a title; -1 for one that isn't there.
  int LanguageIndex(const QString& title) const;
  const QString& CurrentLanguage() const { return current_; }
  bool IsEnglish() const;
  /// What the language wants to be written in; empty when it doesn't care.
  const QString& LanguageFont() const { return font_; }
  /// What stands for a colon behind a title, a blank in front included.
  const QString& Colon() const { return colon_.translated; }

  /// Of two folders that hold a language of one title the program's own folder goes first.
  void LoadAllLanguages();
  /// 0 is English. A language whose file can't be read leaves the one that is in force.
  void LoadLanguage(int index);
  void RevertToEnglish();
  void FillLanguageList(LanguageList& list);
  void SetListToSelected(LanguageList& list) const;

  /// By the exact text. After a return to English the entries lead back.
  QString GetTranslation(const QString& text) const;
  /// The same for what a window shows: one entry serves a caption with and without mark of a key, dots, colon and
  /// blanks around it. A translation that has lost a place ("%1") isn't used.
  QString TranslationOf(const QString& text) const;
  /// The same without the marks of keys that a translation may have.
  QString WordsOf(const QString& text) const;
  /// The entry that such a text is looked up by.
  static QString KeyOf(const QString& text);

  void TranslateForm(TranslatableForm& form);
  void Localise(TranslatableForm& form, int index);

  /// Where languages are looked for, the program's own folder first.
  QStringList LanguageFolders() const;
  /// Gathers the texts of these windows, the last one first, in FormsText.txt. False when that can't be written.
  bool GenerateLanguageTemplate(const QList<TranslatableForm*>& forms) const;
  /// Gives every language of the folder the entries of its template.txt that it lacks, in English.
  void UpdateTemplates(const QString& folder);

 private:
  struct Entry {
    QString english;
    QString translated;
  };
  struct Language {
    QString font;
    QString colon = QStringLiteral(":");
    std::vector<Entry> entries;
  };

  void listFolder(const QString& folder);
  static Language read(const QString& text);
  static void sort(std::vector<Entry>& entries);
  const Entry* find(const QString& text) const;
  /// Back in English: a text that has never been anything else.
  bool isEnglishText(const QString& text) const;
  void ChangeFont(TranslatableForm& form);
  static void WriteStrings(TranslatableForm& form, QStringList& lines);
  static void updateTemplate(const QString& path, const QStringList& wanted);

  QString path_;
  /// The full paths, and what stands in them.
  QStringList files_;
  QStringList titles_;
  std::vector<Entry> strings_;
  /// The English texts, while the entries lead back.
  QSet<QString> english_;
  QString current_ = QStringLiteral("English");
  QString font_;
  Entry colon_{QStringLiteral(":"), QStringLiteral(":")};
  QStringList missingFonts_;
};

/// The application's one.
cSharedLang& Lang();

/// A text of the program in the language that is in force, as cSharedLang::WordsOf; one of toldText() too. What is
/// filled in comes behind: translated(u"%1 words"_s).arg(count).
QString translated(const QString& text);
/// The same for a place where an ampersand marks a key.
QString translatedCaption(const QString& text);
/// A title in the language that is in force, as a caption of what stands beside or behind it.
QString withColon(const QString& title);
/// A message of several lines: as a whole where that has an entry, else line by line.
QString translatedLines(const QString& text);

/// Marks a text that is translated where it is shown: one of a table, or one that is logged in English as well.
inline QString shownText(QString text) {
  return text;
}
constexpr const char16_t* shownText(const char16_t* text) {
  return text;
}
constexpr QStringView shownText(QStringView text) {
  return text;
}
