// The members of cSharedHTML that need no helper library: entities, tags, and what replaces strings.
#include "core/infra/CodePage.h"
#include "core/infra/Numbers.h"
#include "core/infra/RuntimeError.h"
#include "core/text/HtmlText.h"
#include "core/text/Tags.h"
#include "core/text/TextBasics.h"
#include "core/text/cSharedHTML.h"
#include "helpers/HtmlReferences.h"
#include "helpers/Units.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

bool isBlankText(QStringView text) {
  return TextBasics::trimmed(text).isEmpty();
}

/// The name of a character for CharToHtml; empty for one that stays.
QLatin1StringView entityOf(char16_t unit) {
  return unit == u' ' ? "nbsp"_L1 : unit == u'&' ? QLatin1StringView() : HtmlText::entityName(unit);
}

/// What a typewriter has for a character. The euro sign is one of the list: it stays.
struct Constant {
  char32_t character;
  std::u16string_view text;
};
constexpr std::array kConstants{
    Constant{8230, u"..."}, Constant{8220, u"\""}, Constant{8221, u"\""}, Constant{8216, u"'"}, Constant{8217, u"'"},
    Constant{8212, u"-"},   Constant{8211, u"-"},  Constant{8243, u"\""}, Constant{8242, u"'"}, Constant{8226, u"' "}};

/// The names among them; the others are left to HtmlToChar.
constexpr std::array<std::u16string_view, 4> kConstantNames{u"&hellip;", u"&bull;", u"&prime;", u"&Prime;"};

/// The reference that HTMLConstToChar resolves at the front of the text.
HtmlReference constantAt(const char16_t* at, size_t length) {
  const std::u16string_view text(at, length);
  if (length > 1 && text[1] == u'#') {
    return HtmlReferences::numeric(at, length);
  }
  const bool possible = length > 1 && (text[1] == u'h' || text[1] == u'b' || text[1] == u'p' || text[1] == u'P');
  const bool known =
      possible && std::any_of(kConstantNames.begin(), kConstantNames.end(),
                              [&](std::u16string_view name) { return text.substr(0, name.size()) == name; });
  return known ? HtmlReferences::named(at, length) : HtmlReference{};
}

char16_t* writeConstant(char16_t* out, char32_t character) {
  const auto* const constant =
      std::find_if(kConstants.begin(), kConstants.end(), [=](const Constant& c) { return c.character == character; });
  return constant == kConstants.end() ? HtmlReferences::write(out, character)
                                      : std::copy(constant->text.begin(), constant->text.end(), out);
}

QString tagOpen(QStringView name) {
  return u'<' + name.toString() + u'>';
}

QString tagClose(QStringView name) {
  return u"</"_s + name.toString() + u'>';
}

/// ASCII of a value that is a number or a date; what is neither stays neither.
QByteArray valueBetween(const cSharedHTML& html, const QString& text, const QString& tag) {
  return CodePage::toBytes(html.ExtractString(text, tag));
}

}  // namespace

QString cSharedHTML::CharToHtml(const QString& text) const {
  if (isBlankText(text)) {
    return text;
  }
  QString html;
  html.reserve(text.size() + text.size() / 2);
  for (const QChar character : text) {
    const QLatin1StringView name = entityOf(character.unicode());
    if (name.isEmpty()) {
      html.append(character);
    } else {
      html.append(u'&').append(name).append(u';');
    }
  }
  return html;
}

// In place: nothing is longer than the reference that names it.
void cSharedHTML::constantsToChars(QString& text) const {
  if (!text.contains(u'&')) {
    return;
  }
  auto* const begin = reinterpret_cast<char16_t*>(text.data());
  const char16_t* const end = begin + text.size();
  char16_t* out = begin;
  const char16_t* kept = begin;
  for (const char16_t* at = Units::find(begin, end, u'&'); at < end; at = Units::find(at, end, u'&')) {
    const HtmlReference found = constantAt(at, static_cast<size_t>(end - at));
    if (found.length > 0) {
      out = writeConstant(Units::move(out, kept, at), found.character);
      kept = at + found.length;
    }
    at += std::max<size_t>(found.length, 1);
  }
  text.truncate(Units::move(out, kept, end) - begin);
}

QString cSharedHTML::HTMLConstToChar(const QString& text) const {
  if (isBlankText(text)) {
    return text;
  }
  QString result = text;
  constantsToChars(result);
  return result;
}

QString cSharedHTML::TrimHeadTags(const QString& text) const {
  constexpr QStringView kEnd = u"</head>";
  const qsizetype at = TextBasics::find(text, kEnd);
  return at < 0 ? text : text.sliced(at + kEnd.size());
}

QString cSharedHTML::ConvertBR(const QString& text) const {
  return MyReplace(text, u"<BR>"_s, u"\r\n"_s, true);
}

QString cSharedHTML::MyReplace(const QString& text, const QString& find, const QString& replace,
                               bool caseInsensitive) const {
  return TextBasics::replaceAll(text, find, replace, caseInsensitive ? Qt::CaseInsensitive : Qt::CaseSensitive);
}

QString cSharedHTML::MyReplaceNoCaps(const QString& text, const QString& find, const QString& replace) const {
  return MyReplace(text, find, replace, true);
}

