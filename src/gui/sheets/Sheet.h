#pragma once

#include "core/infra/cSharedLang.h"
#include "core/model/EntityDialogs.h"

#include <QDialog>

class QLineEdit;

/// What the sheets of chapters, characters, locations and items have in common: fields over OK and Cancel, a name that
/// has to be there, a size that is remembered, and no word lost. Whoever leaves with changes is asked. A sheet whose
/// entity has gone meanwhile can't be confirmed; it stays, so that its texts can be copied.
class Sheet : public QDialog {
  Q_OBJECT

 public:
  bool isOn(EntityKind kind, qint32 id) const { return subject_.kind == kind && subject_.id == id; }
  /// To its normal state and to the front.
  void bringForward();
  /// What is typed goes into the book as it is, without a question, and the sheet stays. False when nothing is.
  virtual bool keepTyped() = 0;

  void accept() override;
  void reject() override;
  void done(int result) override;

 protected:
  /// The name is the form's; it is also what its size is remembered under, and a literal.
  Sheet(const char* name, const QString& caption, SheetSubject subject, QWidget* parent);

  /// Lays out the fields and gives the window its size: at first so many letters and lines.
  void setFields(QWidget* fields, QSize lettersAndLines);
  /// The field that has the keyboard at the beginning. Without a text in it `complaint` is told instead of an OK.
  void setNameField(QLineEdit& field, const QString& complaint);

  virtual bool isChanged() const = 0;
  bool isInBook() const { return subject_.isThere(); }

 private:
  bool mayAccept();
  void complain(const QString& text);

  const char* module_;
  SheetSubject subject_;
  QLineEdit* name_ = nullptr;
  QString complaint_;
};

/// A sheet that edits values of this kind.
template <class Details>
class SheetOf : public Sheet {
 public:
  void Edit(const Details& details) {
    given_ = details;
    DataToForm(details);
  }
  /// What was given, with what the fields hold now.
  Details FormToData() const {
    Details details = given_;
    writeTo(details);
    return details;
  }

  bool keepTyped() override {
    if (!keep_ || !isChanged() || !isInBook()) {
      return false;
    }
    Details typed = FormToData();
    if (typed.Title.trimmed().isEmpty()) {
      typed.Title = given_.Title.isEmpty() ? translated(QStringLiteral("Unnamed")) : given_.Title;
    }
    keep_(typed);
    return true;
  }

 protected:
  SheetOf(const char* name, const QString& caption, const SubjectOf<Details>& subject, QWidget* parent)
      : Sheet(name, caption, subject, parent), keep_(subject.keep) {}

 private:
  virtual void DataToForm(const Details& details) = 0;
  virtual void writeTo(Details& details) const = 0;
  bool isChanged() const final { return FormToData() != given_; }

  Details given_;
  typename SubjectOf<Details>::Keep keep_;
};
