#pragma once

#include "core/infra/RuntimeError.h"
#include "gui/toolkit/PagePainter.h"
#include "gui/toolkit/cSharedPrinter.h"

#include <vector>

/// Printers that keep what they print. In use for its lifetime.
class PrintedPages {
 public:
  explicit PrintedPages(const QStringList& names = {QStringLiteral("Laser")},
                        const QString& defaultName = QStringLiteral("Laser"), bool pdf = true) {
    auto system = std::make_unique<System>(*this, names, defaultName, pdf);
    Printers().use(std::move(system));
  }
  ~PrintedPages() { Printers().use(nullptr); }
  PrintedPages(const PrintedPages&) = delete;
  PrintedPages& operator=(const PrintedPages&) = delete;

  /// What the system's dialog is answered with; empty is cancel.
  QString choice;
  /// Why nothing can be printed on them; empty while it can.
  QString failure;
  /// The printer and what went to it.
  QStringList printers;
  std::vector<PrintDocument> documents;

 private:
  class Target : public PrintTarget {
   public:
    Target(PrintedPages& pages, QString name) : pages_(pages), name_(std::move(name)) {}
    const TextMeasure& measure() const override { return measure_; }
    void print(const PrintDocument& document, PrintProgress& progress) override {
      progress.step(QStringLiteral("Printing page "), 1);
      if (!pages_.failure.isEmpty()) {
        throw RuntimeError(RuntimeError::DeviceError, pages_.failure);
      }
      pages_.printers.append(name_);
      pages_.documents.push_back(document);
    }

   private:
    PrintedPages& pages_;
    QString name_;
    QtTextMeasure measure_;
  };

  class System : public PrinterSystem {
   public:
    System(PrintedPages& pages, QStringList names, QString defaultName, bool pdf)
        : pages_(pages), names_(std::move(names)), default_(std::move(defaultName)), pdf_(pdf) {}
    QStringList names() const override { return names_; }
    QString defaultName() const override { return default_; }
    QString choose(const QString&) override { return pages_.choice; }
    bool hasPdf() const override { return pdf_; }
    std::unique_ptr<PrintTarget> open(const QString& name) override { return std::make_unique<Target>(pages_, name); }

   private:
    PrintedPages& pages_;
    QStringList names_;
    QString default_;
    bool pdf_;
  };
};
