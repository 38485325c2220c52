#include "gui/views/frmWordCount.h"

#include "core/infra/BusyPointer.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/clsHashTable.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/ListDelegate.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QCollator>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <numeric>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

enum Column { kWord, kCount, kColumns };

constexpr QSize kFirstSize(340, 520);

struct WordUsage {
  QString word;
  qint32 count = 0;
};

/// Draws rows as high as those of all lists, and numbers that keep off the scroll bar.
class WordDelegate : public QStyledItemDelegate {
 public:
  explicit WordDelegate(QTreeView& view) : QStyledItemDelegate(&view), view_(view) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), rowHeight(size.height(), view_)};
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = spacedForColumn(option->text, option->displayAlignment);
  }

 private:
  QTreeView& view_;
};

}  // namespace

/// The words in the order in which they are shown.
class frmWordCount::Rows : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void fill(const clsHashTable& table) {
    beginResetModel();
    usage_.clear();
    usage_.reserve(static_cast<size_t>(table.HighWater()));
    for (qint32 i = 1; i <= table.HighWater(); ++i) {
      HashRecord record = table.Record(i);
      usage_.push_back({std::move(record.Text), record.Value});
    }
    endResetModel();
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(usage_.size());
  }

  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : kColumns; }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) {
      return {};
    }
    const WordUsage& row = usage_[static_cast<size_t>(index.row())];
    switch (role) {
      case Qt::DisplayRole:
        return index.column() == kWord ? QVariant(row.word) : QVariant(QLocale().toString(row.count));
      case Qt::TextAlignmentRole:
        return alignmentOf(index.column());
      default:
        return {};
    }
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
      return translated(section == kWord ? u"Word"_s : u"Count"_s);
    }
    if (orientation == Qt::Horizontal && role == Qt::ToolTipRole) {
      return translated(section == kWord ? u"Click to sort by word (Ctrl+1)"_s : u"Click to sort by count (Ctrl+2)"_s);
    }
    return orientation == Qt::Horizontal && role == Qt::TextAlignmentRole ? alignmentOf(section) : QVariant();
  }

  void sort(int column, Qt::SortOrder order) override {
    Q_EMIT layoutAboutToBeChanged();
    const std::vector<size_t> from = column == kCount ? orderByCount(order) : orderByWord(order);
    std::vector<int> to(usage_.size());
    std::vector<WordUsage> sorted;
    sorted.reserve(usage_.size());
    for (const size_t row : from) {
      to[row] = static_cast<int>(sorted.size());
      sorted.push_back(std::move(usage_[row]));
    }
    usage_ = std::move(sorted);
    // What is selected moves along.
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& index : before) {
      after.append(this->index(to[static_cast<size_t>(index.row())], index.column()));
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
  }

  qint64 total() const {
    return std::accumulate(usage_.begin(), usage_.end(), qint64{0},
                           [](qint64 sum, const WordUsage& row) { return sum + row.count; });
  }

 private:
  static QVariant alignmentOf(int column) {
    return QVariant::fromValue(int((column == kCount ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter));
  }

  /// The rows in the order in which `isBefore` puts them; equal ones keep theirs, so that a click on "Word" and one
  /// on "Count" sort by both.
  template <class IsBefore>
  std::vector<size_t> ordered(Qt::SortOrder order, IsBefore isBefore) const {
    std::vector<size_t> rows(usage_.size());
    std::iota(rows.begin(), rows.end(), size_t{0});
    std::stable_sort(rows.begin(), rows.end(),
                     [=](size_t a, size_t b) { return order == Qt::AscendingOrder ? isBefore(a, b) : isBefore(b, a); });
    return rows;
  }

  std::vector<size_t> orderByCount(Qt::SortOrder order) const {
    return ordered(order, [this](size_t a, size_t b) { return usage_[a].count < usage_[b].count; });
  }

  // By the rules of the writer's language; a key for each word is made once, not at each comparison.
  std::vector<size_t> orderByWord(Qt::SortOrder order) const {
    const QCollator collator;
    std::vector<QCollatorSortKey> keys;
    keys.reserve(usage_.size());
    for (const WordUsage& row : usage_) {
      keys.push_back(collator.sortKey(row.word));
    }
    return ordered(order, [&keys](size_t a, size_t b) { return keys[a].compare(keys[b]) < 0; });
  }

  std::vector<WordUsage> usage_;
};

