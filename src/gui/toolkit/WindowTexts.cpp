#include "gui/toolkit/WindowTexts.h"

#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Mnemonics.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFontDatabase>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSet>
#include <QTabBar>
#include <QTextEdit>
#include <QToolButton>

#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kKept = "ownWords";
constexpr auto kBefore = "englishTexts";
constexpr auto kOwnFont = "fontBeforeLanguage";

/// One place for a text. The name tells the places of an object apart.
struct Place {
  QString name;
  QString text;
  std::function<void(const QString&)> put;
  bool hasMarks = false;
};

template <class Box>
void addPlaceholder(QList<Place>& places, const QObject& object) {
  if (auto* const box = const_cast<Box*>(qobject_cast<const Box*>(&object))) {
    places.append({u"hint"_s, box->placeholderText(), [box](const QString& text) { box->setPlaceholderText(text); }});
  }
}

void addTabs(QList<Place>& places, QTabBar& bar) {
  for (int i = 0; i < bar.count(); ++i) {
    const QString number = QString::number(i);
    places.append(
        {u"tab"_s + number, bar.tabText(i), [&bar, i](const QString& text) { bar.setTabText(i, text); }, true});
    places.append(
        {u"tabTip"_s + number, bar.tabToolTip(i), [&bar, i](const QString& text) { bar.setTabToolTip(i, text); }});
  }
}

void addColumns(QList<Place>& places, QHeaderView& header) {
  QAbstractItemModel* const model = header.model();
  for (int i = 0; model != nullptr && header.orientation() == Qt::Horizontal && i < header.count(); ++i) {
    places.append({u"column"_s + QString::number(i), model->headerData(i, Qt::Horizontal).toString(),
                   [&header, model, i](const QString& text) {
                     // Lists of ours translate their titles as they are asked for them.
                     model->setHeaderData(i, Qt::Horizontal, text);
                     header.viewport()->update();
                   }});
    places.append(
        {u"columnTip"_s + QString::number(i), model->headerData(i, Qt::Horizontal, Qt::ToolTipRole).toString(),
         [model, i](const QString& text) { model->setHeaderData(i, Qt::Horizontal, text, Qt::ToolTipRole); }});
  }
}

void addCaption(QList<Place>& places, QWidget& widget) {
  if (auto* const label = qobject_cast<QLabel*>(&widget)) {
    places.append(
        {u"text"_s, label->text(), [label](const QString& text) { label->setText(text); }, label->buddy() != nullptr});
  } else if (auto* const button = qobject_cast<QAbstractButton*>(&widget)) {
    const auto* const tool = qobject_cast<QToolButton*>(button);
    if (tool == nullptr || tool->defaultAction() == nullptr) {
      places.append({u"text"_s, button->text(), [button](const QString& text) { button->setText(text); }, true});
    }
  } else if (auto* const box = qobject_cast<QGroupBox*>(&widget)) {
    places.append({u"text"_s, box->title(), [box](const QString& text) { box->setTitle(text); }, true});
  }
}

QList<Place> placesOf(QWidget& widget) {
  QList<Place> places;
  addCaption(places, widget);
  if (auto* const tabs = qobject_cast<QTabBar*>(&widget)) {
    addTabs(places, *tabs);
  } else if (auto* const header = qobject_cast<QHeaderView*>(&widget)) {
    addColumns(places, *header);
  }
  addPlaceholder<QLineEdit>(places, widget);
  addPlaceholder<QPlainTextEdit>(places, widget);
  addPlaceholder<QTextEdit>(places, widget);
  QWidget* const it = &widget;
  places.append({u"title"_s, it->windowTitle(), [it](const QString& text) { it->setWindowTitle(text); }});
  places.append({u"tip"_s, it->toolTip(), [it](const QString& text) { it->setToolTip(text); }});
  places.append({u"spoken"_s, it->accessibleName(), [it](const QString& text) { it->setAccessibleName(text); }});
  places.append(
      {u"described"_s, it->accessibleDescription(), [it](const QString& text) { it->setAccessibleDescription(text); }});
  return places;
}

QList<Place> placesOf(QAction& action) {
  QAction* const it = &action;
  QList<Place> places{{u"text"_s, it->text(), [it](const QString& text) { it->setText(text); }, true}};
  // By itself an entry's tip is its caption.
  if (it->toolTip() != withoutMnemonic(it->text())) {
    places.append({u"tip"_s, it->toolTip(), [it](const QString& text) { it->setToolTip(text); }});
  }
  places.append({u"status"_s, it->statusTip(), [it](const QString& text) { it->setStatusTip(text); }});
  return places;
}

