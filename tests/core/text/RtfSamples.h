#pragma once

#include "core/text/RichText.h"

#include <QByteArray>
#include <QList>
#include <QRandomGenerator>
#include <QString>

/// RTF of many kinds, for the properties that hold for any: tables, fields, pictures, code pages, broken ends.
QList<QByteArray> rtfSamples();

/// A rich text made up at random: any characters, line breaks, empty paragraphs, every format.
RichText randomRichText(QRandomGenerator& random, int depth = 0);

struct CorpusFile {
  QString name;
  QString flags;
  QByteArray rtf;
  QString plain;  ///< As expected, without line ends behind.
};

/// The shared RTF files of other programs; empty where they are absent.
QList<CorpusFile> rtfCorpus();

/// A file of tests/samples/rtf, each of which holds one kind of thing as word processors write it.
QByteArray rtfSampleFile(const QString& name);
/// The names of all of them, sorted.
QStringList rtfSampleFiles();

/// For messages: the differing end of two texts would be hidden in long ones.
QString withoutTrailingLineEnds(QString text);

std::ostream& operator<<(std::ostream& out, const RichText& text);
