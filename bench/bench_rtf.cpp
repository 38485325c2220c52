// RTF to plain text, to rich text and back, beside a plain byte walk over the same bytes in the same run.
// Of writing, it is the bytes that are written. The counter "ratio" is the time of the walk's multiple; the goals
// are 2.5, 6 and 2. And RTF to HTML, scene by scene, beside reading the same scenes as rich text: 4.
#include "Paired.h"
#include "Yardsticks.h"
#include "core/text/Rtf.h"
#include "core/text/mSHAREDRtf2Html3.h"

#include <QString>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

enum Style { RichEdit, Word };

/// Prose that is the same on every machine: words of a small vocabulary, quotations, dashes, some italics.
QStringList paragraphs(qsizetype characters) {
  static const QStringList words =
      u"the of and a to in he was that it his her with as had for she not at but be on they have him "
      "which said from all this one could them were been an their there no when would who more evening "
      "candle window remember carriage morning letter garden nothing before without thought"_s.split(u' ');
  QStringList result;
  quint32 state = 12345;
  const auto next = [&state](quint32 limit) { return (state = state * 1664525U + 1013904223U) / 65536U % limit; };
  for (qsizetype size = 0; size < characters;) {
    QString paragraph = next(3) == 0 ? u"“"_s : QString();
    const bool quoted = !paragraph.isEmpty();
    for (quint32 count = 20 + next(120); count > 0; --count) {
      const QString& word = words[next(static_cast<quint32>(words.size()))];
      paragraph += next(90) == 0 ? u"_"_s + word + u"_"_s : word;
      paragraph += count == 1      ? u"."_s
                   : next(12) == 0 ? u", "_s
                   : next(60) == 0 ? u"—"_s
                   : next(70) == 0 ? u"’s "_s
                                   : u" "_s;
    }
    result.append(quoted ? paragraph + u"”"_s : paragraph);
    size += paragraph.size();
  }
  return result;
}

QByteArray escaped(QStringView text, Style style) {
  static const std::map<char16_t, QByteArray> words{{u'‘', "\\lquote "},    {u'’', "\\rquote "}, {u'“', "\\ldblquote "},
                                                    {u'”', "\\rdblquote "}, {u'–', "\\endash "}, {u'—', "\\emdash "}};
  static const std::map<char16_t, QByteArray> bytes{{u'‘', "\\'91"}, {u'’', "\\'92"}, {u'“', "\\'93"},
                                                    {u'”', "\\'94"}, {u'–', "\\'96"}, {u'—', "\\'97"}};
  const auto& marks = style == Word ? words : bytes;
  QByteArray out;
  for (const QChar character : text) {
    const char16_t unit = character.unicode();
    const auto mark = marks.find(unit);
    if (mark != marks.end()) {
      out += mark->second;
    } else if (unit < 0x80) {
      out += static_cast<char>(unit);
    } else {
      out += "\\u" + QByteArray::number(static_cast<qint16>(unit)) + "?";
    }
  }
  return out;
}

/// As a rich-text control or a word processor writes it.
QByteArray rtfOf(const QStringList& text, Style style) {
  QByteArray out =
      style == RichEdit
          ? "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}\r\n"
            "{\\colortbl ;\\red0\\green0\\blue0;}\r\n\\viewkind4\\uc1\\pard\\fi-200\\li200\\cf1\\f0\\fs20 "
          : "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl{\\f0\\froman\\fcharset0\\fprq2 Times New Roman;}}"
            "{\\stylesheet{\\ql\\f0\\fs24 \\snext0 Normal;}}\r\n\\sectd\\pard\\plain\\qj\\f0\\fs24 ";
  const QByteArray end = style == RichEdit ? "\\par\r\n" : "\\par\r\n\\pard\\plain\\qj\\f0\\fs24 ";
  for (const QString& paragraph : text) {
    const QStringList pieces = paragraph.split(u'_');
    for (qsizetype i = 0; i < pieces.size(); ++i) {
      const QByteArray piece = escaped(pieces[i], style);
      out += i % 2 == 0 ? piece : style == RichEdit ? "\\i " + piece + "\\i0 " : "{\\i " + piece + "}";
    }
    out += end;
  }
  return out + "}\r\n";
}

