#pragma once

#include <QByteArray>
#include <QDebug>
#include <QString>

#include <concepts>
#include <ostream>
#include <type_traits>

// How values of ours show in a failing test. Every test sees this header before anything else: a source that a test
// happens to compare a value in before it is included would show the value's bytes instead.

inline std::ostream& operator<<(std::ostream& out, const QString& text) {
  return out << '"' << text.toUtf8().constData() << '"';
}

/// Of a whole file its beginning.
inline std::ostream& operator<<(std::ostream& out, const QByteArray& bytes) {
  constexpr qsizetype kShown = 600;
  out << '"' << bytes.left(kShown).toPercentEncoding(" ,;:/=()[]{}<>!?&#+*'\"\\").constData() << '"';
  return bytes.size() > kShown ? out << " and " << bytes.size() - kShown << " bytes more" : out;
}

// A text is a container too, which a comparison would show letter by letter.

inline void PrintTo(const QString& text, std::ostream* out) {
  *out << text;
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
  *out << bytes;
}

/// Any other value that Qt itself can show: dates, lists, variants, rectangles, colours.
template <class Value>
concept ShownByQt = std::is_class_v<Value> && !std::same_as<Value, QString> && !std::same_as<Value, QByteArray> &&
                    requires(QDebug debug, const Value& value) {
  debug << value;
};

template <ShownByQt Value>
void PrintTo(const Value& value, std::ostream* out) {
  *out << QDebug::toString(value).toUtf8().constData();
}
