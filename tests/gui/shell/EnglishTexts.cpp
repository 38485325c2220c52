#include "gui/shell/EnglishTexts.h"

#include "core/infra/WholeText.h"
#include "core/infra/cSharedLang.h"
#include "support/SampleProject.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QMenu>
#include <QRegularExpression>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

/// A text of the program as the strange language has it: places, ends of lines and markup stay.
QString inStrangeLetters(const QString& english) {
  static const QRegularExpression piece(uR"((%L?[0-9]+|\\n|<[^<>]+>)|(.))"_s);
  const QChar first[] = {u'А', u'а'};
  QString text;
  for (auto it = piece.globalMatch(english); it.hasNext();) {
    const QRegularExpressionMatch match = it.next();
    const QString found = match.captured();
    const char16_t letter = found.front().unicode();
    const bool isLatin = match.hasCaptured(2) && letter < 128 && found.front().isLetter();
    const bool isSmall = found.front().isLower();
    text += isLatin ? QString(QChar(first[isSmall].unicode() + letter - (isSmall ? u'a' : u'A'))) : found;
  }
  return text;
}

/// What has Latin letters in any language.
const QRegularExpression& otherWords() {
  static const QRegularExpression words(
      // Folders, addresses, files and keys. The tips that are a key alone follow the language when the pointer comes.
      uR"(\S*/\S*|[\w*]*[.](qn[234]|rtf|txt|pdf|html?|zip|dic)|\b(F[0-9]+|((Ctrl|Shift|Alt)[+])+\w+))"
      // Names; two of them are proposed for files, and always the same.
      uR"(|Quillane( 4 by Brackenlight Software)?|Brackenlight Software|English|Strange|Laser)"
      uR"(|Qt [0-9]|lib(zip|curl)|MyProject|ExportedProject)"
      uR"(|Arial( Unicode MS)?|MS Sans Serif|Tahoma|Trebuchet MS|Verdana|(DejaVu|Liberation) \w+|Times New Roman)"
      // What the writer of the small project has typed, and how its words are counted.
      uR"(|A small book|Small|N\. Öbody|Two lines|of which this is the second|Anna|Zoë|Marsh|The pier|Café Röhm)"
      uR"(|A lamp|To do|Line (one|two)|Arrival|Departure|Cut scenes|What happens in|To leave, or to stay)"
      uR"(|<more>|Check the tide|(?i)\b(one|two|three|four|five|six|seven|eight|nine|ten|eleven|twelve)\b)"_s);
  return words;
}

/// Controls that hold the log, which stays English, and names of fonts.
const QStringList kOfOthers{u"txtLog"_s, u"lstFonts"_s, u"cmbFonts"_s, u"cmbFont"_s};

}  // namespace

QString strangeLanguage() {
  QStringList lines{u"Strange"_s};
  const QString texts = QStringLiteral(QUILLANE_SOURCE_DIR "/data/Languages/template.txt");
  for (const QString& line : WholeText::fromBytes(fileBytes(texts)).split(u'\n')) {
    const QString key = line.section(u"||"_s, 0, 0).trimmed();
    // In front of a bar stands where Qt knows the text.
    lines.append(key + u"||"_s + inStrangeLetters(key.section(u'|', -1)));
  }
  return lines.join(u'\n');
}

void EnglishTexts::see(const QString& text, const QString& where) {
  static const QRegularExpression word(u"[A-Za-z]{2,}"_s);
  if (const QRegularExpressionMatch found = word.match(QString(text).remove(otherWords())); found.hasMatch()) {
    constexpr qsizetype kMost = 300;
    const QString line = where + u" has '"_s + found.captured() + u"': "_s + text.left(kMost);
    found_ += found_.contains(line) ? QStringList() : QStringList{line};
  }
}

void EnglishTexts::seeWindow(QWidget& window) {
  // Captions that have changed are translated as they are painted.
  window.grab();
  seeObject(window, window.objectName());
  for (QWidget* const child : window.findChildren<QWidget*>()) {
    if (child->window() == &window || qobject_cast<QMenu*>(child) != nullptr) {
      seeObject(*child, window.objectName());
    }
  }
}

void EnglishTexts::seeObject(QObject& object, const QString& window) {
  const QString where = window + u'.' + object.objectName();
  // What is hidden is translated as it is painted, and tips as the pointer comes.
  const auto* const widget = qobject_cast<QWidget*>(&object);
  const auto shown = [isHidden = widget != nullptr && !widget->isVisible()](const QString& text) {
    return isHidden ? translatedCaption(text) : text;
  };
  const QVariant readOnly = object.property("readOnly");
  const bool isOfOthers = (readOnly.isValid() && !readOnly.toBool()) || kOfOthers.contains(object.objectName());
  for (const char* const property : {"windowTitle", "title", "text", "plainText", "placeholderText", "prefix", "suffix",
                                     "specialValueText", "accessibleName", "accessibleDescription"}) {
    const bool isOther = isOfOthers && QByteArrayView(property).endsWith("ext");
    see(isOther ? QString() : shown(object.property(property).toString()), where);
  }
  see(translatedCaption(object.property("toolTip").toString()), where);
  see(translatedCaption(object.property("statusTip").toString()), where);
  if (const QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&object)) {
    see(shown(spoken->text(QAccessible::Name)), where);
    see(shown(spoken->text(QAccessible::Description)), where);
  }
  if (const auto* const tabs = qobject_cast<QTabBar*>(&object)) {
    for (int i = 0; i < tabs->count(); ++i) {
      see(tabs->tabText(i) + u'\n' + tabs->tabToolTip(i), where);
    }
  }
  if (const auto* const combo = qobject_cast<QComboBox*>(&object); combo != nullptr && !isOfOthers) {
    seeModel(combo->model(), where);
  } else if (const auto* const view = qobject_cast<QAbstractItemView*>(&object);
             view != nullptr && !isOfOthers && qobject_cast<const QHeaderView*>(view) == nullptr) {
    seeModel(view->model(), where);
  }
  for (QAction* const entry : widget == nullptr ? QList<QAction*>() : widget->actions()) {
    seeObject(*entry, where);
  }
}

void EnglishTexts::seeModel(const QAbstractItemModel* model, const QString& where) {
  for (int column = 0; model != nullptr && column < model->columnCount(); ++column) {
    for (const int role : {Qt::DisplayRole, Qt::ToolTipRole, Qt::AccessibleTextRole}) {
      see(model->headerData(column, Qt::Horizontal, role).toString(), where);
      for (int row = 0; row < model->rowCount(); ++row) {
        see(model->index(row, column).data(role).toString(), where);
      }
    }
  }
}
