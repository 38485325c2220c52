#pragma once

#include "gui/shell/windows/ProjectSettings.h"

#include <QDialog>

class DeadlinesTab;
class MemoEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

/// The settings of a project: title and description, author and biography, the names of the ratings, deadlines. It
/// is given the values and gives them back; the project itself isn't touched.
class frmEditProject : public QDialog {
  Q_OBJECT

 public:
  explicit frmEditProject(const ProjectSettings& settings, QWidget* parent = nullptr);
  /// The window over another one, on the screen and in the way of all others; it goes when it is closed.
  static frmEditProject* showOver(QWidget& window, const ProjectSettings& settings);

  /// What stands in the fields. Names of ratings are fit for a project file once the window is accepted.
  ProjectSettings settings() const;

  void done(int result) override;
  /// Asks first when something was changed.
  void reject() override;

 private:
  void createControls();
  void buildLayout();
  QWidget* buildProjectTab() const;
  QWidget* buildAuthorTab() const;
  QWidget* buildRatingsTab() const;
  void addFrame(QWidget* frame, const QString& caption);
  void connectSignals();
  void showSettings(const ProjectSettings& settings);

  void cmdDefault_Click();
  void cmdSave_Click();
  /// False when a name of a rating is refused; the user has been told and stands in its field.
  bool namesAreFit();
  /// False when the user wants to mend deadlines that are out of order.
  bool deadlinesMayStay();
  bool mayDiscard() const;

  QTabWidget* TabStrip1 = nullptr;
  QLineEdit* txtTitle = nullptr;
  MemoEdit* txtDesc = nullptr;
  QLineEdit* txtAuthor = nullptr;
  MemoEdit* txtBio = nullptr;
  std::array<QLineEdit*, 4> txtField{};
  QLabel* lblNote = nullptr;
  QPushButton* cmdDefault = nullptr;
  DeadlinesTab* deadlines_ = nullptr;
  QPushButton* cmdSave = nullptr;
  QPushButton* cmdCancel = nullptr;
  /// As the fields showed them at first.
  ProjectSettings first_;
};