QString cSharedHTML::EndParaCRLF(const QString& text) const {
  return text + u"\r\n\r\n"_s;
}

QString cSharedHTML::EndParaCR(const QString& text) const {
  return text + u"\r\r"_s;
}

// What is removed first can bring "(" and ")" together.
QString cSharedHTML::CleanWord(const QString& text) const {
  QString word = text;
  word.removeIf([](QChar c) { return u".:^',"_s.contains(c); });
  word.replace(u'@', u'a').replace(u'1', u'i');
  word = TextBasics::replaceAll(word, u"()", u"o", Qt::CaseSensitive);
  word.replace(u'0', u'o').replace(u'_', u' ');
  word.removeIf([](QChar c) { return u"-~(){}"_s.contains(c); });
  TextBasics::trim(word);
  return word;
}

qsizetype cSharedHTML::cInstr(QStringView text, QStringView find) const {
  return TextBasics::find(text, find) + 1;
}

QString cSharedHTML::ExtractWithTags(const QString& text, const QString& open, const QString& close) const {
  const qsizetype from = TextBasics::find(text, open);
  if (from < 0) {
    return {};
  }
  const qsizetype to = TextBasics::find(text, close, from);
  return to < 0 ? text.sliced(from) : text.sliced(from, to + close.size() - from);
}

QString cSharedHTML::ExtractBetweenTags(const QString& text, const QString& open, const QString& close) const {
  const qsizetype from = TextBasics::find(text, open);
  if (from < 0) {
    return {};
  }
  const qsizetype to = TextBasics::find(text, close, from);
  const QString value = to < 0 ? text.sliced(from) : text.sliced(from, to - from);
  return MyReplaceNoCaps(MyReplaceNoCaps(value, open, {}), close, {});
}

QStringList cSharedHTML::ExtractXMLArray(const QString& text, const QString& separator) const {
  return separator.isEmpty() ? QStringList{text} : text.split(separator, Qt::KeepEmptyParts, Qt::CaseInsensitive);
}

QStringList cSharedHTML::ExtractXMLArray(const QString& text, const QString& open, const QString& close,
                                         const QString& separator) const {
  return ExtractXMLArray(ExtractWithTags(text, open, close), separator);
}

QString cSharedHTML::ExtractWithTags(const QString& text, const QString& tag) const {
  return ExtractWithTags(text, tagOpen(tag), tagClose(tag));
}

QString cSharedHTML::ExtractString(const QString& text, const QString& tag) const {
  return ExtractBetweenTags(text, tagOpen(tag), tagClose(tag));
}

double cSharedHTML::ExtractFloat(const QString& text, const QString& tag) const {
  return Numbers::Val(QByteArrayView(valueBetween(*this, text, tag).replace(',', '.')));
}

qint32 cSharedHTML::ExtractInt(const QString& text, const QString& tag) const {
  return Numbers::ValTo32(valueBetween(*this, text, tag));
}

bool cSharedHTML::ExtractBool(const QString& text, const QString& tag) const {
  return ExtractString(text, tag) == u"-1"_s;
}

qint32 cSharedHTML::ExtractDate(const QString& text, const QString& tag) const {
  try {
    return Numbers::DayNumber(valueBetween(*this, text, tag));
  } catch (const RuntimeError&) {
    return 0;
  }
}

QString cSharedHTML::EncloseString(QStringView value, QStringView tag) const {
  return tagOpen(tag).append(value).append(tagClose(tag));
}

QString cSharedHTML::EncloseFloat(double value, QStringView tag) const {
  return EncloseString(QString::number(value, 'g', QLocale::FloatingPointShortest), tag);
}

QString cSharedHTML::EncloseInt(qint32 value, QStringView tag) const {
  return EncloseString(QString::number(value), tag);
}

QString cSharedHTML::EncloseBool(bool value, QStringView tag) const {
  return EncloseString(value ? u"-1" : u"0", tag);
}

QString cSharedHTML::EncloseDate(qint32 dayNumber, QStringView tag) const {
  return EncloseString(QString::fromLatin1(Numbers::IsoDate(dayNumber)), tag);
}

QString cSharedHTML::ReplaceBetweenTags(const QString& text, const QString& open, const QString& close,
                                        const QString& content) const {
  if (open.isEmpty() || close.isEmpty()) {
    return text;
  }
  QString result;
  qsizetype kept = 0;
  for (qsizetype at = TextBasics::find(text, open); at >= 0; at = TextBasics::find(text, open, kept)) {
    const qsizetype inner = at + open.size();
    const qsizetype end = TextBasics::find(text, close, inner);
    if (end < 0) {
      break;
    }
    result.append(QStringView(text).sliced(kept, inner - kept)).append(content);
    result.append(QStringView(text).sliced(end, close.size()));
    kept = end + close.size();
  }
  return result.append(QStringView(text).sliced(kept));
}

QByteArray cSharedHTML::HtmlEncode(QStringView text) const {
  return Tags::HtmlEncode(text);
}

QString cSharedHTML::HtmlDecode(QByteArrayView text) const {
  return Tags::HtmlDecode(text);
}
