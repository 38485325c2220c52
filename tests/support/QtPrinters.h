#pragma once

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <ostream>

// How GoogleTest shows values of ours in a failure; found through the types' own namespace.

inline void PrintTo(const QString& text, std::ostream* out) {
  *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
  *out << '"' << bytes.toPercentEncoding(" ,;:/=()[]{}<>!?&#+*'\"").toStdString() << '"';
}

inline void PrintTo(const QStringList& list, std::ostream* out) {
  *out << '[' << list.join(QStringLiteral(" | ")).toStdString() << ']';
}

inline void PrintTo(const QDate& date, std::ostream* out) {
  *out << date.toString(Qt::ISODate).toStdString();
}

inline void PrintTo(const QDateTime& time, std::ostream* out) {
  *out << time.toString(Qt::ISODate).toStdString();
}

inline void PrintTo(const QVariant& value, std::ostream* out) {
  *out << (value.isValid() ? value.typeName() : "nothing") << " \"" << value.toString().toStdString() << '"';
}
