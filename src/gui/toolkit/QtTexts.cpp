#include "gui/toolkit/QtTexts.h"

#include "core/infra/cSharedLang.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

// Where a word of this program means something else the text has the place that Qt knows it by in front.
const QSet<QString>& qtTexts() {
  static const QSet<QString> texts{
      shownText(u"Cursor at %1, %2\nPress ESC to cancel"_s),
      // Keys beside the entries of menus.
      shownText(u"QShortcut|Ctrl"_s),
      shownText(u"QShortcut|Shift"_s),
      shownText(u"QShortcut|Alt"_s),
      shownText(u"QShortcut|Return"_s),
      shownText(u"QShortcut|Up"_s),
      shownText(u"QShortcut|Down"_s),
      shownText(u"QShortcut|Left"_s),
      shownText(u"QShortcut|Right"_s),
      shownText(u"QShortcut|Home"_s),
      shownText(u"QShortcut|Del"_s),
      // Choosing files.
      shownText(u"%1 already exists.\nDo you want to replace it?"_s),
      shownText(u"%1\nFile not found.\nPlease verify the correct file name was given."_s),
      shownText(u"%1\nDirectory not found.\nPlease verify the correct directory name was given."_s),
      shownText(u"'%1' is write protected.\nDo you want to delete it anyway?"_s),
      shownText(u"Are you sure you want to delete '%1'?"_s),
      shownText(u"Could not delete directory."_s),
      shownText(u"Show"_s),
      shownText(u"Recent Places"_s),
      shownText(u"Directory"_s),
      shownText(u"Choose"_s),
      shownText(u"Name"_s),
      shownText(u"Size"_s),
      shownText(u"Type"_s),
      shownText(u"Date Modified"_s),
      shownText(u"Computer"_s),
      shownText(u"Folder"_s),
      // Colours.
      shownText(u"Hue"_s),
      shownText(u"Red"_s),
      shownText(u"Green"_s),
      shownText(u"Blue"_s),
      // Menus of scroll bars and texts.
      shownText(u"Scroll here"_s),
      shownText(u"Top"_s),
      shownText(u"Bottom"_s),
      shownText(u"Left edge"_s),
      shownText(u"Right edge"_s),
      shownText(u"Page up"_s),
      shownText(u"Page down"_s),
      shownText(u"Page left"_s),
      shownText(u"Page right"_s),
      shownText(u"Scroll up"_s),
      shownText(u"Scroll down"_s),
      shownText(u"Scroll left"_s),
      shownText(u"Scroll right"_s),
      shownText(u"Copy Link Location"_s),
      // Those of fields with numbers.
      shownText(u"Step up"_s),
      shownText(u"Step down"_s),
      // Setting up a printer.
      shownText(u"QPrintWidget|Location"_s),
      shownText(u"Properties"_s),
      shownText(u"Print to File (PDF)"_s),
      shownText(u"Local file"_s),
      shownText(u"Write PDF file"_s),
      shownText(u"Options >>"_s),
      shownText(u"Options <<"_s),
      shownText(u"All Pages"_s),
      shownText(u"Odd Pages"_s),
      shownText(u"Even Pages"_s),
      shownText(u"Copies"_s),
      shownText(u"Options"_s),
      shownText(u"Print range"_s),
      shownText(u"Print all"_s),
      shownText(u"Pages from"_s),
      shownText(u"QPrintSettingsOutput|to"_s),
      shownText(u"Pages"_s),
      shownText(u"Page Set"_s),
      shownText(u"Output Settings"_s),
      shownText(u"Collate"_s),
      shownText(u"Reverse"_s),
      shownText(u"Color Mode"_s),
      shownText(u"Color"_s),
      shownText(u"Grayscale"_s),
      shownText(u"Double Sided Printing"_s),
      shownText(u"Off"_s),
      shownText(u"Long side binding"_s),
      shownText(u"Short side binding"_s),
      shownText(u"Printer Properties"_s),
      shownText(u"Job Options"_s),
      shownText(u"Page"_s),
      shownText(u"Advanced"_s),
      shownText(u"Paper"_s),
      shownText(u"Page size"_s),
      shownText(u"Width"_s),
      shownText(u"Height"_s),
      shownText(u"Orientation"_s),
      shownText(u"Portrait"_s),
      shownText(u"Landscape"_s),
      shownText(u"Reverse portrait"_s),
      shownText(u"Reverse landscape"_s),
      shownText(u"Paper source"_s),
      shownText(u"Page order"_s),
      shownText(u"Millimeters (mm)"_s),
      shownText(u"Inches (in)"_s),
      shownText(u"Points (pt)"_s),
      shownText(u"Left to Right, Top to Bottom"_s),
      shownText(u"Left to Right, Bottom to Top"_s),
      shownText(u"Right to Left, Top to Bottom"_s),
      shownText(u"Right to Left, Bottom to Top"_s),
      shownText(u"Bottom to Top, Left to Right"_s),
      shownText(u"Bottom to Top, Right to Left"_s),
      shownText(u"Top to Bottom, Left to Right"_s),
      shownText(u"Top to Bottom, Right to Left"_s),
      shownText(u"Margins"_s),
      shownText(u"Page Layout"_s),
      shownText(u"Pages per sheet"_s),
      shownText(u"Current Page"_s),
      shownText(u"Invalid Pages Definition"_s),
      shownText(u"%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' to define "
                "ranges and make sure ranges do not intersect with each other."_s),
      shownText(u"Options 'Pages Per Sheet' and 'Page Set' cannot be used together.\nPlease turn one of those options "
                "off."_s),
      shownText(u"Page Setup Conflicts"_s),
      shownText(u"There are conflicts in page setup options. Do you want to fix them?"_s),
  };
  return texts;
}

