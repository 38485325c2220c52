// The class over the helper libraries: what calls them, and what happens when one is missing.
#include "core/text/cSharedHTML.h"

#include "core/infra/CodePage.h"
#include "core/infra/Guard.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSHAREDShowError.h"
#include "core/infra/cSharedLang.h"
#include "core/text/HelperRoutines.h"
#include "core/text/Tags.h"
#include "core/text/TextBasics.h"
#include "core/text/WordBytes.h"
#include "helpers/Units.h"

#include <QStringMatcher>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "cSharedHTML";

char16_t* unitsOf(QString& text) {
  return reinterpret_cast<char16_t*>(text.data());
}

const char16_t* unitsIn(const QString& text) {
  return QStringView(text).utf16();
}

size_t sizeOf(const QString& text) {
  return static_cast<size_t>(text.size());
}

/// Runs a routine that works in place.
void inPlace(QString& text, size_t (*routine)(char16_t*, size_t)) {
  text.truncate(static_cast<qsizetype>(routine(unitsOf(text), sizeOf(text))));
}

void cutAtNul(QString& text) {
  const qsizetype nul = text.indexOf(u'\0');
  if (nul >= 0) {
    text.truncate(nul);
  }
}

/// What is compared when case is ignored; unit for unit as long as the text.
QString folded(const QString& text) {
  QString result(text.size(), Qt::Uninitialized);
  std::transform(text.begin(), text.end(), result.begin(), [](QChar unit) { return unit.toCaseFolded(); });
  for (qsizetype i = 0; i + 1 < text.size(); ++i) {
    if (text[i].isHighSurrogate() && text[i + 1].isLowSurrogate()) {
      const char32_t character = QChar::toCaseFolded(QChar::surrogateToUcs4(text[i], text[i + 1]));
      result[i] = QChar(QChar::highSurrogate(character));
      result[i + 1] = QChar(QChar::lowSurrogate(character));
    }
  }
  return result;
}

/// Each doubled unit becomes CR LF.
void breakDoubled(QString& text, char16_t unit) {
  char16_t* const begin = unitsOf(text);
  const char16_t* const end = begin + text.size();
  for (const char16_t* found = Units::findDoubled(begin, end, unit); found < end;
       found = Units::findDoubled(found, end, unit)) {
    begin[found - begin] = u'\r';
    begin[found - begin + 1] = u'\n';
    found += 2;
  }
}

bool isLineStart(QStringView before) {
  return before.isEmpty() || before.back() == u'\n' || before.back() == u'\r';
}

/// Every "[pb]" on a line of its own; line ends that are there already do.
QString pageBreaksOnLines(const QString& text) {
  constexpr QStringView kMark = u"[pb]";
  qsizetype at = TextBasics::find(text, kMark);
  if (at < 0) {
    return text;
  }
  QString result;
  result.reserve(text.size() + text.size() / 8);
  qsizetype kept = 0;
  for (; at >= 0; at = TextBasics::find(text, kMark, kept)) {
    result.append(QStringView(text).sliced(kept, at - kept));
    result.append(isLineStart(result) ? QStringView() : QStringView(u"\r\n")).append(kMark);
    kept = at + kMark.size();
    const bool ended = kept == text.size() || text[kept] == u'\r' || text[kept] == u'\n';
    result.append(ended ? QStringView() : QStringView(u"\r\n"));
  }
  return result.append(QStringView(text).sliced(kept));
}

/// The text without what stands from "<!--" to "-->"; a mark without its partner stays.
void removeComments(QString& text) {
  constexpr QStringView kOpen = u"<!--";
  constexpr QStringView kClose = u"-->";
  QString result;
  qsizetype kept = 0;
  for (qsizetype open = TextBasics::find(text, kOpen); open >= 0; open = TextBasics::find(text, kOpen, kept)) {
    const qsizetype close = TextBasics::find(text, kClose, open + kOpen.size());
    if (close < 0) {
      break;
    }
    result.append(QStringView(text).sliced(kept, open - kept));
    kept = close + kClose.size();
  }
  if (kept > 0) {
    text = result.append(QStringView(text).sliced(kept));
  }
}

/// The end of the next stretch to count: behind a blank, so that no word is cut.
qsizetype countableEnd(QStringView text, qsizetype from) {
  constexpr qsizetype kStretch = 8192;
  if (text.size() - from <= kStretch) {
    return text.size();
  }
  qsizetype blank = text.sliced(from, kStretch).lastIndexOf(u' ');
  if (blank >= 0) {
    return from + blank + 1;
  }
  blank = text.indexOf(u' ', from + kStretch);
  return blank < 0 ? text.size() : blank + 1;
}

/// A stretch at a time, which stays in the nearest cache.
qint32 countWords(QStringView text, decltype(&cWordCount) count) {
  qint32 words = 0;
  QByteArray bytes;
  for (qsizetype from = 0; from < text.size();) {
    const qsizetype end = countableEnd(text, from);
    bytes.resize(end - from);
    WordBytes::write(text.sliced(from, end - from), bytes.data());
    words += count(bytes.constData());
    from = end;
  }
  return words;
}

