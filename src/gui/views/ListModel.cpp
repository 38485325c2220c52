#include "gui/views/ListModel.h"

#include "core/infra/cSharedLang.h"
#include "gui/toolkit/PlainToolTip.h"
#include "gui/views/RowColours.h"
#include "gui/views/RowIcon.h"

#include <QBrush>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// More rows than any screen shows: whoever scrolls through thousands doesn't need them all again.
constexpr qsizetype kKeptRows = 2000;

QStringList inLanguage(QStringList words) {
  std::transform(words.begin(), words.end(), words.begin(), translated);
  return words;
}

}  // namespace

ListModel::ListModel(const QStringList& titles, const QWidget& palette, QObject* parent)
    : QAbstractTableModel(parent), titles_(titles), palette_(palette) {}

bool ListModel::setRows(QList<qint32> tags, Maker make) {
  const bool others = tags != tags_;
  if (others) {
    beginResetModel();
  }
  made_.clear();
  tags_ = std::move(tags);
  make_ = std::move(make);
  if (others) {
    endResetModel();
  } else {
    updateAllRows();
  }
  return others;
}

void ListModel::updateRow(int row) {
  if (row < 0 || row >= tags_.size()) {
    return;
  }
  made_.remove(row);
  Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void ListModel::updateAllRows() {
  made_.clear();
  if (!tags_.isEmpty()) {
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  }
}

void ListModel::setAlignment(int column, Qt::Alignment alignment) {
  alignments_.insert(column, alignment | Qt::AlignVCenter);
}

void ListModel::setTitle(int column, const QString& title) {
  titles_[column] = title;
  Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

int ListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(tags_.size());
}

int ListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(titles_.size());
}

const ListRow& ListModel::rowAt(int row) const {
  auto found = made_.constFind(row);
  if (found == made_.constEnd()) {
    if (made_.size() > kKeptRows) {
      made_.clear();
    }
    found = made_.insert(row, make_(tags_.at(row), row));
  }
  return *found;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) {
    return {};
  }
  const int column = index.column();
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return rowAt(index.row()).cells.value(column);
    case Qt::ForegroundRole:
      return colourOf(rowAt(index.row()), column);
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(int(alignmentOf(column)));
    case Qt::UserRole:
      return tagAt(index.row());
    default:
      break;
  }
  if (column != 0) {
    return {};
  }
  const ListRow& row = rowAt(index.row());
  switch (role) {
    case Qt::DecorationRole:
      return row.icon == nullptr ? QVariant() : QVariant(rowIcon(row.icon));
    case Qt::ToolTipRole:
      return row.toolTip.isEmpty() ? QVariant() : QVariant(plainToolTip(row.toolTip));
    case kStatesRole:
      return inLanguage(row.states).join(u", "_s);
    case Qt::AccessibleTextRole:
      return spoken(row);
    default:
      return {};
  }
}

QVariant ListModel::colourOf(const ListRow& row, int column) const {
  for (const auto& [coloured, colour] : row.colours) {
    if (coloured == column) {
      return QBrush(RowColours::readable(colour, palette_.palette()));
    }
  }
  return {};
}

// The keyboard moves over whole rows, so the first cell speaks for its row.
QString ListModel::spoken(const ListRow& row) const {
  if (titles_.size() == 1) {
    return (row.cells.mid(0, 1) + inLanguage(row.states)).join(u", "_s);
  }
  QStringList parts;
  for (int column = 0; column < titles_.size(); ++column) {
    const QString cell = row.cells.value(column);
    if (row.spoken.contains(column)) {
      parts.append(translated(row.spoken.value(column)));
    } else if (!cell.isEmpty()) {
      parts.append(translated(spokenTitle(column)) + u' ' + cell);
    }
  }
  return (parts + inLanguage(row.states)).join(u", "_s);
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!edited_ || !index.isValid() || index.column() != 0 || role != Qt::EditRole) {
    return false;
  }
  edited_(index.row(), value.toString());
  return true;
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= titles_.size()) {
    return {};
  }
  switch (role) {
    case Qt::DisplayRole:
      return translated(titles_.at(section));
    case Qt::AccessibleTextRole:
      return translated(spokenTitle(section));
    case Qt::ToolTipRole:
      return spokenTitle(section) == titles_.at(section) ? QVariant() : QVariant(translated(spokenTitle(section)));
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(int(alignmentOf(section)));
    default:
      return {};
  }
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) {
    return {};
  }
  Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
  flags.setFlag(Qt::ItemIsEditable, edited_ != nullptr && index.column() == 0);
  flags.setFlag(Qt::ItemIsDragEnabled, draggable_);
  flags.setFlag(Qt::ItemIsDropEnabled, draggable_);
  return flags;
}
