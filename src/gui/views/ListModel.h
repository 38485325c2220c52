#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QList>
#include <QStringList>

#include <functional>
#include <utility>

class QWidget;

/// What one row of a list shows.
struct ListRow {
  QStringList cells;
  /// Of the first column, by its key; null for none.
  const char* icon = nullptr;
  /// Columns whose text has a colour of its own: 24-bit numbers as told for a light list.
  QList<std::pair<int, quint32>> colours = {};
  /// What icon and colours tell, in words: "unused", "open in an editor".
  QStringList states = {};
  /// Of the first column, in plain text.
  QString toolTip = {};
  /// Columns whose cell is short for something, and what is read out in the place of it and of its title.
  QHash<int, QString> spoken = {};
};

/// The rows of a list, by the IDs of what they show. A row is made when it is first looked at and kept until it is said
/// to have changed: a list of thousands costs what is seen of it.
class ListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// A cell's role for the states of its row, in words; in the first column alone.
  static constexpr int kStatesRole = Qt::UserRole + 1;

  using Maker = std::function<ListRow(qint32 tag, int row)>;

  /// Colours are chosen for the palette of this widget.
  ListModel(const QStringList& titles, const QWidget& palette, QObject* parent);

  /// True when these are other rows than before: everything that referred to one of those is void then.
  bool setRows(QList<qint32> tags, Maker make);
  const QList<qint32>& tags() const { return tags_; }
  /// 0 outside.
  qint32 tagAt(int row) const { return tags_.value(row); }
  int rowOfTag(qint32 tag) const { return static_cast<int>(tags_.indexOf(tag)); }
  /// The row shows what is true now; nothing for an index outside.
  void updateRow(int row);
  void updateAllRows();

  void setAlignment(int column, Qt::Alignment alignment);
  Qt::Alignment alignmentOf(int column) const { return alignments_.value(column, Qt::AlignLeft | Qt::AlignVCenter); }
  /// In the place of the one that the list was made with.
  void setTitle(int column, const QString& title);
  /// For a screen reader, where the title is short for something.
  void setSpokenTitle(int column, const QString& title) { spokenTitles_.insert(column, title); }
  /// From now on the texts of the first column can be edited in place. The handler takes what was typed.
  void setEditable(std::function<void(int row, const QString& text)> edited) { edited_ = std::move(edited); }
  /// From now on rows can be picked up and dropped on.
  void setDraggable() { draggable_ = true; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  const ListRow& rowAt(int row) const;
  QString spoken(const ListRow& row) const;
  QString spokenTitle(int column) const { return spokenTitles_.value(column, titles_.at(column)); }
  QVariant colourOf(const ListRow& row, int column) const;

  QStringList titles_;
  QHash<int, QString> spokenTitles_;
  QHash<int, Qt::Alignment> alignments_;
  const QWidget& palette_;
  QList<qint32> tags_;
  Maker make_;
  std::function<void(int, const QString&)> edited_;
  bool draggable_ = false;
  mutable QHash<int, ListRow> made_;
};
