#pragma once

#include "core/persist/LostAndFound.h"

#include <QDialog>
#include <QHash>
#include <QTimer>

#include <vector>

class ListView;
struct ListRow;
class ProportionalSplitter;
class QComboBox;
class QLabel;
class QPushButton;
class QStackedWidget;
class RichTextBox;

/// The texts of the project that stand in no chapter, each with its date, its words and how it begins; beside the list
/// the selected one to read. They can be put into a chapter; scenes can be removed from the project. Files stay.
class frmLostAndFound : public QDialog {
  Q_OBJECT

 public:
  explicit frmLostAndFound(QWidget* parent = nullptr);

  /// Shows what is lost now, with this chapter offered for it; the first one when there is no such chapter.
  void FillForm(qint32 chapterID);
  /// The window over another one, filled, on the screen and in the way of all others; it goes when it is closed.
  static frmLostAndFound* showOver(QWidget& window, qint32 chapterID);

  void done(int result) override;

 Q_SIGNALS:
  /// Scenes have come into a chapter or left the project.
  void bookChanged();

 private:
  void createControls();
  void buildLayout();
  void connectSignals();
  void restoreLayout();

  void refresh();
  void showRows();
  void glanceAtNext();
  ListRow rowOf(const LostText& lost) const;
  void fillChapters(qint32 chapterID);

  const LostText* shown() const;
  std::vector<LostText> selected() const;
  void showSelection();
  void showText(const LostText* lost);
  void cmdPutIntoChapter_Click();
  /// Files that are listed still, although their texts are in the book now.
  void sayWhatStays(const std::vector<LostText>& put);
  void cmdRemove_Click();
  bool mayRemove(const std::vector<LostText>& scenes) const;
  void changed(const QString& what);

  QStackedWidget* pages_ = nullptr;
  ProportionalSplitter* splitter_ = nullptr;
  ListView* ListLost = nullptr;
  RichTextBox* txtText = nullptr;
  QLabel* lblNothing = nullptr;
  QLabel* lblInfo = nullptr;
  QLabel* lblChapter = nullptr;
  QComboBox* cmbChapter = nullptr;
  QPushButton* cmdPutIntoChapter = nullptr;
  QPushButton* cmdRemove = nullptr;
  QPushButton* cmdClose = nullptr;

  /// A row's tag is the place in here, from 1.
  std::vector<LostText> lost_;
  /// What was read once isn't read again; nothing for what can't be read.
  QHash<QString, std::optional<TextGlance>> glances_;
  /// The first row that may still lack its words.
  size_t next_ = 0;
  QTimer glancing_;
};
