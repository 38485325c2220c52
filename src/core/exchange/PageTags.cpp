#include "core/exchange/PageTags.h"

#include <QStringList>

#include <algorithm>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

namespace PageTags {

namespace {

struct NamedTag {
  std::u16string_view name;
  TagRule rule;
};

/// Sorted by name.
const std::vector<NamedTag>& tagRules() {
  static const std::vector<NamedTag> rules = [] {
    std::vector<NamedTag> table{
        {u"br", {Tag::Break}},
        {u"td", {Tag::Cell}},
        {u"th", {Tag::Cell}},
        {u"pre", {Tag::Preformatted}},
        {u"b", {Tag::Letters, kBold}},
        {u"strong", {Tag::Letters, kBold}},
        {u"i", {Tag::Letters, kItalic}},
        {u"em", {Tag::Letters, kItalic}},
        {u"u", {Tag::Letters, kUnderlined}},
        {u"ins", {Tag::Letters, kUnderlined}},
        {u"q", {Tag::Quotation}},
        {u"head", {Tag::Head}},
    };
    for (const std::u16string_view name : {u"cite", u"dfn", u"var"}) {
      table.push_back({name, {Tag::Letters, kItalic}});
    }
    for (const std::u16string_view name :
         {u"span", u"font", u"a", u"small", u"big", u"code", u"s", u"strike", u"del", u"mark", u"sub", u"sup", u"tt",
          u"kbd", u"label", u"abbr", u"samp", u"time"}) {
      table.push_back({name, {Tag::Letters}});
    }
    for (const std::u16string_view name : {u"title", u"script", u"style", u"template"}) {
      table.push_back({name, {Tag::NoText}});
    }
    for (const std::u16string_view name :
         {u"p",          u"div",     u"h1",       u"h2",      u"h3",      u"h4",      u"h5",
          u"h6",         u"ul",      u"ol",       u"li",      u"dl",      u"dt",      u"dd",
          u"blockquote", u"table",   u"tr",       u"caption", u"thead",   u"tbody",   u"tfoot",
          u"hr",         u"html",    u"body",     u"section", u"center",  u"article", u"header",
          u"footer",     u"main",    u"nav",      u"form",    u"aside",   u"figure",  u"option",
          u"figcaption", u"address", u"fieldset", u"legend",  u"details", u"summary"}) {
      table.push_back({name, {Tag::Block}});
    }
    std::sort(table.begin(), table.end(), [](const NamedTag& a, const NamedTag& b) { return a.name < b.name; });
    return table;
  }();
  return rules;
}

constexpr bool isBlank(QChar unit) {
  return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

QString withoutBlanks(QStringView text) {
  return text.toString().toLower().removeIf([](QChar unit) { return isBlank(unit); });
}

/// "p.title" or ".title".
bool isClassSelector(QStringView selector) {
  const qsizetype dot = selector.indexOf(u'.');
  return dot >= 0 && std::all_of(selector.begin(), selector.end(), [&](const QChar& unit) {
           return unit.isLetterOrNumber() || unit == u'-' || unit == u'_' || &unit == selector.begin() + dot;
         });
}

/// Behind the block that an at-rule such as "@media" has, or its ";".
qsizetype behindAtRule(QStringView sheet, qsizetype at) {
  for (int depth = 0; at < sheet.size(); ++at) {
    depth += sheet[at] == u'{' ? 1 : sheet[at] == u'}' ? -1 : 0;
    if (depth <= 0 && (sheet[at] == u'}' || sheet[at] == u';')) {
      return at + 1;
    }
  }
  return at;
}

QString withoutComments(QStringView sheet) {
  QString text;
  for (qsizetype at = 0; at < sheet.size();) {
    const qsizetype begin = sheet.indexOf(u"/*", at);
    text += begin < 0 ? sheet.sliced(at) : sheet.sliced(at, begin - at);
    const qsizetype end = begin < 0 ? -1 : sheet.indexOf(u"*/", begin + 2);
    at = end < 0 ? sheet.size() : end + 2;
  }
  // A sheet may stand in a comment of the page, for readers of old.
  return text.remove(u"<!--"_s).remove(u"-->"_s);
}

}  // namespace

TagName::TagName(QStringView name) : length_(static_cast<size_t>(name.size())) {
  if (length_ > letters_.size()) {
    length_ = 0;
    return;
  }
  std::transform(name.utf16(), name.utf16() + length_, letters_.begin(), [](char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit | 0x20) : unit;
  });
}

TagRule TagName::rule() const {
  const std::u16string_view name(letters_.data(), length_);
  const auto found =
      std::lower_bound(tagRules().begin(), tagRules().end(), name,
                       [](const NamedTag& tag, std::u16string_view wanted) { return tag.name < wanted; });
  return found != tagRules().end() && found->name == name ? found->rule : TagRule();
}

QString TagName::toString() const {
  return QString::fromUtf16(letters_.data(), static_cast<qsizetype>(length_));
}

void Wish::add(Wish later) {
  on = static_cast<quint8>((on & ~later.off) | later.on);
  off = static_cast<quint8>((off & ~later.on) | later.off);
}

Wish wishOf(QStringView style) {
  Wish wish;
  const auto set = [&wish](quint8 look, bool on) { wish.add(on ? Wish{look, 0} : Wish{0, look}); };
  for (const QString& declaration : withoutBlanks(style).split(u';', Qt::SkipEmptyParts)) {
    const QString property = declaration.section(u':', 0, 0);
    const QString value = declaration.section(u':', 1).remove(u"!important"_s);
    if (property == u"font-weight") {
      constexpr int kBoldFrom = 600;
      set(kBold, value.startsWith(u"bold") || value.toInt() >= kBoldFrom);
    } else if (property == u"font-style") {
      set(kItalic, value.startsWith(u"italic") || value.startsWith(u"oblique"));
    } else if (property == u"text-decoration" || property == u"text-decoration-line") {
      set(kUnderlined, value.contains(u"underline"));
    }
  }
  return wish;
}

QStringView attributeOf(QStringView attributes, QStringView name) {
  const qsizetype size = attributes.size();
  const auto past = [&](qsizetype at, const auto& belongs) {
    while (at < size && belongs(attributes[at])) {
      ++at;
    }
    return at;
  };
  for (qsizetype at = 0; at < size;) {
    const qsizetype begin = past(at, [](QChar unit) { return isBlank(unit) || unit == u'/' || unit == u'='; });
    const qsizetype end = past(begin, [](QChar unit) { return !isBlank(unit) && unit != u'=' && unit != u'/'; });
    qsizetype value = past(end, isBlank);
    if (value >= size || attributes[value] != u'=') {
      at = value;
      continue;
    }
    value = past(value + 1, isBlank);
    const QChar quote = value < size ? attributes[value] : QChar();
    const bool isQuoted = quote == u'"' || quote == u'\'';
    const qsizetype from = isQuoted ? value + 1 : value;
    const qsizetype to = past(from, [&](QChar unit) { return isQuoted ? unit != quote : !isBlank(unit); });
    if (attributes.sliced(begin, end - begin).compare(name, Qt::CaseInsensitive) == 0) {
      return attributes.sliced(from, to - from);
    }
    at = isQuoted ? to + 1 : to;
  }
  return {};
}

void StyleSheets::read(QStringView sheet) {
  const QString text = withoutComments(sheet).toLower();
  const QStringView rules(text);
  for (qsizetype at = 0; at < rules.size();) {
    if (isBlank(rules[at])) {
      ++at;
      continue;
    }
    if (rules[at] == u'@') {
      at = behindAtRule(rules, at);
      continue;
    }
    const qsizetype open = rules.indexOf(u'{', at);
    const qsizetype close = open < 0 ? -1 : rules.indexOf(u'}', open);
    if (close < 0) {
      return;
    }
    const Wish wish = PageTags::wishOf(rules.sliced(open + 1, close - open - 1));
    if (!wish.isNone()) {
      for (const QStringView selector : rules.sliced(at, open - at).split(u',')) {
        if (isClassSelector(selector.trimmed())) {
          classes_[selector.trimmed().toString()].add(wish);
        }
      }
    }
    at = close + 1;
  }
}

Wish StyleSheets::wishOf(const TagName& tag, QStringView attributes) const {
  Wish wish;
  if (attributes.isEmpty()) {
    return wish;
  }
  if (!classes_.isEmpty()) {
    const QString named = attributeOf(attributes, u"class").toString().toLower().simplified();
    for (const QString& name : named.split(u' ', Qt::SkipEmptyParts)) {
      wish.add(classes_.value(u'.' + name));
      wish.add(classes_.value(tag.toString() + u'.' + name));
    }
  }
  if (const QStringView style = attributeOf(attributes, u"style"); !style.isEmpty()) {
    wish.add(PageTags::wishOf(style));
  }
  return wish;
}

}  // namespace PageTags
