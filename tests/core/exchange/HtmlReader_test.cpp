#include "core/exchange/HtmlReader.h"

#include "core/exchange/Manuscript.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The text with the looks of its letters as marks: *bold*, /italic/, _underlined_.
QString marked(const RichText& text) {
  struct Marker {
    QString out;
    bool bold = false;
    bool italic = false;
    bool underlined = false;
    void turn(bool& is, bool shall, char16_t mark) {
      if (is != shall) {
        out += QChar(mark);
        is = shall;
      }
    }
    void look(const CharFormat& format) {
      turn(bold, format.bold, u'*');
      turn(italic, format.italic, u'/');
      turn(underlined, format.underline != CharFormat::Underline::None, u'_');
    }
    void text(QStringView units, const CharFormat& format) {
      look(format);
      out += units;
    }
    void object(const CharFormat&) { out += u'#'; }
    void lineBreak(const CharFormat&) { out += u'~'; }
    void paragraphEnd(const CharFormat&, const ParagraphFormat&) {
      look({});
      out += u'|';
    }
  } marker;
  text.visit(marker);
  return marker.out;
}

}  // namespace

TEST(HtmlReader, APageIsReadAsItIsSeen) {
  const std::pair<const char*, QString> cases[] = {
      {"", u"|"_s},
      {"<html><head><title>No</title></head>\n<body>\n<h1>Chapter\n 1</h1>\n\n<p>One   "
       "two</p><p>three</p></body></html>",
       u"Chapter 1|One two|three|"_s},
      {"a<br>b<br/><BR clear=all>c<p>d<br></p>e", u"a|b||c|d|e|"_s},
      {"<p>x<p>y<div>z</div>  <ul><li>1<li>2</ul>", u"x|y|z|1|2|"_s},
      {"<table><tr><td>a</td><td>b</td></tr><tr><td>c</td></tr></table>", u"a\tb|c|"_s},
      {"<pre>a  b\r\n c</pre>d  e", u"a  b| c|d e|"_s},
      {"a <b>b <i>c</b> d</i> <u>e</u> <strong>f</strong> <em>g</em>", u"a *b /c* d/ _e_ *f* /g/|"_s},
      {"<span style='font-weight: Bold'>a</span><span>b</span><i style=\"color:red;font-style:normal\">c</i>"
       "<a style=text-decoration:underline href=x>d</a>",
       u"*a*bc_d_|"_s},
      {"</b></i>a<b>b<b>c</b>d</b>e", u"a*bcd*e|"_s},
      {"&lt;b&gt; &amp;&nbsp;&#8212;&#x2019;&apos;&eacute;&#128512; &unknown; & &#32; AT&T",
       u"<b> &\u00A0\u2014\u2019'\u00E9\U0001F600 &unknown; & AT&T|"_s},
      {"a<!-- <b>no</b> --b>no -->b<!DOCTYPE x><?xml y?><![if z]>c<!-- open <i>d", u"abc/d/|"_s},
      {"a<script>if (a < b) { '<p>' }</SCRIPT>b<style>p { }</style>c<script src=x />d<title>no", u"abcdno|"_s},
      {"a < b, 1<2, <3 and <é", u"a < b, 1<2, <3 and <é|"_s},
      {"<p class=\"a>b\" title='c>'>x</p><p class=\"lost>y</p><i</i>w", u"x|y|w|"_s},
      {"<p class=\"lost>y</p><p class=\"x\">z</p>a<style>b</styles>c</style>d", u"y|z|ad|"_s},
      {"a <b and no end", u"a <b and no end|"_s},
      {"<html><head><title>T</title><body><p>Chapter 1<header>x</header></html>", u"Chapter 1|x|"_s},
      {"<head>No<script>'</head><body>'</script>no</head>a<head>b", u"ab|"_s},
      {"<head><title>T</title>all the text", u"all the text|"_s},
      {"<p title='1 < 2' class=\"x\">Hello</p><img alt=\"<3\"/><a onclick=\"if (a < b) 'c'\">d</a>", u"Hello|d|"_s},
      {"<p style='font-style:italic'>a<p>b<div style='font-weight:bold'>c<div>d</div>e</div>f"
       "<ul><li style='font-style:italic'>g<li>h</ul><table><td style='font-weight:700'>i<td>j</table>k",
       u"/a/|b|*c*|*d*|*e*|f|/g/|h|*i*\tj|k|"_s},
      {"<span class='style1' lang=en data-style='font-style:italic' style='font-weight:bold'>a</span>"
       "<i>b<span style='font-style:normal'>c</span>d</i>",
       u"*a*/b/c/d/|"_s},
      {"<head><style>@media print { .b { font-style: italic } } /* .x{} */ .C1, p.c2 { FONT-WEIGHT: 700 !important; }"
       " .c3{font-style:italic}</style></head><p class='c2'>a<span class='x c3'>b</span></p><i class=c2>c</i>"
       "<i class=\"c1 b\">d</i>",
       u"*a/b*/|/c*d*/|"_s},
      {"a</br>b</>c<pre>\r\nd</pre><q>e</q>", u"a|bc|d|\u201Ce\u201D|"_s},
  };
  for (const auto& [html, seen] : cases) {
    EXPECT_EQ(marked(readHtml(QString::fromUtf8(html))), seen) << html;
  }
}

