#include "core/text/Rtf.h"
#include "core/text/RtfSamples.h"
#include "support/TestHome.h"

#include <QFile>
#include <QMap>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 200'000;

/// What the converter makes of two blanks side by side in a text that doesn't say who wrote it.
constexpr QChar kFixedBlank(0x2006);

/// What a converter finds in a text: under the name of each kind of thing what there is of it, in order.
using Findings = QMap<QString, QStringList>;

/// Reads a flat OpenDocument text.
class Finder {
 public:
  explicit Finder(const QByteArray& document) : xml_(document) {}

  Findings find() {
    while (!xml_.atEnd() && !(xml_.isStartElement() && xml_.qualifiedName() == u"office:text")) {
      xml_.readNext();
    }
    QString words;
    inside(words);
    words.replace(kFixedBlank, u' ');
    found_[u"words"_s] = words.split(u' ', Qt::SkipEmptyParts);
    return found_;
  }

 private:
  void inside(QString& words) {
    while (!xml_.atEnd()) {
      xml_.readNext();
      if (xml_.isEndElement()) {
        return;
      }
      if (xml_.isCharacters()) {
        words += QString(xml_.text().toString()).replace(u'\n', u' ');
      } else if (xml_.isStartElement()) {
        element(words);
      }
    }
  }

  QString apart() {
    QString words;
    inside(words);
    return words.simplified();
  }

  void element(QString& words) {
    const QString name = xml_.qualifiedName().toString();
    const auto value = [this](QLatin1StringView attribute) { return xml_.attributes().value(attribute).toString(); };
    if (name == u"text:note") {
      const QString kind = value("text:note-class"_L1);
      found_[kind].append(apart());
      return;
    }
    if (name == u"office:annotation") {
      found_[u"comments"_s].append(apart());
      return;
    }
    if (name == u"office:binary-data") {
      found_[u"bytes of pictures and objects"_s].append(QString::number(apart().remove(u' ').size()));
      return;
    }
    if (name == u"text:tracked-changes" || name == u"text:sequence-decls" || name == u"office:forms") {
      xml_.skipCurrentElement();
      return;
    }
    if (name == u"text:a") {
      found_[u"links"_s].append(value("xlink:href"_L1));
    } else if (name == u"text:bookmark" || name == u"text:bookmark-start") {
      found_[u"bookmarks"_s].append(value("text:name"_L1));
    } else if (name == u"draw:image" || name == u"draw:object-ole" || name == u"office:annotation-end" ||
               name == u"text:list-item" || name == u"text:alphabetical-index-mark" || name == u"text:toc-mark" ||
               name == u"text:page-number" || name == u"text:page-count" || name == u"text:date" ||
               name == u"text:bookmark-ref") {
      found_[name].append(u"one"_s);
    }
    const bool partsWords = !name.startsWith(u"text:span") && name != u"text:a";
    words += partsWords && name.startsWith(u"text:") ? u" "_s : QString();
    inside(words);
    words += name == u"text:p" || name == u"text:h" ? u" "_s : QString();
  }

  QXmlStreamReader xml_;
  Findings found_;
};

void writeFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()) << path;
}

Findings findingsIn(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? Finder(file.readAll()).find() : Findings();
}

/// What the converter shows and we tell as lost, or what it makes of a file that holds none.
bool isExpectedToDiffer(const QString& name, const QString& kind) {
  return (name == u"unkept" && kind == u"words") ||                                  // a text box, tracked deletions
         (name == u"rtfparser-rs__file-sample_100kB" && kind == u"text:list-item");  // headings without a number
}

}  // namespace

TEST(RtfConverter, FindsTheSameInWhatWeWrote) {
  const QString program = QStandardPaths::findExecutable(u"soffice"_s);
  if (program.isEmpty()) {
    GTEST_SKIP() << "no word processor's converter is installed";
  }
  const ScratchFolder folder;
  QStringList names;
  QStringList paths;
  const auto add = [&](const QString& name, const QByteArray& rtf) {
    names.append(name);
    for (const auto& [prefix, bytes] : {std::pair(u"theirs-"_s, rtf), std::pair(u"ours-"_s, writeRtf(readRtf(rtf)))}) {
      paths.append(folder.path(prefix + name + u".rtf"_s));
      writeFile(paths.last(), bytes);
    }
  };
  for (const QString& file : rtfSampleFiles()) {
    add(file.chopped(4), rtfSampleFile(file.chopped(4)));
  }
  for (const CorpusFile& file : rtfCorpus()) {
    add(file.name, file.rtf);
  }
  QProcess converter;
  converter.setProcessChannelMode(QProcess::MergedChannels);
  const QString home = u"-env:UserInstallation="_s + QUrl::fromLocalFile(folder.path(u"home"_s)).toString();
  converter.start(program, QStringList{home, u"--headless"_s, u"--norestore"_s, u"--convert-to"_s, u"fodt"_s,
                                       u"--outdir"_s, folder.path(u"made"_s)} +
                               paths);
  ASSERT_TRUE(converter.waitForFinished(kPatience)) << "the converter hangs";
  int compared = 0;
  for (const QString& name : names) {
    SCOPED_TRACE(name.toStdString());
    const Findings theirs = findingsIn(folder.path(u"made/theirs-"_s + name + u".fodt"_s));
    const Findings ours = findingsIn(folder.path(u"made/ours-"_s + name + u".fodt"_s));
    compared += theirs.isEmpty() ? 0 : 1;
    EXPECT_EQ(ours.keys(), theirs.keys());
    for (auto found = theirs.begin(); found != theirs.end(); ++found) {
      if (!isExpectedToDiffer(name, found.key())) {
        EXPECT_EQ(ours.value(found.key()), *found) << found.key();
      }
    }
  }
  if (compared == 0) {
    GTEST_SKIP() << "the converter that is installed makes nothing: " << converter.readAll();
  }
  EXPECT_EQ(compared, names.size());
}
