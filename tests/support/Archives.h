#pragma once

#include "core/infra/ZipContents.h"

#include <QByteArray>
#include <QMap>
#include <QProcess>
#include <QStandardPaths>
#include <QString>

/// What an archive holds, by name.
inline QMap<QString, QByteArray> membersOf(const QString& archive) {
  const ZipContents contents(archive);
  QMap<QString, QByteArray> members;
  for (qsizetype i = 0; i < contents.members().size(); ++i) {
    members.insert(contents.members().at(i).name, contents.read(i));
  }
  return members;
}

/// Whether the system's own program finds nothing wrong with it; true where there is none.
inline bool othersCanRead(const QString& archive) {
  const QString program = QStandardPaths::findExecutable(QStringLiteral("unzip"));
  return program.isEmpty() || QProcess::execute(program, {QStringLiteral("-tqq"), archive}) == 0;
}
