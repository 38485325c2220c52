#include "gui/toolkit/cSharedPrinter.h"

#include "gui/toolkit/PdfFile.h"
#include "gui/toolkit/QtPrinters.h"

#include <QPainter>

cSharedPrinter::cSharedPrinter(std::unique_ptr<PrinterSystem> system) : system_(std::move(system)) {}
cSharedPrinter::~cSharedPrinter() = default;

QStringList cSharedPrinter::PrinterNames() const {
  return system_->hasPdf() ? system_->names() << pdfFile() : system_->names();
}

QString cSharedPrinter::DefaultPrinter() const {
  const QStringList names = system_->names();
  if (names.isEmpty()) {
    return pdfFile();
  }
  const QString name = system_->defaultName();
  return names.contains(name) ? name : QString();
}

bool cSharedPrinter::SelectPrinter(const QString& name) {
  if (!Exists(name)) {
    return false;
  }
  name_ = name;
  return true;
}

void cSharedPrinter::StoreDefaultPrinter() {
  if (!isStored_) {
    isStored_ = true;
    stored_ = name_;
  }
}

void cSharedPrinter::RestoreDefaultPrinter() {
  if (isStored_) {
    isStored_ = false;
    name_ = stored_;
  }
  system_->forgetSetup();
}

void cSharedPrinter::SetBkMode(QPainter& painter, bool transparent) {
  painter.setBackgroundMode(transparent ? Qt::TransparentMode : Qt::OpaqueMode);
}

std::unique_ptr<PrintTarget> cSharedPrinter::open() {
  if (name_ == pdfFile()) {
    return std::make_unique<PdfFile>(PdfPath);
  }
  return system_->open(name_);
}

void cSharedPrinter::use(std::unique_ptr<PrinterSystem> system) {
  system_ = system ? std::move(system) : std::make_unique<QtPrinters>();
  name_.clear();
  isStored_ = false;
}

cSharedPrinter& Printers() {
  static cSharedPrinter printers(std::make_unique<QtPrinters>());
  return printers;
}
