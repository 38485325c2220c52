#include "gui/toolkit/PdfFile.h"

namespace {

/// The number behind a name such as "/Size", or -1.
int numberBehind(const QByteArray& text, const char* name) {
  const qsizetype at = text.lastIndexOf(name);
  if (at < 0) {
    return -1;
  }
  const QByteArray rest = text.mid(at + static_cast<qsizetype>(qstrlen(name))).trimmed();
  qsizetype digits = 0;
  while (digits < rest.size() && rest[digits] >= '0' && rest[digits] <= '9') {
    ++digits;
  }
  return digits == 0 ? -1 : rest.left(digits).toInt();
}

/// A text as PDF writes any: UTF-16 with its mark, in hexadecimal.
QByteArray pdfText(const QString& text) {
  QByteArray hex = "<FEFF";
  for (const QChar unit : text) {
    hex += QByteArray::number(unit.unicode(), 16).rightJustified(4, '0').toUpper();
  }
  return hex + '>';
}

QByteArray padded(qint64 offset) {
  return QByteArray::number(offset).rightJustified(10, '0');
}

}  // namespace

/// A revision behind the document, as the format provides for: the object of its title once more with the author in
/// it, and where that stands.
QByteArray PdfAuthor::added(const QByteArray& pdf, const QString& author) {
  const QByteArray trailer = pdf.mid(pdf.lastIndexOf("trailer"));
  const int info = numberBehind(trailer, "/Info");
  const int root = numberBehind(trailer, "/Root");
  const int size = numberBehind(trailer, "/Size");
  const int table = numberBehind(trailer, "startxref");
  const QByteArray head = QByteArray::number(info) + " 0 obj";
  const qsizetype begin = pdf.lastIndexOf('\n' + head);
  const qsizetype end = pdf.indexOf("endobj", begin);
  if (author.isEmpty() || info < 0 || root < 0 || size < 0 || table < 0 || begin < 0 || end < 0) {
    return pdf;
  }
  QByteArray object = pdf.mid(begin + 1, end - begin - 1);
  const qsizetype close = object.lastIndexOf(">>");
  if (close < 0) {
    return pdf;
  }
  object.insert(close, "/Author " + pdfText(author) + '\n');
  const qsizetype objectAt = pdf.size() + 1;
  QByteArray revision = '\n' + object + "endobj\n";
  const qsizetype tableAt = pdf.size() + revision.size();
  revision += "xref\n" + QByteArray::number(info) + " 1\n" + padded(objectAt) + " 00000 n \ntrailer\n<<\n/Size " +
              QByteArray::number(size) + "\n/Info " + QByteArray::number(info) + " 0 R\n/Root " +
              QByteArray::number(root) + " 0 R\n/Prev " + QByteArray::number(table) + "\n>>\nstartxref\n" +
              QByteArray::number(tableAt) + "\n%%EOF\n";
  return pdf + revision;
}
