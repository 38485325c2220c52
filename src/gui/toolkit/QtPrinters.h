#pragma once

#include "gui/toolkit/cSharedPrinter.h"

class QPrinter;

/// The printers of the system that the program runs on.
class QtPrinters : public PrinterSystem {
 public:
  QtPrinters();
  ~QtPrinters() override;

  QStringList names() const override;
  QString defaultName() const override;
  QString choose(const QString& current) override;
  std::unique_ptr<PrintTarget> open(const QString& name) override;
  void forgetSetup() override;

 private:
  /// As it was set up in the dialog for the next print: the copies, and what the printer has besides. Null when it
  /// wasn't.
  std::shared_ptr<QPrinter> printer_;
};
