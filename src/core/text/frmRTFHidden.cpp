#include "core/text/frmRTFHidden.h"

#include "core/infra/CodePage.h"
#include "core/text/Rtf.h"

#include <limits>

void frmRTFHidden::SetRTF(const QByteArray& rtf) {
  rtf_ = rtf;
  text_.reset();
  edited_ = false;
  alignmentBehind_.reset();
}

void frmRTFHidden::SetText(const RichText& text) {
  SetRTF({});
  text_ = text;
  edited_ = true;
}

const RichText& frmRTFHidden::Text() const {
  if (!text_) {
    text_ = readRtf(rtf_);
  }
  return *text_;
}

RichText& frmRTFHidden::edit() {
  Text();
  edited_ = true;
  return *text_;
}

void frmRTFHidden::AppendText(const QString& text) {
  if (text.isEmpty()) {
    return;
  }
  RichText& content = edit();
  const qsizetype before = content.paragraphCount();
  content.append(text);
  const auto alignment = alignmentBehind_;
  if (!alignment || content.paragraphCount() == before) {
    return;
  }
  alignmentBehind_.reset();
  for (qsizetype i = before; i < content.paragraphCount(); ++i) {
    content.formatParagraphs(content.paragraph(i).start, 0,
                             [&alignment](ParagraphFormat& format) { format.alignment = *alignment; });
  }
}

void frmRTFHidden::AppendText(const QByteArray& rtf) {
  if (!isRtf(rtf)) {
    AppendText(CodePage::fromBytes(rtf));
    return;
  }
  AppendText(readRtf(rtf));
}

void frmRTFHidden::AppendText(const RichText& text) {
  if (!text.isEmpty()) {
    edit().append(text);
  }
}

void frmRTFHidden::AppendTextCentered(const QString& text) {
  const qsizetype oldEnd = Text().size();
  const auto alignment = Text().paragraphFormatAt(oldEnd).alignment;
  AppendText(text);
  bool lastIsCentred = false;
  for (qsizetype i = Text().paragraphAt(oldEnd); i < Text().paragraphCount(); ++i) {
    const RichText::Paragraph paragraph = Text().paragraph(i);
    lastIsCentred = paragraph.length > 0 && paragraph.start + paragraph.length > oldEnd;
    if (lastIsCentred) {
      edit().formatParagraphs(paragraph.start, 0,
                              [](ParagraphFormat& format) { format.alignment = ParagraphFormat::Alignment::Centre; });
    }
  }
  if (lastIsCentred && !alignmentBehind_) {
    alignmentBehind_ = alignment;
  }
}

void frmRTFHidden::InsertText(const QString& text) {
  if (!text.isEmpty()) {
    edit().insert(0, text);
  }
}

void frmRTFHidden::ReplaceAll(const QString& find, const QString& replace, bool caseSensitive) {
  RichText content = Text();
  const qsizetype count = content.replaceAll(find, replace, caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
  replaceCount_ = static_cast<qint32>(qMin<qsizetype>(count, std::numeric_limits<qint32>::max()));
  if (count > 0) {
    edit() = std::move(content);
  }
}

QByteArray frmRTFHidden::GetRTF() const {
  if (edited_ || !isRtf(rtf_)) {
    return writeRtf(Text());
  }
  const QByteArrayView start = rtfStart(rtf_);
  return start.size() == rtf_.size() ? rtf_ : start.toByteArray();
}

QString frmRTFHidden::GetPlain() const {
  return text_ ? text_->plainText() : rtfToPlainText(rtf_);
}

QString RtfToPlain(const QByteArray& rtf) {
  static frmRTFHidden worker;
  worker.SetRTF(rtf);
  return worker.GetPlain();
}
