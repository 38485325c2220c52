#include "core/text/HtmlText.h"

#include "helpers/HtmlEntities.h"

#include <QChar>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr bool isPlain(char16_t unit) {
  return (unit >= u' ' && unit < 0x7F && unit != u'&' && unit != u'<' && unit != u'>') || unit == u'\t';
}

/// Halves of pairs are nothing by themselves. References to what stands from 0x80 to 0x9F are read as other characters.
bool hasNoPlace(char32_t character) {
  return character < U' ' || (character >= 0x7F && character < 0xA0) || QChar::isNonCharacter(character) ||
         QChar::isSurrogate(character);
}

void appendReference(QString& html, char32_t character) {
  if (hasNoPlace(character)) {
    html.append(QChar::isSpace(character) ? u" "_s : QString());
    return;
  }
  const QLatin1StringView name =
      character > 0xFFFF ? QLatin1StringView() : HtmlText::entityName(static_cast<char16_t>(character));
  if (!name.isEmpty()) {
    html.append(u'&').append(name).append(u';');
    return;
  }
  html.append("&#"_L1).append(QString::number(character)).append(u';');
}

}  // namespace

QLatin1StringView HtmlText::entityName(char16_t character) {
  const auto* const found = std::lower_bound(std::begin(kHtmlEntities), std::end(kHtmlEntities), character,
                                             [](const HtmlEntity& entity, char16_t c) { return entity.character < c; });
  if (found == std::end(kHtmlEntities) || found->character != character) {
    return {};
  }
  return {found->name.data(), static_cast<qsizetype>(found->name.size())};
}

void HtmlText::append(QString& html, QStringView text) {
  const char16_t* at = text.utf16();
  const char16_t* const end = at + text.size();
  while (at < end) {
    const char16_t* const stop = std::find_if_not(at, end, isPlain);
    html.append(QStringView(at, stop));
    if (stop == end) {
      return;
    }
    const bool isPair = stop + 1 < end && QChar::isHighSurrogate(stop[0]) && QChar::isLowSurrogate(stop[1]);
    appendReference(html, isPair ? QChar::surrogateToUcs4(stop[0], stop[1]) : char32_t{*stop});
    at = stop + (isPair ? 2 : 1);
  }
}

QString HtmlText::escaped(QStringView text) {
  QString html;
  html.reserve(text.size());
  append(html, text);
  return html;
}

QString HtmlText::attribute(QStringView text) {
  return escaped(text).replace(u'"', "&quot;"_L1);
}
