#pragma once

#include <QFile>
#include <QString>

/// One row of the tables that scripts/kill-test prints: the name of its table and the row's cells. Nothing happens
/// where nobody asked for figures.
inline void noteFigures(const QString& table, const QStringList& cells) {
  QFile file(qEnvironmentVariable("QUILLANE_FIGURES"));
  if (!file.fileName().isEmpty() && file.open(QIODevice::Append)) {
    file.write((table + u'\t' + cells.join(u'\t') + u'\n').toUtf8());
  }
}
