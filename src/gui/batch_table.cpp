#include "gui/batch_table.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>

#include "forms/batch_form.h"
#include "gui/cp1252.h"

namespace tos::gui {

namespace {

BatchCell CellAt(BatchForm& form, const QModelIndex& index)
{
    return CellOf(*form.rows[static_cast<std::size_t>(index.row())],
                  static_cast<BatchColumn>(index.column()));
}

} // namespace

BatchRowsModel::BatchRowsModel(BatchForm& form, QObject* parent)
    : QAbstractTableModel(parent), form_(form)
{
    // The model outlives the table in tests; its notifiers must not reach a dead one.
    QPointer<BatchRowsModel> self(this);
    form.rowsView.Subscribe([self] {
        if (self)
            self->Reset();
    });
    Reset();
}

void BatchRowsModel::Reset()
{
    beginResetModel();
    shownRows_ = static_cast<int>(form_.rows.size());
    QPointer<BatchRowsModel> self(this);
    for (int i = 0; i < shownRows_; ++i)
        form_.rows[static_cast<std::size_t>(i)]->lineView.Subscribe([self, i] {
            if (self)
                emit self->dataChanged(self->index(i, 0), self->index(i, kBatchColumns - 1));
        });
    endResetModel();
}

int BatchRowsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : shownRows_;
}

int BatchRowsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kBatchColumns;
}

QVariant BatchRowsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= static_cast<int>(form_.rows.size()))
        return {};
    const BatchCell cell = CellAt(form_, index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return FromCp1252(cell.check  ? cell.check->Caption()
                          : cell.text ? cell.text->Text()
                                      : cell.button->Caption());
    case Qt::CheckStateRole:
        if (cell.check)
            return cell.check->Checked() ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::ToolTipRole:
        return cell.Of().ToolTip().empty() ? QVariant() : FromCp1252(cell.Of().ToolTip());
    default:
        return {};
    }
}

bool BatchRowsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.row() >= static_cast<int>(form_.rows.size()))
        return false;
    const BatchCell cell = CellAt(form_, index);
    if (cell.check && role == Qt::CheckStateRole)
        cell.check->SetValue(value.toInt() == Qt::Checked ? 1 : 0);
    else if (cell.text && role == Qt::EditRole)
        cell.text->SetText(ToCp1252(value.toString()));
    else
        return false;
    // The model may have refused or changed more; the line shows what it holds.
    emit dataChanged(index.siblingAtColumn(0), index.siblingAtColumn(kBatchColumns - 1));
    return true;
}

Qt::ItemFlags BatchRowsModel::flags(const QModelIndex& index) const
{
    if (!index.isValid() || index.row() >= static_cast<int>(form_.rows.size()))
        return Qt::NoItemFlags;
    const BatchCell cell = CellAt(form_, index);
    if (!cell.Of().Enabled())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (cell.check)
        flags |= Qt::ItemIsUserCheckable;
    if (cell.text && !cell.text->Locked())
        flags |= Qt::ItemIsEditable;
    return flags;
}

QVariant BatchRowsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || section < 0)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    return section < kBatchColumns ? FromCp1252(BatchHeading(static_cast<BatchColumn>(section)))
                                   : QVariant();
}

bool BatchRowsModel::Press(const QModelIndex& index)
{
    if (!index.isValid() || index.row() >= static_cast<int>(form_.rows.size()))
        return false;
    const BatchCell cell = CellAt(form_, index);
    if (!cell.button || !cell.button->Enabled())
        return false;
    cell.button->Click.Fire();
    return true;
}

void BatchButtonDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const
{
    QStyleOptionButton button;
    button.rect = option.rect.adjusted(1, 1, -1, -1);
    button.text = index.data().toString();
    button.state = option.state | QStyle::State_Raised;
    QApplication::style()->drawControl(QStyle::CE_PushButton, &button, painter);
}

} // namespace tos::gui