/// As often as `wanted` can be replaced in one pass.
qsizetype countHits(QStringView text, const QString& wanted) {
  const QStringMatcher matcher(wanted);
  qsizetype hits = 0;
  for (qsizetype at = matcher.indexIn(text); at >= 0; at = matcher.indexIn(text, at + wanted.size())) {
    ++hits;
  }
  return hits;
}

template <class Encode, class Byte>
QByteArray encodedBy(Encode encode, const Byte* bytes, qsizetype size) {
  QByteArray out((size + 2) / 3 * 4, Qt::Uninitialized);
  encode(bytes, static_cast<size_t>(size), out.data());
  return out;
}

}  // namespace

struct cSharedHTML::Libraries {
  std::optional<QnHtmlRoutines> qnHtml;
  std::optional<QnHtml2Routines> qnHtml2;
};

cSharedHTML::cSharedHTML() : libraries_(std::make_unique<Libraries>()) {}

cSharedHTML::~cSharedHTML() = default;

const QnHtmlRoutines& cSharedHTML::qnHtml() const {
  if (!libraries_->qnHtml) {
    try {
      libraries_->qnHtml = QnHtmlRoutines::load();
    } catch (const RuntimeError&) {
      tellRequired(kQnHtml);
      throw;
    }
  }
  return *libraries_->qnHtml;
}

const QnHtml2Routines& cSharedHTML::qnHtml2() const {
  if (!libraries_->qnHtml2) {
    try {
      libraries_->qnHtml2 = QnHtml2Routines::load();
    } catch (const RuntimeError&) {
      tellRequired(kQnHtml2);
      throw;
    }
  }
  return *libraries_->qnHtml2;
}

void cSharedHTML::tellRequired(const char* library) const {
  if (std::exchange(told_, true)) {
    return;
  }
  ShowError().ShowErr(toldText(
      shownText(u"The library %1 is required, and it is missing or can't be used. Please reinstall the program."_s),
      {QString::fromLatin1(library)}));
}

// The aim is to load the library and to find out early that it can't be used.
void cSharedHTML::testLibrary() const {
  if (std::exchange(LibraryChecked, true)) {
    return;
  }
  if (ReplaceWith_NC(u"ada marsh"_s, u"ada"_s, u"ADA"_s) != u"ADA marsh"_s) {
    tellRequired(kQnHtml);
  }
}

template <class Statement>
bool cSharedHTML::withLibrary(const char* routine, Statement&& statement) const {
  testLibrary();
  const Guard guard(routine, kModule);
  return guard(std::forward<Statement>(statement));
}

bool cSharedHTML::strip(QString& text) const {
  if (!text.contains(u'<') && !text.contains(u'>')) {
    return true;
  }
  return withLibrary("StripHtml", [&] {
    const auto routine = qnHtml().cStripHTML;
    removeComments(text);
    inPlace(text, routine);
  });
}

bool cSharedHTML::entitiesToChars(QString& text) const {
  if (text.isEmpty()) {
    return true;
  }
  return withLibrary("HtmlToChar", [&] {
    const auto routine = qnHtml().cHtmlToChar;
    if (text.contains(u'&')) {
      inPlace(text, routine);
    }
    cutAtNul(text);
  });
}

bool cSharedHTML::toPageling(QString& text) const {
  return withLibrary("ConvertToPagelingFormatting", [&] {
    const auto routine = qnHtml().cConvertKnownFormatting;
    TextBasics::trim(text);
    text = pageBreaksOnLines(text);
    inPlace(text, routine);
    cutAtNul(text);
    TextBasics::trim(text);
  });
}

QString cSharedHTML::StripHtml(const QString& text) const {
  QString stripped = text;
  return strip(stripped) ? stripped : text;
}

QString cSharedHTML::HtmlToChar(const QString& text) const {
  QString converted = text;
  TextBasics::trim(converted);
  return entitiesToChars(converted) ? converted : text;
}

QString cSharedHTML::ConvertToPagelingFormatting(const QString& text) const {
  QString converted = text;
  return toPageling(converted) ? converted : text;
}

QString cSharedHTML::HtmlToPlainText(const QString& text) const {
  return toPlain(text, false);
}

QString cSharedHTML::HtmlToPagelingText(const QString& text) const {
  return toPlain(text, true);
}

// A text is converted whole or not at all.
QString cSharedHTML::toPlain(const QString& text, bool keepFormatting) const {
  QString plain = text;
  TextBasics::trim(plain);
  if (plain.isEmpty()) {
    return plain;
  }
  plain = TrimHeadTags(plain);
  if ((keepFormatting && !toPageling(plain)) || !strip(plain)) {
    return text;
  }
  constantsToChars(plain);
  TextBasics::trim(plain);
  if (!entitiesToChars(plain)) {
    return text;
  }
  plain = ConvertBR(plain);
  breakDoubled(plain, u'\r');
  breakDoubled(plain, u'\n');
  return plain;
}

