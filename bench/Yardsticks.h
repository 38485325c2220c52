#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <array>

/// *War and Peace* as plain text where the shared material stands beside the repository, else empty.
inline QString sharedNovel() {
  for (const char* beside : {"/../shared", "/../../shared"}) {
    QFile file(QString::fromLatin1(QUILLANE_SOURCE_DIR) + QString::fromLatin1(beside) +
               QStringLiteral("/novels/war-and-peace.txt"));
    if (file.open(QIODevice::ReadOnly)) {
      return QString::fromUtf8(file.readAll());
    }
  }
  return {};
}

/// Every byte looked at by itself and copied to UTF-16 through a table.
inline QString byteWalk(const QByteArray& bytes) {
  static const auto table = [] {
    std::array<char16_t, 256> units{};
    for (size_t i = 0; i < units.size(); ++i) {
      units[i] = static_cast<char16_t>(i);
    }
    return units;
  }();
  QString out(bytes.size(), Qt::Uninitialized);
  auto* unit = reinterpret_cast<char16_t*>(out.data());
  for (const char byte : bytes) {
    *unit++ = table[static_cast<uchar>(byte)];
  }
  return out;
}
