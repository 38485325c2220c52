#include "core/exchange/HtmlTags.h"

#include <QStringList>

#include <algorithm>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

namespace HtmlTags {

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
    };
    for (const std::u16string_view name : {u"cite", u"dfn", u"var"}) {
      table.push_back({name, {Tag::Letters, kItalic}});
    }
    for (const std::u16string_view name :
         {u"span", u"font", u"a", u"small", u"big", u"code", u"s", u"strike", u"del"}) {
      table.push_back({name, {Tag::Letters}});
    }
    for (const std::u16string_view name : {u"head", u"title", u"script", u"style", u"template"}) {
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

/// The declarations of a style attribute; empty where the tag has none.
QString styleIn(QStringView attributes) {
  const qsizetype at = attributes.indexOf(u"style", 0, Qt::CaseInsensitive);
  const qsizetype equals = at < 0 ? -1 : attributes.indexOf(u'=', at);
  if (equals < 0) {
    return {};
  }
  QString style = attributes.sliced(equals + 1).trimmed().toString().toLower();
  const QChar quote = style.isEmpty() ? QChar() : style.front();
  if (quote == u'"' || quote == u'\'') {
    style = style.sliced(1).section(quote, 0, 0);
  }
  return style.removeIf([](QChar unit) { return unit.isSpace(); });
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

quint8 styledLooks(quint8 looks, QStringView attributes) {
  const auto set = [&looks](quint8 look, bool on) { looks = static_cast<quint8>(on ? looks | look : looks & ~look); };
  for (const QString& declaration : styleIn(attributes).split(u';', Qt::SkipEmptyParts)) {
    const QString property = declaration.section(u':', 0, 0);
    const QString value = declaration.section(u':', 1);
    if (property == u"font-weight") {
      constexpr int kBoldFrom = 600;
      set(kBold, value.startsWith(u"bold") || value.toInt() >= kBoldFrom);
    } else if (property == u"font-style") {
      set(kItalic, value.startsWith(u"italic") || value.startsWith(u"oblique"));
    } else if (property == u"text-decoration" || property == u"text-decoration-line") {
      set(kUnderlined, value.contains(u"underline"));
    }
  }
  return looks;
}

}  // namespace HtmlTags
