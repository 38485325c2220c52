#include "core/infra/Numbers.h"

#include "core/infra/Clock.h"
#include "core/infra/CodePage.h"
#include "core/infra/RuntimeError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

int digitOf(char c) {
  if (isDigit(c)) {
    return c - '0';
  }
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'z' ? lower - 'a' + 10 : 99;
}

/// The end of the decimal number at the front of the text; 0 when there is none.
qsizetype decimalEnd(QByteArrayView text) {
  qsizetype at = 0;
  const auto digits = [&] {
    const qsizetype from = at;
    while (at < text.size() && isDigit(text[at])) {
      ++at;
    }
    return at - from;
  };
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) {
    ++at;
  }
  qsizetype mantissa = digits();
  if (at < text.size() && text[at] == '.') {
    ++at;
    mantissa += digits();
  }
  if (mantissa == 0) {
    return 0;
  }
  const qsizetype end = at;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    ++at;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) {
      ++at;
    }
    if (digits() > 0) {
      return at;
    }
  }
  return end;
}

/// How many digits stand in front of the point once a number has no leading zeros; below 0, zeros behind the point.
qint64 magnitudeOf(QByteArrayView mantissa) {
  const qsizetype point = mantissa.indexOf('.');
  const qsizetype whole = point < 0 ? mantissa.size() : point;
  qsizetype first = 0;
  while (first < mantissa.size() && (mantissa[first] == '0' || mantissa[first] == '.')) {
    ++first;
  }
  return whole - (first > whole ? first - 1 : first);
}

/// What a number beyond the range of a double stands for: nothing when it is too small, else infinity.
double beyondRange(QByteArrayView text) {
  constexpr qint64 kEnough = 1'000'000'000;
  const bool negative = text.startsWith('-');
  const QByteArray digits = QByteArray(text.data(), text.size()).mid(negative ? 1 : 0).toLower();
  const qsizetype mark = digits.indexOf('e');
  const bool isSmall = mark >= 0 && digits.mid(mark + 1).startsWith('-');
  const double exponent = mark < 0 ? 0 : digits.mid(mark + 1).toDouble();
  const auto power = static_cast<qint64>(std::min<double>(std::abs(exponent), kEnough));
  const qint64 magnitude = magnitudeOf(digits.left(mark < 0 ? digits.size() : mark)) + (isSmall ? -power : power);
  const double size = magnitude <= 0 ? 0 : std::numeric_limits<double>::infinity();
  return negative ? -size : size;
}

/// Whole numbers of few digits, which nearly all are; nothing for any other text.
std::optional<double> shortWhole(QByteArrayView text) {
  constexpr qsizetype kExactDigits = 15;
  const bool negative = text[0] == '-';
  const QByteArrayView digits = text.sliced(negative || text[0] == '+' ? 1 : 0);
  if (digits.size() > kExactDigits) {
    return {};
  }
  qint64 value = 0;
  for (const char c : digits) {
    if (!isDigit(c)) {
      return {};
    }
    value = value * 10 + (c - '0');
  }
  return static_cast<double>(negative ? -value : value);
}

/// The value of a text that decimalEnd has found to be a number.
double decimal(QByteArrayView text) {
  if (const auto whole = shortWhole(text)) {
    return *whole;
  }
  if (text.startsWith('+')) {
    text = text.sliced(1);
  }
  double value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  return read.ec == std::errc::result_out_of_range ? beyondRange(text) : value;
}

double radix(QByteArrayView digits, int base) {
  double value = 0;
  for (const char c : digits) {
    const int digit = digitOf(c);
    if (digit >= base) {
      break;
    }
    value = value * base + digit;
  }
  return value;
}

qsizetype skipBlanks(QByteArrayView text) {
  qsizetype at = 0;
  while (at < text.size() && isBlank(text[at])) {
    ++at;
  }
  return at;
}

double roundHalfEven(double value) {
  return std::nearbyint(value);
}

/// The low bits of a whole number of any size, as a two's complement number.
quint32 lowBits(double value) {
  constexpr double kRange = 4294967296.0;
  if (!std::isfinite(value)) {
    return 0;
  }
  double low = std::fmod(std::trunc(value), kRange);
  if (low < 0) {
    low += kRange;
  }
  return static_cast<quint32>(low);
}