/// Qt's colour dialog in the words of this program, in English too.
QString ownWords(const QString& text) {
  static const QHash<QString, QString> words{
      {u"&Basic colors"_s, shownText(u"Colours to choose &from"_s)},
      {u"&Custom colors"_s, shownText(u"&My colours"_s)},
      {u"&Add to Custom Colors"_s, shownText(u"&Add to my colours"_s)},
      {u"&Pick Screen Color"_s, shownText(u"&Take one from the screen"_s)},
      {u"&Sat:"_s, shownText(u"&Strength:"_s)},
      {u"&Val:"_s, shownText(u"&Lightness:"_s)},
      {u"&HTML:"_s, shownText(u"&Number:"_s)},
  };
  return words.value(text);
}

/// Empty for what stays as Qt has it.
QString inLanguage(QByteArrayView context, const QString& text) {
  const QString named = QString::fromLatin1(context) + u'|';
  const bool isNamed = qtTexts().contains(named + cSharedLang::KeyOf(text));
  if (Lang().IsEnglish() || text.contains(u'&') || !(isNamed || qtTexts().contains(cSharedLang::KeyOf(text)))) {
    return {};
  }
  const QString asked = isNamed ? named + text : text;
  const QString found = Lang().TranslationOf(asked);
  // Whoever leaves the place in a translation means what is behind it.
  return found == asked ? QString() : found.startsWith(named) ? found.sliced(named.size()) : found;
}

class QtTexts : public QTranslator {
 public:
  QString translate(const char* context, const char* text, const char*, int) const override {
    const QString wanted = QString::fromUtf8(text);
    const QString own = ownWords(wanted);
    return own.isEmpty() ? inLanguage(context, wanted) : own;
  }
  bool isEmpty() const override { return false; }
};

}  // namespace

// For good: taking a translator away repaints every window.
void translateQtTexts() {
  static QtTexts texts;
  static const bool isInstalled = QCoreApplication::installTranslator(&texts);
  Q_UNUSED(isInstalled)
}
