#include "core/text/Rtf.h"
#include "core/text/RtfSamples.h"
#include "core/text/cSharedHTML.h"
#include "core/text/mSHAREDRtf2Html3.h"
#include "support/Mutations.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Sample {
  const char* rtf;
  const char* options;
  const char* html;
};

/// Empty when each tag closes the one that was opened last; else what is wrong.
QString misnested(const QString& html) {
  static const QRegularExpression tag(u"<(/?)([a-z]+)[^<>]*>"_s);
  QStringList open;
  QString rest = html;
  for (auto found = tag.globalMatch(html); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    const QString name = match.captured(2);
    if (match.capturedLength(1) == 0) {
      open += name == u"br" ? QStringList() : QStringList(name);
    } else if (open.isEmpty() || open.takeLast() != name) {
      return u"misplaced "_s + match.captured() + u" at %1 of "_s.arg(match.capturedStart()) + html;
    }
  }
  return open.isEmpty() && !rest.remove(tag).contains(u'<') ? QString() : u"left open: "_s + open.join(u' ') + html;
}

/// Words however blanks and line ends stand, without what HTML has no place for.
QString words(const QString& text) {
  static const QRegularExpression control(u"[\\x00-\\x08\\x0e-\\x1f\\x7f-\\x84\\x86-\\x9f]"_s);
  static const QRegularExpression blank(u"[\\s\\x{85}\\x{a0}]+"_s);
  QString whole;
  for (const char32_t character : text.toUcs4()) {
    whole += QChar::isNonCharacter(character) || character == QChar::ReplacementCharacter
                 ? QString()
                 : QString::fromUcs4(&character, 1);
  }
  return whole.remove(control).replace(blank, u" "_s);
}

/// Without empty lines at the end, of which a page needs none.
QStringList closed(QStringList lines) {
  while (!lines.isEmpty() && lines.back().isEmpty()) {
    lines.removeLast();
  }
  return lines;
}

/// However a line that shows nothing is told.
QStringList trimmed(QStringList lines) {
  std::transform(lines.begin(), lines.end(), lines.begin(), [](const QString& line) { return line.trimmed(); });
  return closed(lines);
}

/// The lines of a text: a number where a note stands, and the notes behind an empty line.
struct ReadLines {
  explicit ReadLines(const RichText& rich) { rich.visit(*this); }

  void text(QStringView units, const CharFormat& format) { line += format.hidden ? QString() : units.toString(); }
  void object(const CharFormat& format) {
    const bool isNote =
        format.object->kind == InlineObject::Kind::Footnote || format.object->kind == InlineObject::Kind::Endnote;
    const QString words = isNote && !format.hidden ? format.object->content->plainText().trimmed() : QString();
    if (!words.isEmpty()) {
      notes += words;
      line += QString::number(notes.size());
    }
  }
  void lineBreak(const CharFormat& format) {
    if (!format.hidden) {
      lines += words(std::exchange(line, {}));
    }
  }
  void paragraphEnd(const CharFormat& format, const ParagraphFormat&) { lineBreak(format); }

  QStringList all() const {
    QStringList all = closed(lines + QStringList(words(line)));
    all += notes.isEmpty() ? QStringList() : QStringList(QString());
    for (qsizetype i = 0; i < notes.size(); ++i) {
      const QStringList parts = (QString::number(i + 1) + u' ' + notes[i]).split(u"\r\n"_s);
      std::transform(parts.begin(), parts.end(), std::back_inserter(all), &words);
    }
    return trimmed(all);
  }

  QString line;
  QStringList lines;
  QStringList notes;
};

