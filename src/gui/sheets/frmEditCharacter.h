#pragma once

#include "gui/sheets/Sheet.h"

#include <QTimer>

#include <optional>

class MemoEdit;
class PictureBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTabWidget;

/// The sheet of a character, on tabs.
class frmEditCharacter : public SheetOf<CharacterDetails> {
  Q_OBJECT

 public:
  explicit frmEditCharacter(const SubjectOf<CharacterDetails>& subject, QWidget* parent = nullptr);

  /// On a tab counted from 0; the first one where there is no such tab.
  void Edit(const CharacterDetails& details, qint32 tab);

 private:
  void DataToForm(const CharacterDetails& details) override;
  void writeTo(CharacterDetails& details) const override;
  void buildDetails(QWidget& page);
  void buildImage(QWidget& page);
  void connectSignals();
  void cmdSelectImage_Click();
  void showImage();
  void loadImage();

  QTabWidget* strip_ = nullptr;
  QLineEdit* txtShortName = nullptr;
  QLineEdit* txtFullname = nullptr;
  QLineEdit* txtAlternate = nullptr;
  MemoEdit* txtDesc = nullptr;
  QLineEdit* txtTags = nullptr;
  QRadioButton* optMajor = nullptr;
  QRadioButton* optMinor = nullptr;
  MemoEdit* txtBio = nullptr;
  MemoEdit* txtGoals = nullptr;
  MemoEdit* txtNotes = nullptr;
  QLineEdit* txtImageFile = nullptr;
  QPushButton* cmdSelectImage = nullptr;
  PictureBox* picImage = nullptr;
  QLabel* lblImage = nullptr;

  /// The path whose picture was read last; nothing before the tab is first seen.
  std::optional<QString> shownPath_;
  QTimer typing_;
};
