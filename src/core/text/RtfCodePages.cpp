#include "core/text/RtfCodePages.h"

#include "core/infra/CodePage.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

struct CodePageName {
  int codePage;
  const char* name;
};

/// Those whose name is not made of the number as encodingName does it.
constexpr CodePageName kNames[] = {
    {708, "ISO-8859-6"},      {819, "ISO-8859-1"},       {10000, "macintosh"},    {10001, "Shift_JIS"},
    {10002, "Big5"},          {10003, "windows-949"},    {10004, "x-mac-arabic"}, {10005, "x-mac-hebrew"},
    {10006, "x-mac-greek"},   {10007, "x-mac-cyrillic"}, {10008, "GBK"},          {10029, "x-mac-centraleurroman"},
    {10081, "x-mac-turkish"}, {20866, "KOI8-R"},         {21866, "KOI8-U"},       {54936, "GBK"},
};

struct CharsetPage {
  int charset;
  int codePage;
};

constexpr CharsetPage kCharsets[] = {
    {0, 1252},   {2, ByteDecoder::kSymbol},
    {77, 10000}, {78, 10001},
    {79, 10003}, {80, 10008},
    {81, 10002}, {83, 10005},
    {84, 10004}, {85, 10006},
    {86, 10081}, {88, 10029},
    {89, 10007}, {128, 932},
    {129, 949},  {130, 1361},
    {134, 936},  {136, 950},
    {161, 1253}, {162, 1254},
    {163, 1258}, {177, 1255},
    {178, 1256}, {181, 1256},
    {186, 1257}, {204, 1251},
    {222, 874},  {238, 1250},
    {254, 437},  {255, 850},
};

QByteArray encodingName(int codePage) {
  const auto* found = std::find_if(std::begin(kNames), std::end(kNames),
                                   [codePage](const CodePageName& entry) { return entry.codePage == codePage; });
  if (found != std::end(kNames)) {
    return found->name;
  }
  if (codePage >= 28591 && codePage <= 28605) {
    return "ISO-8859-" + QByteArray::number(codePage - 28590);
  }
  const bool isWindows = codePage == 874 || (codePage >= 932 && codePage <= 950) || codePage >= 1250;
  return (isWindows ? "windows-" : "IBM") + QByteArray::number(codePage);
}

struct LeadRange {
  int codePage;
  uchar first;
  uchar last;
};

constexpr LeadRange kLeads[] = {
    {932, 0x81, 0x9F},   {932, 0xE0, 0xFC},   {936, 0x81, 0xFE},   {949, 0x81, 0xFE},   {950, 0x81, 0xFE},
    {1361, 0x84, 0xD3},  {1361, 0xD8, 0xDE},  {1361, 0xE0, 0xF9},  {10001, 0x81, 0x9F}, {10001, 0xE0, 0xFC},
    {10002, 0x81, 0xFC}, {10003, 0xA1, 0xFE}, {10008, 0xA1, 0xFC}, {54936, 0x81, 0xFE},
};

constexpr LeadRange kUtf8Leads[] = {{2, 0xC2, 0xDF}, {3, 0xE0, 0xEF}, {4, 0xF0, 0xF4}};

std::array<uchar, 256> sequenceLengths(int codePage) {
  std::array<uchar, 256> lengths;
  lengths.fill(1);
  const auto mark = [&lengths](const LeadRange& range, int length) {
    std::fill(lengths.begin() + range.first, lengths.begin() + range.last + 1, static_cast<uchar>(length));
  };
  for (const LeadRange& range : kLeads) {
    if (range.codePage == codePage) {
      mark(range, 2);
    }
  }
  if (codePage == ByteDecoder::kUtf8) {
    for (const LeadRange& range : kUtf8Leads) {
      mark(range, range.codePage);
    }
  }
  return lengths;
}

char16_t onlyUnit(const QString& decoded) {
  return decoded.size() == 1 ? decoded[0].unicode() : ByteDecoder::kInvalid;
}

/// A byte that the code page leaves open stands for itself, as in our own code page.
char16_t singleUnit(QStringDecoder& decoder, uchar byte) {
  const char raw = static_cast<char>(byte);
  decoder.resetState();
  const char16_t unit = onlyUnit(decoder.decode(QByteArrayView(&raw, 1)));
  return unit == ByteDecoder::kInvalid ? byte : unit;
}

