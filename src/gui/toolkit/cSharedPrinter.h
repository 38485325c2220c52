#pragma once

#include "core/layout/PrintTarget.h"

#include <QString>
#include <QStringList>

#include <memory>

class QPainter;

/// What the computer knows of printers.
class PrinterSystem {
 public:
  virtual ~PrinterSystem() = default;
  virtual QStringList names() const = 0;
  /// Empty where none is the default.
  virtual QString defaultName() const = 0;
  /// The system's printer dialog, modal. The name of the chosen printer, cSharedPrinter::pdfFile() among them; empty on
  /// cancel.
  virtual QString choose(const QString& current) = 0;
  /// Set up as it was in the dialog. Throws RuntimeError when the printer isn't there.
  virtual std::unique_ptr<PrintTarget> open(const QString& name) = 0;
  /// The copies and whatever else was set up in the dialog were for one print.
  virtual void forgetSetup() {}
  /// A PDF file can be made here.
  virtual bool hasPdf() const { return true; }
};

/// The printers, a PDF file always among them, and the one that reports go to.
class cSharedPrinter {
 public:
  explicit cSharedPrinter(std::unique_ptr<PrinterSystem> system);
  ~cSharedPrinter();

  static QString pdfFile() { return QStringLiteral("PDF file"); }

  /// Asked anew each time: printers come and go.
  QStringList PrinterNames() const;
  bool Exists(const QString& name) const { return PrinterNames().contains(name); }
  /// What a report goes to where none was chosen for it; empty where the user has to choose.
  QString DefaultPrinter() const;
  /// The system's dialog; empty on cancel.
  QString Choose(const QString& current) { return system_->choose(current); }

  const QString& Name() const { return name_; }
  /// False, and nothing changes, when there is none of this name.
  bool SelectPrinter(const QString& name);
  /// Remembers the printer in use, once: until it is restored.
  void StoreDefaultPrinter();
  void RestoreDefaultPrinter();
  /// Text is drawn on what stands there already, or on a ground of its own.
  static void SetBkMode(QPainter& painter, bool transparent);

  /// The file that is printed to where the PDF file is the printer.
  QString PdfPath;
  /// A print on the printer in use.
  std::unique_ptr<PrintTarget> open();

  /// From now on, with nothing chosen; null goes back to the system's own.
  void use(std::unique_ptr<PrinterSystem> system);

 private:
  std::unique_ptr<PrinterSystem> system_;
  QString name_;
  QString stored_;
  bool isStored_ = false;
};

/// The application's one instance.
cSharedPrinter& Printers();