frmWordCount::frmWordCount(QWidget* parent) : QDialog(parent), rows_(new Rows(this)) {
  setObjectName(u"frmWordCount"_s);
  setWindowTitle(u"Word Usage Counts"_s);
  buildList();
  buildLayout();
}

void frmWordCount::buildList() {
  ListView1 = new QTreeView(this);
  giveName(*ListView1, u"ListView1"_s, u"Words and how often they are used"_s);
  ListView1->setModel(rows_);
  ListView1->setItemDelegate(new WordDelegate(*ListView1));
  ListView1->setRootIsDecorated(false);
  ListView1->setItemsExpandable(false);
  ListView1->setUniformRowHeights(true);
  ListView1->setAllColumnsShowFocus(true);
  ListView1->setAlternatingRowColors(true);
  QHeaderView* const header = ListView1->header();
  header->setStretchLastSection(false);
  header->setSectionResizeMode(kWord, QHeaderView::Stretch);
  header->setSectionResizeMode(kCount, QHeaderView::Interactive);
  header->setSectionsClickable(true);
  connect(header, &QHeaderView::sectionClicked, this,
          guarded("ListView1_ColumnClick", "frmWordCount", this, &frmWordCount::ListView1_ColumnClick));
  ListView1->setContextMenuPolicy(Qt::ActionsContextMenu);
  addSortAction(kWord, u"SortByWord"_s, u"Sort by &Word"_s, Qt::Key_1);
  addSortAction(kCount, u"SortByCount"_s, u"Sort by &Count"_s, Qt::Key_2);
}

void frmWordCount::addSortAction(int column, const QString& name, const QString& caption, int key) {
  auto* action = new QAction(caption, ListView1);
  action->setObjectName(name);
  action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key(key)));
  connect(action, &QAction::triggered, this,
          guarded("ListView1_ColumnClick", "frmWordCount", [this, column] { ListView1_ColumnClick(column); }));
  ListView1->addAction(action);
}

void frmWordCount::buildLayout() {
  lblInfo = makeLabel(u"lblInfo"_s, {}, this);
  lblInfo->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblScope = makeLabel(u"lblScope"_s, {}, this);
  lblScope->setWordWrap(true);
  tellScope({});
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* column = new QVBoxLayout(this);
  column->addWidget(ListView1, 1);
  column->addWidget(lblInfo);
  column->addWidget(lblScope);
  column->addWidget(buttons);
  resize(kFirstSize);
  ListView1->setFocus();
}

void frmWordCount::FillForm(const clsHashTable& table, bool sortByCount) {
  const BusyPointer pointer;
  rows_->fill(table);
  lblInfo->setText(translated(u"Total words: %L1 Unique: %L2"_s).arg(rows_->total()).arg(rows_->rowCount()));
  ListView1->header()->setSortIndicatorShown(false);
  if (sortByCount) {
    ascending_ = false;
    sortBy(kCount);
  }
}

void frmWordCount::ListView1_ColumnClick(int column) {
  ascending_ = !ascending_;
  sortBy(column);
}

void frmWordCount::sortBy(int column) {
  const Qt::SortOrder order = ascending_ ? Qt::AscendingOrder : Qt::DescendingOrder;
  rows_->sort(column, order);
  ListView1->header()->setSortIndicatorShown(true);
  ListView1->header()->setSortIndicator(column, order);
  ListView1->scrollToTop();
}

void frmWordCount::tellScope(const QString& scope) {
  lblScope->setText(scope);
  lblScope->setVisible(!scope.isEmpty());
}

frmWordCount* frmWordCount::showOver(QWidget& window, const clsHashTable& table, const QString& scope) {
  auto* form = new frmWordCount(&window);
  form->setAttribute(Qt::WA_DeleteOnClose);
  form->setWindowModality(Qt::ApplicationModal);
  form->FillForm(table, true);
  form->tellScope(scope);
  form->show();
  return form;
}