char32_t decodeUtf8(QByteArrayView sequence) {
  static constexpr uint kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
  static constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const auto length = static_cast<size_t>(sequence.size());
  char32_t character = static_cast<uchar>(sequence[0]) & kLeadBits[length];
  for (const char byte : sequence.sliced(1)) {
    character = character << 6 | (static_cast<uchar>(byte) & 0x3FU);
  }
  const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
  return character < kLeast[length] || character > 0x10FFFF || isSurrogate ? ByteDecoder::kInvalid : character;
}

}  // namespace

ByteDecoder::ByteDecoder(int codePage) : codePage_(codePage), lengths_(sequenceLengths(codePage)) {
  for (size_t byte = 0; byte < singles_.size(); ++byte) {
    singles_[byte] = CodePage::toChar(static_cast<uchar>(byte));
  }
  if (codePage == kSymbol) {
    for (size_t byte = 0x21; byte < singles_.size(); ++byte) {
      singles_[byte] = static_cast<char16_t>(0xF000 + byte);
    }
    return;
  }
  if (codePage == kUtf8) {
    std::fill(singles_.begin() + 0x80, singles_.end(), kInvalid);
    return;
  }
  if (codePage == 1252) {
    return;
  }
  pairs_ = QStringDecoder(encodingName(codePage).constData(), QStringDecoder::Flag::Default);
  for (size_t byte = 0x80; byte < singles_.size() && pairs_.isValid(); ++byte) {
    singles_[byte] = lengths_[byte] > 1 ? kInvalid : singleUnit(pairs_, static_cast<uchar>(byte));
  }
}

namespace {

/// Asking for an encoding that isn't there is slow, and a text may ask for each of its words.
bool isKnownEncoding(int codePage) {
  constexpr size_t kMostRemembered = 256;
  static std::set<int> unknown;
  if (unknown.count(codePage) > 0) {
    return false;
  }
  if (QStringDecoder(encodingName(codePage).constData()).isValid()) {
    return true;
  }
  if (unknown.size() >= kMostRemembered) {
    unknown.clear();
  }
  unknown.insert(codePage);
  return false;
}

}  // namespace

const ByteDecoder& ByteDecoder::of(int codePage) {
  static std::map<int, ByteDecoder> decoders;
  const auto known = decoders.find(codePage);
  if (known != decoders.end()) {
    return known->second;
  }
  // These name encodings of whole characters, not pages of bytes.
  constexpr int kWide[] = {1200, 1201, 12000, 12001, 65000};
  if (std::find(std::begin(kWide), std::end(kWide), codePage) != std::end(kWide)) {
    return of(1252);
  }
  const bool usual = codePage == 1252 || codePage == kSymbol || codePage == kUtf8 || codePage == 1361;
  if (!usual && !isKnownEncoding(codePage)) {
    return of(1252);
  }
  return decoders.try_emplace(codePage, codePage).first->second;
}

char32_t ByteDecoder::decode(QByteArrayView sequence) const {
  if (sequence.size() == 1) {
    return singles_[static_cast<uchar>(sequence[0])];
  }
  if (codePage_ == kUtf8) {
    return decodeUtf8(sequence);
  }
  return decodePair(static_cast<uchar>(sequence[0]), static_cast<uchar>(sequence[1]));
}

char16_t ByteDecoder::decodePair(uchar lead, uchar trail) const {
  if (known_.empty()) {
    known_.assign(0x10000, 0);
  }
  char16_t& known = known_[lead * 256U + trail];
  if (known == 0) {
    const char raw[] = {static_cast<char>(lead), static_cast<char>(trail)};
    pairs_.resetState();
    known = pairs_.isValid() ? onlyUnit(pairs_.decode(QByteArrayView(raw, 2))) : kInvalid;
  }
  return known;
}

bool isSymbolFont(QStringView name) {
  constexpr QStringView kFonts[] = {u"Symbol", u"Wingdings", u"Wingdings 2", u"Wingdings 3", u"Webdings"};
  return std::find(std::begin(kFonts), std::end(kFonts), name) != std::end(kFonts);
}

int codePageOfCharset(int charset) {
  const auto* found = std::find_if(std::begin(kCharsets), std::end(kCharsets),
                                   [charset](const CharsetPage& entry) { return entry.charset == charset; });
  return found == std::end(kCharsets) ? 0 : found->codePage;
}
