#pragma once

#include "core/text/RichText.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// The rich-text worker that is never shown: RTF in, plain text or altered RTF out. RTF is read into a rich
/// text only when an operation changes it; RTF that nothing has changed comes back byte for byte.
class frmRTFHidden {
 public:
  /// Replaces all content. Bytes that are no RTF are plain text in our code page.
  void SetRTF(const QByteArray& rtf);
  /// Plain text, in the format of what stands last.
  void AppendText(const QString& text);
  /// RTF, whose formats come along; its last paragraph end is not appended. Other bytes are plain text.
  void AppendText(const QByteArray& rtf);
  /// The same of a rich text.
  void AppendText(const RichText& text);
  /// Centres the paragraphs in which it puts text; text appended later starts its paragraphs aligned as
  /// those in front were.
  void AppendTextCentered(const QString& text);
  /// At the front.
  void InsertText(const QString& text);
  /// Formatting at each match stays. An empty `find` matches nothing.
  void ReplaceAll(const QString& find, const QString& replace, bool caseSensitive);
  /// Always RTF, whatever was set, and without what stood in front of its head.
  QByteArray GetRTF() const;
  QString GetPlain() const;
  /// Replacements that the last ReplaceAll made.
  qint32 ReplaceCount() const { return replaceCount_; }

  /// The content as a rich text, in place of the selection operations of a control.
  const RichText& Text() const;
  void SetText(const RichText& text);

 private:
  RichText& edit();

  QByteArray rtf_;                        ///< As it was set; stale once edited_.
  mutable std::optional<RichText> text_;  ///< Read from rtf_ on first need.
  bool edited_ = false;
  std::optional<ParagraphFormat::Alignment> alignmentBehind_;  ///< For paragraphs behind centred text.
  qint32 replaceCount_ = 0;
};

/// The plain text of an RTF text, by the shared worker, which is made on first use. Paragraphs and lines end
/// in CR LF, the last paragraph does not.
QString RtfToPlain(const QByteArray& rtf);