QString cSharedHTML::replacedByC(const char* routine, const QString& text, const QString& find, const QString& replace,
                                 Qt::CaseSensitivity cs) const {
  QString result = text;
  withLibrary(routine, [&] {
    const auto cReplace = qnHtml().cReplace;
    if (find.isEmpty() || text.isEmpty()) {
      return;
    }
    const QString searched = cs == Qt::CaseSensitive ? text : folded(text);
    const QString wanted = cs == Qt::CaseSensitive ? find : folded(find);
    const qsizetype growth = std::max<qsizetype>(0, replace.size() - find.size());
    const qsizetype hits = growth == 0 ? 0 : countHits(searched, wanted);
    QString out(text.size() + hits * growth, Qt::Uninitialized);
    const size_t size = cReplace(unitsIn(text), unitsIn(searched), sizeOf(text), unitsIn(wanted), sizeOf(wanted),
                                 unitsIn(replace), sizeOf(replace), unitsOf(out));
    out.truncate(static_cast<qsizetype>(size));
    out.squeeze();
    result = std::move(out);
  });
  return result;
}

QString cSharedHTML::ReplaceWith(const QString& text, const QString& find, const QString& replace) const {
  return replacedByC("ReplaceWith", text, find, replace, Qt::CaseInsensitive);
}

QString cSharedHTML::ReplaceWith_NC(const QString& text, const QString& find, const QString& replace) const {
  return replacedByC("ReplaceWith_NC", text, find, replace, Qt::CaseSensitive);
}

QString cSharedHTML::ReplaceUsingC(const QString& text, const QString& find, const QString& replace) const {
  return replacedByC("ReplaceUsingC", text, find, replace, Qt::CaseSensitive);
}

QString cSharedHTML::RemoveChar(const QString& text, const QString& character) const {
  QString result = text;
  if (text.isEmpty() || character.isEmpty()) {
    return result;
  }
  if (character.size() > 1 && character[0].isHighSurrogate() && character[1].isLowSurrogate()) {
    return replacedByC("RemoveChar", text, character.first(2), {}, Qt::CaseSensitive);
  }
  withLibrary("RemoveChar", [&] {
    const auto routine = qnHtml().cRemoveChar;
    result.truncate(static_cast<qsizetype>(routine(unitsOf(result), sizeOf(result), character[0].unicode())));
    cutAtNul(result);
  });
  return result;
}

QString cSharedHTML::CutOffNull(const QString& text) const {
  QString result = text;
  cutAtNul(result);
  return result;
}

QString cSharedHTML::RemoveExtraSpaces(const QString& text) const {
  QString result = text;
  withLibrary("RemoveExtraSpaces", [&] {
    inPlace(result, qnHtml().cRemoveExtraSpaces);
    cutAtNul(result);
  });
  return result;
}

QString cSharedHTML::ByteArrayToString(QByteArrayView bytes) const {
  QString text;
  const bool done = withLibrary("ByteArrayToString", [&] {
    const auto routine = qnHtml2().cByteArrayToString;
    text.resize(bytes.size());
    routine(reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<size_t>(bytes.size()), unitsOf(text));
  });
  return done ? text : CodePage::fromBytes(bytes);
}

qint32 cSharedHTML::CalcWordCount(QStringView text) const {
  qint32 words = 0;
  if (!text.isEmpty()) {
    withLibrary("CalcWordCount", [&] { words = countWords(text, qnHtml().cWordCount); });
  }
  return words;
}

QByteArray cSharedHTML::encodedMime64(QByteArrayView bytes) const {
  testLibrary();
  return encodedBy(qnHtml2().cEncode64String, bytes.data(), bytes.size());
}

QByteArray cSharedHTML::decodedMime64(QByteArrayView text) const {
  testLibrary();
  const auto decode = qnHtml2().cDecode64String;
  QByteArray out((text.size() / 4 + 1) * 3, Qt::Uninitialized);
  const std::ptrdiff_t size = decode(text.data(), static_cast<size_t>(text.size()), out.data());
  if (size < 0) {
    throw RuntimeError(RuntimeError::InvalidCall, u"The text is no Base64"_s);
  }
  out.truncate(size);
  return out;
}

QByteArray cSharedHTML::EncodeMime64String(QByteArrayView text) const {
  QByteArray encoded;
  return withLibrary("EncodeMime64String", [&] { encoded = encodedMime64(text); }) ? encoded : text.toByteArray();
}

QByteArray cSharedHTML::EncodeMime64Array(QByteArrayView bytes) const {
  QByteArray encoded;
  const bool done = withLibrary("EncodeMime64Array", [&] {
    encoded = encodedBy(qnHtml2().cEncode64, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
  });
  return done ? encoded : bytes.toByteArray();
}

QByteArray cSharedHTML::DecodeMime64(QByteArrayView text) const {
  QByteArray decoded;
  return withLibrary("DecodeMime64", [&] { decoded = decodedMime64(text); }) ? decoded : text.toByteArray();
}

cSharedHTML& Html() {
  static cSharedHTML html;
  return html;
}