/// The lines that a browser shows: a break ends one, a block stands in lines of its own.
QStringList shownLines(QString html) {
  static const QRegularExpression end(u"<br>|</?li[^>]*>|</?table[^>]*>"_s);
  static const QRegularExpression tag(u"<[^>]*>"_s);
  html.remove(u"\r\n"_s);
  QStringList lines;
  QString line;
  qsizetype from = 0;
  for (auto found = end.globalMatch(html); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    line = html.sliced(from, match.capturedStart() - from).remove(tag);
    from = match.capturedEnd();
    if (match.captured() == u"<br>" || !line.isEmpty()) {
      lines += words(Html().HtmlToChar(line));
    }
  }
  return trimmed(lines + QStringList(words(Html().HtmlToChar(html.sliced(from).remove(tag)))));
}

/// Paragraphs that say little, of every kind that stands in a block or in none.
QByteArray littleParagraphs(std::mt19937& generator) {
  static const QList<QByteArray> blocks{"", "", "\\qc", "\\qr", "{\\pntext x}{\\*\\pn\\pnlvlblt{\\pntxtb x}}"};
  static const QList<QByteArray> texts{"",       " ", "a", "{\\b  }{\\i x}", "\\u2?", "\\u-10179?", "\\ul b\\ulnone",
                                       "c\\line"};
  const auto any = [&generator](const QList<QByteArray>& list) {
    return list[static_cast<qsizetype>(generator() % static_cast<quint32>(list.size()))];
  };
  QByteArray rtf = "{\\rtf1 ";
  for (int i = 0; i < 6; ++i) {
    rtf += "\\pard" + any(blocks) + ' ' + any(texts) + "\\par ";
  }
  return rtf + '}';
}

/// RTF of any kind, and what is left of it when it is damaged.
QList<QByteArray> anyRtf() {
  QList<QByteArray> all = rtfSamples();
  for (const CorpusFile& file : rtfCorpus()) {
    all.append(file.rtf);
  }
  for (const QString& name : rtfSampleFiles()) {
    all.append(rtfSampleFile(QString(name).chopped(4)));
  }
  QRandomGenerator random(7);
  for (int i = 0; i < 300; ++i) {
    all.append(writeRtf(randomRichText(random)));
  }
  // Parted by "~".
  static const QList<QByteArray> snippets =
      QByteArray(
          "\\b ~\\i\\b0 ~\\ul\\cf1 ~\\fs40 ~\\f1 ~\\plain ~\\pard ~\\par\r\n~\\qc ~\\qr word ~{~}~\\'e9~\\'99~  ~"
          "\\sub ~{\\pntext x}\\li1 item~\\bullet ~\\nosupersub ")
          .split('~');
  std::mt19937 generator(11);
  for (int i = 0; i < 500; ++i) {
    all.append(littleParagraphs(generator));
  }
  for (const QByteArray& rtf : QList<QByteArray>(all)) {
    all.append(mutated(mutated(rtf, generator, snippets), generator, snippets));
  }
  for (int i = 0; i < 500; ++i) {
    QByteArray made = "{\\rtf1{\\fonttbl{\\f0 A;}{\\f1 B;}}{\\colortbl;\\red1\\green2\\blue3;}";
    for (int piece = 0; piece < 30; ++piece) {
      made += snippets[static_cast<qsizetype>(generator() % static_cast<quint32>(snippets.size()))] +
              (piece % 3 == 0 ? "word" : "");
    }
    all.append(made + "}");
  }
  return all;
}

}  // namespace

