#pragma once

#include "core/text/HtmlTags.h"
#include "core/text/Rtf2HtmlOptions.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QStringView>

/// The simple reading of RTF: token by token, in one pass. One object reads one text.
class RtfHtml {
 public:
  RtfHtml(QByteArrayView rtf, const Rtf2HtmlOptions& options);

  QString convert();

  /// What is done about a control word.
  enum class Action : quint8;

 private:
  enum class Token : quint8 { Open, Close, Hex, Literal, Word, Text };

  void take();
  void takeWord();
  void readWord();
  void takeText();
  void next();
  void skip();
  void countGroup();
  void handle();
  void act();
  void readTable();
  qsizetype groupEnd() const;

  void hexByte();
  void text(QStringView html) { tags_.text(html); }
  void endScript();
  void paragraphEnd();
  void newParagraph();
  void plain();
  void align(QLatin1StringView tag);
  void reopenItem();
  void setColour();
  void setFace();
  void setSize();
  void rebuildFont() { tags_.setFont(font_.tag()); }

  QByteArrayView rest_;
  Rtf2HtmlOptions options_;
  HtmlTags tags_;
  HtmlFont font_;
  QString buffer_;
  QStringList Colors;
  QStringList Fonts;
  QString AlignTag;
  bool InList = false;
  bool cutsTables_ = true;
  qint32 SkipTokens = 0;
  qint32 SkipDepth = 0;
  qint32 depth_ = 0;

  Token token_ = Token::Text;
  QByteArrayView piece_;  ///< The token as it stands.
  QStringView words_;     ///< Of a text, in the buffer.
  Action action_{};       ///< Of a control word, and its code.
  HtmlCode code_{};
  int number_ = 0;
  bool hasNumber_ = false;
};
