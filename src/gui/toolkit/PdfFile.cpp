#include "gui/toolkit/PdfFile.h"

#include "core/infra/NativeFile.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLang.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTwipsPerInch = 1440;

}  // namespace

void PdfFile::prepare(QPdfWriter& writer, const PaperSize& paper) {
  const auto turned = paper.isLandscape() ? QPageLayout::Landscape : QPageLayout::Portrait;
  writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), turned, QMarginsF()));
  writer.setResolution(kTwipsPerInch);
}

void PdfFile::print(const PrintDocument& document, PrintProgress& progress) {
  const QByteArray pdf = PdfAuthor::added(bytesOf(document, progress), document.author);
  ReplacementFile file(path_);
  file.write(pdf);
  file.commit(ReplacementFile::Durability::OnDisk);
}

QByteArray PdfFile::bytesOf(const PrintDocument& document, PrintProgress& progress) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  prepare(writer, document.paper);
  writer.setTitle(document.title);
  writer.setCreator(u"Quillane"_s);
  QPainter painter;
  if (!painter.begin(&writer)) {
    throw RuntimeError(RuntimeError::DeviceError);
  }
  qint32 number = 0;
  for (const PrintedPage& page : document.pages) {
    if (number > 0) {
      writer.newPage();
    }
    progress.step(shownText(u"Writing page %1"_s), ++number);
    PagePainter::paint(painter, page);
  }
  painter.end();
  return buffer.data();
}
