#include "core/text/modWordcount.h"

#include "core/infra/Guard.h"
#include "core/infra/clsHashTable.h"
#include "core/text/TextBasics.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace {

constexpr char16_t kApostrophe = u'\'';
constexpr char16_t kOpeningQuote = 0x2018;
constexpr char16_t kTypographicApostrophe = 0x2019;

enum class Role : quint8 { Letter, Gap, Apostrophe, Removed };

constexpr std::array<Role, 0x80> roles() {
  std::array<Role, 0x80> table{};
  for (const char gap : std::string_view("\r\n\t=,*- ")) {
    table[static_cast<uchar>(gap)] = Role::Gap;
  }
  for (const char removed : std::string_view("<>`~^\"(){}[]!?._")) {
    table[static_cast<uchar>(removed)] = Role::Removed;
  }
  table[kApostrophe] = Role::Apostrophe;
  return table;
}

constexpr std::array<Role, 0x80> kRoles = roles();

Role roleOf(char16_t unit) {
  if (unit < kRoles.size()) {
    return kRoles[unit];
  }
  return unit == kOpeningQuote || unit == kTypographicApostrophe ? Role::Apostrophe : Role::Letter;
}

/// The steps that apostrophes need, in this order and comparing case: every "'s" goes; "'ve", "'t" and "'ll" get a
/// typographic apostrophe; the other apostrophes go. Afterwards the piece has typographic ones alone.
void settleApostrophes(std::vector<char16_t>& piece) {
  std::replace_if(
      piece.begin(), piece.end(), [](char16_t unit) { return roleOf(unit) == Role::Apostrophe; }, kApostrophe);
  auto out = piece.begin();
  for (auto at = piece.begin(); at != piece.end(); ++at) {
    if (*at == kApostrophe && at + 1 != piece.end() && at[1] == u's') {
      ++at;
    } else {
      *out++ = *at;
    }
  }
  const std::u16string_view rest(piece.data(), static_cast<size_t>(out - piece.begin()));
  out = piece.begin();
  for (size_t i = 0; i < rest.size(); ++i) {
    const std::u16string_view behind = rest.substr(i + 1);
    if (rest[i] != kApostrophe) {
      *out++ = rest[i];
    } else if (behind.starts_with(u"ve") || behind.starts_with(u"t") || behind.starts_with(u"ll")) {
      *out++ = kTypographicApostrophe;
    }
  }
  piece.erase(out, piece.end());
}

char16_t smallLetter(char16_t unit) {
  if (unit < 0x80) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit | 0x20) : unit;
  }
  return TextBasics::lower(unit).unicode();
}

/// Parts a text into pieces, each in the form in which it is counted.
class Breaker {
 public:
  explicit Breaker(clsHashTable& table) : table_(table) {}

  void take(QStringView text) {
    for (const QChar character : text) {
      const char16_t unit = character.unicode();
      const Role role = roleOf(unit);
      if (role == Role::Gap) {
        finishPiece();
      } else {
        piece_.push_back(unit);
        special_ |= role != Role::Letter;
        apostrophes_ |= role == Role::Apostrophe;
      }
    }
    finishPiece();
  }

 private:
  void finishPiece() {
    if (apostrophes_) {
      settleApostrophes(piece_);
    }
    if (special_) {
      std::erase_if(piece_, [](char16_t unit) { return roleOf(unit) == Role::Removed; });
    }
    if (!piece_.empty()) {
      std::transform(piece_.begin(), piece_.end(), piece_.begin(), smallLetter);
      piece_[0] = TextBasics::upper(piece_[0]).unicode();
      table_.AddToValue(QStringView(piece_.data(), static_cast<qsizetype>(piece_.size())));
    }
    piece_.clear();
    special_ = false;
    apostrophes_ = false;
  }

  clsHashTable& table_;
  std::vector<char16_t> piece_;
  bool special_ = false;
  bool apostrophes_ = false;
};

}  // namespace

// The told order of steps works on the whole text, but only its first step touches what parts the pieces: all others
// are done piece by piece, with the same result.
void BreakAndHash(clsHashTable& table, QStringView text) {
  Guard("BreakAndHash", "modWordcount")([&] { Breaker(table).take(text); });
}