QChar markOf(const QString& text) {
  for (qsizetype i = 0; i + 1 < text.size(); ++i) {
    if (text[i] == u'&') {
      if (text[i + 1] != u'&') {
        return text[i + 1].isSpace() ? QChar() : text[i + 1].toLower();
      }
      ++i;
    }
  }
  return {};
}

/// The keys of the captions that stand in a window at once.
class WindowKeys {
 public:
  explicit WindowKeys(const QWidget& window) {
    for (QWidget* const child : window.findChildren<QWidget*>()) {
      if (child->window() != &window) {
        continue;
      }
      for (const Place& place : placesOf(*child)) {
        count(place.hasMarks ? markOf(place.text) : QChar(), 1);
      }
      if (const auto* const bar = qobject_cast<const QMenuBar*>(child)) {
        for (const QAction* const menu : bar->actions()) {
          count(markOf(menu->text()), 1);
        }
      }
    }
  }

  void replace(QChar former, QChar key) {
    count(former, -1);
    count(key, 1);
  }
  /// As the others have them.
  QSet<QChar> without(QChar own) const {
    QSet<QChar> taken;
    for (auto key = counts_.cbegin(); key != counts_.cend(); ++key) {
      if (key.value() > (key.key() == own ? 1 : 0)) {
        taken.insert(key.key());
      }
    }
    return taken;
  }

 private:
  void count(QChar key, int change) {
    if (!key.isNull()) {
      counts_[key] += change;
    }
  }

  QHash<QChar, int> counts_;
};

/// The keys of windows that many texts are being translated in: gathered once for all of them.
class KeysOfPass {
 public:
  KeysOfPass() : outer_(std::exchange(current(), this)) {}
  ~KeysOfPass() { current() = outer_; }
  KeysOfPass(const KeysOfPass&) = delete;
  KeysOfPass& operator=(const KeysOfPass&) = delete;

  static KeysOfPass*& current() {
    static KeysOfPass* pass = nullptr;
    return pass;
  }
  WindowKeys& of(const QWidget& window) {
    auto found = windows_.find(&window);
    return found == windows_.end() ? windows_.emplace(&window, WindowKeys(window)).first->second : found->second;
  }
  void replaced(const QWidget* window, QChar former, QChar key) {
    if (const auto found = windows_.find(window); found != windows_.end()) {
      found->second.replace(former, key);
    }
  }

 private:
  KeysOfPass* outer_;
  std::map<const QWidget*, WindowKeys> windows_;
};

/// The window that a caption shares its key with; null for an entry of a menu that opens.
const QWidget* windowOfKeys(const QObject& object) {
  if (const auto* const widget = qobject_cast<const QWidget*>(&object)) {
    return widget->window();
  }
  for (const QObject* const owner : static_cast<const QAction&>(object).associatedObjects()) {
    if (const auto* const bar = qobject_cast<const QMenuBar*>(owner)) {
      return bar->window();
    }
  }
  return nullptr;
}

/// The keys that stand beside a place: of the other entries of its menu, or of the other captions of its window.
QSet<QChar> takenBeside(const QObject& object, const Place& place) {
  QSet<QChar> taken;
  if (const QWidget* const window = windowOfKeys(object)) {
    KeysOfPass* const pass = KeysOfPass::current();
    taken = (pass == nullptr ? WindowKeys(*window) : pass->of(*window)).without(markOf(place.text));
  }
  const auto* const action = qobject_cast<const QAction*>(&object);
  for (const QObject* const owner : action == nullptr ? QObjectList() : action->associatedObjects()) {
    const auto* const widget = qobject_cast<const QWidget*>(owner);
    if (widget == nullptr || qobject_cast<const QMenuBar*>(widget) != nullptr) {
      continue;
    }
    for (const QAction* const other : widget->actions()) {
      taken.insert(other == action ? QChar() : markOf(other->text()));
    }
  }
  return taken;
}

void put(const QObject& object, const Place& place, const QString& text) {
  if (place.hasMarks && KeysOfPass::current() != nullptr) {
    KeysOfPass::current()->replaced(windowOfKeys(object), markOf(place.text), markOf(text));
  }
  place.put(text);
}

/// Marks the first letter of a word that is free, else any free letter; one without accent goes first.
QString marked(const QString& caption, const QSet<QChar>& taken) {
  const QChar own = markOf(caption);
  if (!own.isNull() && !taken.contains(own)) {
    return caption;
  }
  const QString bare = withoutMnemonic(caption);
  QString text = QString(bare).replace(u'&', u"&&"_s);
  for (const auto& [beginsWord, accented] : {std::pair{true, false}, {false, false}, {false, true}}) {
    for (qsizetype i = 0; i < text.size(); ++i) {
      const bool begins = i == 0 || !text[i - 1].isLetterOrNumber();
      if (text[i].isLetterOrNumber() && isAccented(text[i]) == accented && (begins || !beginsWord) &&
          !taken.contains(text[i].toLower())) {
        return text.insert(i, u'&');
      }
    }
  }
  return text;
}