/// One to four digits of a date, and the position behind them; -1 when there are none.
int datePiece(QByteArrayView text, qsizetype& at) {
  int value = 0;
  const qsizetype from = at;
  while (at < text.size() && isDigit(text[at]) && at - from < 4) {
    value = value * 10 + (text[at++] - '0');
  }
  return at == from ? -1 : value;
}

bool isDateSeparator(char c) {
  return c == '-' || c == '/' || c == '.';
}

}  // namespace

namespace Numbers {

double Val(QByteArrayView text) {
  text = text.sliced(skipBlanks(text));
  if (text.size() > 1 && text[0] == '&') {
    const char kind = static_cast<char>(text[1] | 0x20);
    if (kind == 'h') {
      return radix(text.sliced(2), 16);
    }
    return kind == 'o' ? radix(text.sliced(2), 8) : 0;
  }
  const qsizetype end = decimalEnd(text);
  return end == 0 ? 0 : decimal(text.first(end));
}

double Val(QStringView text) {
  return Val(QByteArrayView(CodePage::toBytes(text)));
}

qint32 ValTo32(QByteArrayView text) {
  return static_cast<qint32>(lowBits(Val(text)));
}

qint16 ValTo16(QByteArrayView text) {
  return static_cast<qint16>(lowBits(Val(text)) & 0xFFFFU);
}

qint32 Strict32(QByteArrayView text) {
  text = text.sliced(skipBlanks(text));
  while (!text.isEmpty() && isBlank(text.back())) {
    text.chop(1);
  }
  const qsizetype end = decimalEnd(text);
  if (end == 0 || end != text.size()) {
    throw RuntimeError(RuntimeError::TypeMismatch);
  }
  const double value = roundHalfEven(decimal(text));
  if (!(value >= std::numeric_limits<qint32>::min() && value <= std::numeric_limits<qint32>::max())) {
    throw RuntimeError(RuntimeError::Overflow);
  }
  return static_cast<qint32>(value);
}

qint32 DayNumber(QByteArrayView text) {
  text = text.sliced(skipBlanks(text));
  std::array<int, 3> pieces{};
  qsizetype at = 0;
  for (size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0 && (at >= text.size() || !isDateSeparator(text[at++]))) {
      throw RuntimeError(RuntimeError::TypeMismatch);
    }
    pieces[i] = datePiece(text, at);
  }
  const bool timeOrNothingBehind = at >= text.size() || isBlank(text[at]) || text[at] == 'T';
  const QDate date(pieces[0], pieces[1], pieces[2]);
  if (!timeOrNothingBehind || pieces[0] < 100 || !date.isValid()) {
    throw RuntimeError(RuntimeError::TypeMismatch);
  }
  return Clock::dayNumber(date);
}

QByteArray IsoDate(qint32 dayNumber) {
  constexpr qint32 kFirst = -657434;
  constexpr qint32 kLast = 2958465;
  return Clock::dateOf(std::clamp(dayNumber, kFirst, kLast)).toString(Qt::ISODate).toLatin1();
}

std::optional<double> ToNumber(const QVariant& value) {
  if (value.typeId() != QMetaType::QString) {
    bool ok = false;
    const double number = value.typeId() == QMetaType::Bool ? (value.toBool() ? -1 : 0) : value.toDouble(&ok);
    return ok || value.typeId() == QMetaType::Bool ? std::optional(number) : std::nullopt;
  }
  const QByteArray text = CodePage::toBytes(value.toString().trimmed());
  const qsizetype end = decimalEnd(text);
  return end != 0 && end == text.size() ? std::optional(decimal(text)) : std::nullopt;
}

bool ToBool(const QVariant& value) {
  return ToNumber(value).value_or(0) != 0;
}

qint32 ToInt(const QVariant& value) {
  const double number = roundHalfEven(ToNumber(value).value_or(0));
  constexpr double kLow = std::numeric_limits<qint32>::min();
  constexpr double kHigh = std::numeric_limits<qint32>::max();
  return static_cast<qint32>(std::clamp(std::isnan(number) ? 0.0 : number, kLow, kHigh));
}

}  // namespace Numbers
