#pragma once

#include <QString>
#include <QStringList>

class QAbstractItemModel;
class QObject;
class QWidget;

/// The file of a language, called "Strange", that has every text of the program in letters that aren't Latin. In it
/// whatever has Latin letters was put together of a text that nobody looked up.
QString strangeLanguage();

/// Gathers what is shown in Latin letters while that language is in force, without names and what the writer of the
/// small project has typed.
class EnglishTexts {
 public:
  void see(const QString& text, const QString& where);
  /// All that stands in a window, hidden pages too, and what a screen reader says of it.
  void seeWindow(QWidget& window);
  /// A line for each, with its place.
  const QStringList& found() const { return found_; }

 private:
  void seeObject(QObject& object, const QString& window);
  void seeModel(const QAbstractItemModel* model, const QString& where);

  QStringList found_;
};