TEST(Rtf2Html, ReadsWhatARichTextControlWrites) {
  const char* const kHead =
      "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil Arial;}{\\f1\\froman\\fcharset0 Times New Roman;}}\r\n"
      "{\\colortbl ;\\red255\\green0\\blue10;}{\\stylesheet{\\s1 Normal;}}{\\info{\\author \\'c4 me}}";
  const Sample samples[] = {
      {"Hello\\par}", "+CR", "Hello"},
      {"\\b a\\i b\\b0 c}", "", "<b>a<i>b</i></b><i>c</i>"},
      {"a\\par\\par b}", "+CR", "a<br>\r\n<br>\r\nb"},
      {"a\\par\r\n   b  c\\par  \\b d}", "", "a<br>&nbsp;&nbsp;&nbsp;b  c<br>&nbsp;<b>d</b>"},
      {"a{\\pict\\wmetafile8{\\x 12} 0102}b{\\*\\unknown c}d}", "", "abd"},
      {"\\fs20 a\\fs28 b}", "+F=2", "a<font size=4>b</font>"},
      {"\\f0\\fs20\\cf1 a\\cf0 b\\cf7 c}", "",
       "<font face=\"Arial\" color=\"#ff000a\" size=2>a</font><font face=\"Arial\" size=2>bc</font>"},
      {"\\f1 a\\fs2 b\\fs400 c}", "",
       "<font face=\"Roman\">a</font><font face=\"Roman\" size=1>b</font><font face=\"Roman\" size=8>c</font>"},
      {"\\f1\\fs24 a}", "-FF+I", "<font size=3>a</font>"},
      {"\\fs24\\b a\\fs28 b}", "", "<font size=3><b>a</b></font><b><font size=4>b</font></b>"},
      {"\\'e9t\\'E9 \\'85\\'80\\'93x\\'ae\\'a0\\'9a\\'00|\\'99 z}", "",
       "&eacute;t&eacute; ...x\xC5\xA1&nbsp;|<sup>TM</sup> z"},
      {"\\emdash a\\lquote b\\u8217?c \\tab d\\\\\\{\\}}", "", "ab\td\\{}"},
      {"\\ul a\\ulnone\\strike b\\strike0\\sub c\\nosupersub\\super d\\nosupersub e}", "",
       "<u>a</u><s>b</s><sub>c</sub><sup>d</sup>e"},
      {"\\b a\\b0  \\par\\b\\b0 c}", "", "<b>a </b><br>c"},
      {"\\b a\\plain b\\par c\\pard d}", "", "<b>ab<br>c</b>d"},
      {"\\pard\\qc\\b a\\par b\\pard\\qr c}", "",
       "<table width=100%><tr><td align=\"center\"><b>a<br>b</b></td></tr></table><b><table width=100%><tr><td "
       "align=\"right\">c</td></tr></table></b>"},
      {"\\pard\\qc\\pard a}", "", "a"},
      {"\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}a\\par\r\n{\\pntext\\'B7\\tab}b\\par\r\n\\pard "
       "c}",
       "", "<li>a</li><li>b</li>c"},
      {"a\\bullet b\\pntxta{x\\pntxtb\r\n\r\n\\'b7y}", "", "a<li>bxy</li>"},
      {"a}{\\colortbl ;\\red1\\green2\\blue3;}\\cf1 b", "", "a<font color=\"#010203\">b</font>"},
      {"{\\stylesheet a\\par b}", "", "a<br>b"}};
  for (const Sample& sample : samples) {
    SCOPED_TRACE(sample.rtf);
    const QByteArray rtf = QByteArray(kHead) + sample.rtf;
    EXPECT_EQ(Rtf2Html(rtf, QString::fromLatin1(sample.options)), QString::fromUtf8(sample.html));
    EXPECT_EQ(Rtf2Html("\r\n " + rtf + " \r\n", QString::fromLatin1(sample.options)), QString::fromUtf8(sample.html));
  }
}