const QByteArray& generated(Style style, qsizetype megabytes) {
  static std::map<std::pair<Style, qsizetype>, QByteArray> made;
  QByteArray& rtf = made[{style, megabytes}];
  if (rtf.isEmpty()) {
    rtf = rtfOf(paragraphs(megabytes << 20), style);
  }
  return rtf;
}

QByteArray novel(Style style) {
  const QString text = sharedNovel();
  return text.isEmpty() ? QByteArray() : rtfOf(text.split(u'\n'), style);
}

/// Runs the work and, turn by turn, the walk over the RTF; reports how many times the walk's time it takes.
template <class Work>
void compare(benchmark::State& state, const QByteArray& rtf, Work&& work) {
  comparePaired(
      state, [] {}, [&] { benchmark::DoNotOptimize(byteWalk(rtf)); }, [] {}, [&] { benchmark::DoNotOptimize(work()); });
  state.counters["walk_MB/s"] = static_cast<double>(rtf.size()) / 1e3 / state.counters["limit_ms"];
  state.SetBytesProcessed(rtf.size() * state.iterations());
}

void toPlain(benchmark::State& state, const QByteArray& rtf) {
  compare(state, rtf, [&] { return rtfToPlainText(rtf); });
}
void toRich(benchmark::State& state, const QByteArray& rtf) {
  compare(state, rtf, [&] { return readRtf(rtf); });
}
void fromRich(benchmark::State& state, const QByteArray& rtf) {
  const RichText text = readRtf(rtf);
  compare(state, writeRtf(text), [&] { return writeRtf(text); });
}

/// The novel in pieces as long as its scenes are.
QList<QByteArray> scenesOfNovel(Style style) {
  constexpr qsizetype kParagraphs = 30;
  const QStringList text = sharedNovel().split(u'\n', Qt::SkipEmptyParts);
  QList<QByteArray> scenes;
  for (qsizetype from = 0; from < text.size(); from += kParagraphs) {
    scenes.append(rtfOf(text.sliced(from, std::min(kParagraphs, text.size() - from)), style));
  }
  return scenes;
}

void toHtml(benchmark::State& state, Style style, const QString& options) {
  const QList<QByteArray> scenes = scenesOfNovel(style);
  const auto eachScene = [&scenes](auto&& work) {
    for (const QByteArray& scene : scenes) {
      benchmark::DoNotOptimize(work(scene));
    }
  };
  comparePaired(
      state, [] {}, [&] { eachScene([](const QByteArray& rtf) { return readRtf(rtf); }); }, [] {},
      [&] { eachScene([&](const QByteArray& rtf) { return Rtf2Html(rtf, options); }); });
}

using Measured = void (*)(benchmark::State&, const QByteArray&);

void add(const std::string& name, Measured measured, Style style, qsizetype megabytes) {
  benchmark::RegisterBenchmark(
      (name + (style == Word ? "/word/" : "/richedit/") + std::to_string(megabytes) + "MB").c_str(),
      [=](benchmark::State& state) { measured(state, generated(style, megabytes)); })
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond);
}

void addNovel(const std::string& name, Measured measured, Style style) {
  const QByteArray rtf = novel(style);
  if (!rtf.isEmpty()) {
    benchmark::RegisterBenchmark((name + (style == Word ? "/word/novel" : "/richedit/novel")).c_str(),
                                 [=](benchmark::State& state) { measured(state, rtf); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
}

void addHtml() {
  for (const Style style : {RichEdit, Word}) {
    for (const QString& options : {u"+CR"_s, u"+CR+U"_s}) {
      benchmark::RegisterBenchmark(
          ((style == Word ? "RtfToHtml/word/" : "RtfToHtml/richedit/") + options.toStdString()).c_str(),
          [=](benchmark::State& state) { toHtml(state, style, options); })
          ->UseManualTime()
          ->Unit(benchmark::kMillisecond);
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::pair<const char*, Measured> all[] = {
      {"RtfToPlain", toPlain}, {"RtfToRich", toRich}, {"RichToRtf", fromRich}};
  for (const auto& [name, measured] : all) {
    for (const Style style : {RichEdit, Word}) {
      for (const qsizetype megabytes : {1, 8, 64}) {
        add(name, measured, style, megabytes);
      }
      addNovel(name, measured, style);
    }
  }
  if (!sharedNovel().isEmpty()) {
    addHtml();
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