/// A translation as a caption: a lone ampersand between blanks is shown, one in front of a letter marks it.
QString asCaption(QString translation) {
  return translation.replace(u"& "_s, u"&& "_s).replace(u"&&& "_s, u"&& "_s);
}

/// What a place shows of a translation.
QString fitted(const QString& translation, const Place& place, const QString& english, const QObject& object) {
  const QString caption = asCaption(translation);
  if (!place.hasMarks) {
    return withoutMnemonic(caption);
  }
  if (markOf(english).isNull()) {
    return withoutMnemonic(caption).replace(u'&', u"&&"_s);
  }
  return marked(caption, takenBeside(object, place));
}

void translate(QObject& object, const Place& place, QVariantMap& before, const TranslateText& translateText) {
  const QStringList known = before.value(place.name).toStringList();
  // A menu marks other letters whenever it opens.
  const bool isOurs = known.size() == 2 && withoutMnemonic(known.at(1)) == withoutMnemonic(place.text);
  const QString english = isOurs ? known.at(0) : place.text;
  const QString given = translateText({place.text, isOurs ? english : QString()});
  if (given == place.text) {
    return;
  }
  if (given == english) {
    before.remove(place.name);
    object.setProperty(kBefore, before);
    put(object, place, english);
    return;
  }
  if (isOurs && withoutMnemonic(asCaption(given)) == withoutMnemonic(place.text)) {
    return;
  }
  const QString shown = fitted(given, place, english, object);
  if (Lang().IsEnglish()) {
    // A window had put it there translated: this is what it begins with from now on.
    put(object, place, shown);
    return;
  }
  before.insert(place.name, QStringList{english, shown});
  object.setProperty(kBefore, before);
  put(object, place, shown);
}

}  // namespace

void keepWords(QObject& object) {
  object.setProperty(kKept, true);
}

void translateTexts(QObject& object, const TranslateText& translateText) {
  if (object.property(kKept).toBool()) {
    return;
  }
  auto* const action = qobject_cast<QAction*>(&object);
  auto* const widget = qobject_cast<QWidget*>(&object);
  const QList<Place> places = action != nullptr   ? placesOf(*action)
                              : widget != nullptr ? placesOf(*widget)
                                                  : QList<Place>();
  QVariantMap before = object.property(kBefore).toMap();
  for (const Place& place : places) {
    // What is laid out as markup was put together of words that aren't ours.
    if (!place.text.isEmpty() && !Qt::mightBeRichText(place.text)) {
      translate(object, place, before, translateText);
    }
  }
}

// The first letter of a menu is what people press without looking.
void partKeys(QWidget& window) {
  QSet<QChar> ofMenus;
  for (const QMenuBar* const bar : window.findChildren<QMenuBar*>()) {
    for (const QAction* const menu : bar->actions()) {
      ofMenus.insert(markOf(menu->text()));
    }
  }
  ofMenus.remove(QChar());
  if (ofMenus.isEmpty()) {
    return;
  }
  WindowKeys keys(window);
  for (QWidget* const child : window.findChildren<QWidget*>()) {
    for (const Place& place : child->window() == &window ? placesOf(*child) : QList<Place>()) {
      const QChar own = place.hasMarks ? markOf(place.text) : QChar();
      if (ofMenus.contains(own)) {
        const QString text = marked(place.text, keys.without(own));
        keys.replace(own, markOf(text));
        place.put(text);
      }
    }
  }
}

void WindowTexts::eachText(const TranslateText& translate) {
  {
    const KeysOfPass pass;
    translateTexts(window_, translate);
    for (QWidget* const child : window_.findChildren<QWidget*>()) {
      translateTexts(*child, translate);
    }
    for (QAction* const entry : window_.findChildren<QAction*>()) {
      translateTexts(*entry, translate);
    }
  }
  // One by one the last menu may have found all its letters taken.
  for (const QMenuBar* const bar : window_.findChildren<QMenuBar*>()) {
    assignMnemonics(bar->actions());
  }
  partKeys(window_);
}

bool WindowTexts::fontExists(const QString& family) const {
  return QFontDatabase::hasFamily(family);
}

// Whatever has a family of its own, such as one of symbols, keeps it.
void WindowTexts::setFontFamily(const QString& family) {
  const QVariant before = window_.property(kOwnFont);
  if (family.isEmpty()) {
    if (before.isValid()) {
      window_.setProperty(kOwnFont, {});
      window_.setFont(before.value<QFont>());
    }
    return;
  }
  if (!before.isValid()) {
    window_.setProperty(kOwnFont, window_.font());
  }
  QFont font = window_.font();
  font.setFamily(family);
  window_.setFont(font);
}