TEST(Rtf2Html, KeepsEveryWordWithTheOptionForIt) {
  const Sample samples[] = {
      {"\\ldblquote Caf\\'e9\\rdblquote\\emdash\\u1046? <b>&amp; \\u-10179?\\u-8704?", "+U",
       "&ldquo;Caf&eacute;&rdquo;&mdash;&#1046; &lt;b&gt;&amp;amp; &#128512;"},
      {"{\\b a}b\\i c\\plain d", "+U", "<b>a</b>b<i>c</i>d"},
      {"\\f1\\fs20\\cf1 a", "+U+F=2", "<font face=\"Times New &quot;R&ouml;man&quot;\" color=\"#ff000a\">a</font>"},
      {"\\f1\\fs20 a", "+U-FF+CR", "<font size=2>a</font>"},
      {"a\\line  b\\par\\par c\\par", "+CR+U", "a<br>\r\n&nbsp;b<br>\r\n<br>\r\nc"},
      {"\\qc a\\b b\\b0 c\\par\\b d\\b0\\par\\pard e", "+U",
       "<table width=100%><tr><td align=\"center\">a<b>b</b>c<br><b>d</b></td></tr></table>e"},
      {"a\\par\\par\\qc b\\par\\par\\pard c", "+U",
       "a<br>&nbsp;<table width=100%><tr><td align=\"center\">b</td></tr></table><br>c"},
      {"{\\strike a} {\\ul b}", "+U", "<s>a</s> <u>b</u>"},
      {"{\\v hidden}seen{\\pict 00}", "+U", "seen"},
      {"\\pard{\\pntext\\'b7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'b7}}\\b a\\par{\\pntext\\'b7\\tab}b\\par\\pard c", "+U",
       "<li><b>a</b></li><li><b>b</b></li><b>c</b>"},
      {"\\pard{\\pntext 3.\\tab}{\\*\\pn\\pnlvlbody\\pndec\\pnstart3{\\pntxta.}}a", "+U",
       "<li style=\"list-style-type:decimal\" value=\"3\">a</li>"},
      {"a\\par\\pard\\qc  \\par\\pard b\\par\\pard\\qc\\u2?\\par\\pard c", "+U",
       "a<table width=100%><tr><td align=\"center\">&nbsp;</td></tr></table>b<br><br>c"},
      {"\\par\\qc a", "+U", "<br><table width=100%><tr><td align=\"center\">a</td></tr></table>"},
      {"\\qr{\\pntext x}{\\*\\pn\\pnlvlblt{\\pntxtb x}}a", "+U", "<li style=\"text-align:right\">a</li>"},
      {"a\\u133?b\\u150?c\\u-10177?\\u-8194?", "+U", "a bc"},
      {"a{\\super\\chftn}{\\footnote\\pard {\\super\\chftn} One {\\b < two}\\par Three}\\sub b{\\footnote\\ftnalt "
       "End}\\nosupersub{\\*\\annotation no} c\\par",
       "+U+CR",
       "a<sup>1</sup><sub>b</sub><sup>2</sup> c<br>\r\n<br>\r\n<sup>1</sup> One &lt; two<br>\r\nThree<br>\r\n"
       "<sup>2</sup> End"}};
  for (const Sample& sample : samples) {
    SCOPED_TRACE(sample.rtf);
    const QByteArray rtf =
        QByteArrayLiteral(
            "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0\\fnil ;}{\\f1\\froman Times New \"R\\'f6man\";}}"
            "{\\colortbl ;\\red255\\green0\\blue10;}") +
        sample.rtf + "}";
    EXPECT_EQ(Rtf2Html(rtf, QString::fromLatin1(sample.options)), QString::fromUtf8(sample.html));
  }
}

TEST(Rtf2Html, WhateverComesInTheTagsAreWellNestedAndNoWordOrLineIsLost) {
  for (QByteArray rtf : anyRtf()) {
    SCOPED_TRACE(rtf.first(qMin<qsizetype>(rtf.size(), 2000)).toStdString());
    const QString html = Rtf2Html(rtf, u"+CR+U");
    ASSERT_EQ(misnested(html), QString());
    ASSERT_EQ(shownLines(html), ReadLines(readRtf(rtf)).all()) << html;
    ASSERT_TRUE(std::all_of(html.begin(), html.end(), [](QChar unit) { return unit.unicode() < 0x7F; }));
    // The simple reading leaves markup in the text.
    rtf.replace('<', '(').replace('>', ')');
    ASSERT_EQ(misnested(Rtf2Html(rtf, u"+CR")), QString());
  }
}