TEST(HtmlReader, WhateverStandsThereIsReadInOnePass) {
  constexpr qsizetype kTimes = 200000;
  for (const char* piece :
       {"<", "<p", "<!--", "<script>", "<title ", "<i a=\"", "<b>x</i>", "&", "&#", "<span style=", "</", "<p class='",
        "<style>a{", "<p class=a style='font-style:italic'>", "<head>", "<pre>\r", "<a b='<'"}) {
    QElapsedTimer time;
    time.start();
    readHtml(QString::fromLatin1(piece).repeated(kTimes));
    EXPECT_LT(time.elapsed(), 3000) << piece;
  }
}

TEST(Manuscript, ItsEncodingAndItsLineEndsAreFoundOut) {
  const QString text = u"Zo\u00EB\u2019s caf\u00E9|\u2014 end"_s;
  const QString inLines = QString(text).replace(u'|', u'\n');
  const auto utf16 = [&](bool big) {
    QByteArray bytes = big ? "\xFE\xFF" : "\xFF\xFE";
    for (const QChar unit : inLines) {
      const auto high = static_cast<char>(unit.unicode() >> 8);
      const auto low = static_cast<char>(unit.unicode() & 0xFF);
      bytes.append(big ? high : low).append(big ? low : high);
    }
    return bytes;
  };
  const QByteArray utf8 = inLines.toUtf8();
  const QByteArray single = "Zo\xEB\x92s caf\xE9\r\n\x97 end";
  for (const QByteArray& bytes : {utf8, "\xEF\xBB\xBF" + utf8 + "\r\n", utf16(true), utf16(false), single,
                                  QByteArray(single).replace("\r\n", "\r"), QByteArray(single).replace("\r\n", "\n")}) {
    EXPECT_EQ(marked(Manuscript::read(bytes, Manuscript::Kind::Text)), text + u'|') << bytes.toHex(' ').constData();
    EXPECT_EQ(readRtf(Manuscript::sceneText(bytes).value_or("")).plainText(), QString(text).replace(u'|', u"\r\n"_s));
  }
  const QByteArray rtf = "{\\rtf1 a {\\b b}\\par}";
  EXPECT_EQ(marked(Manuscript::read(rtf, Manuscript::Kind::Rtf)), u"a *b*|"_s);
  EXPECT_EQ(marked(Manuscript::read(rtf, Manuscript::Kind::Text)), u"{\\rtf1 a {\\b b}\\par}|"_s);
  EXPECT_EQ(marked(Manuscript::read("no rtf", Manuscript::Kind::Rtf)), u"no rtf|"_s);
  EXPECT_EQ(Manuscript::sceneText(rtf), rtf);
  EXPECT_EQ(Manuscript::sceneText(QByteArray("PK\3\4\0\0", 6)), std::nullopt);
  const std::pair<QByteArray, QString> pages[] = {
      {"<meta charset='windows-1251'>\xE4\xEE", u"\u0434\u043E|"_s},
      {"<META http-equiv=x content='text/html; charset=ISO-8859-2'>\xB1", u"\u0105|"_s},
      {"<meta charset=iso-8859-1>\x97", u"\u2014|"_s},
      {"<meta charset=\"windows-1251\">\xD0\xB4", u"\u0434|"_s},
      {"<meta charset=nonsense>\xEB", u"\u00EB|"_s},
      {"<meta charset=", u"<meta charset=|"_s},
  };
  for (const auto& [bytes, seen] : pages) {
    EXPECT_EQ(marked(Manuscript::read(bytes, Manuscript::Kind::Html)), seen) << bytes.constData();
  }
}
