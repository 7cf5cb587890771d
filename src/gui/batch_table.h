#pragma once

#include <QAbstractTableModel>
#include <QStyledItemDelegate>

namespace tos {
struct BatchForm;
}

namespace tos::gui {

// The rows of the batch form as a table model, read straight from the model's
// controls: a check box cell shows its caption and state, a text box cell its
// text, a button cell its caption. A check or an edit goes to the cell's control;
// the model decides and the table shows what it then holds. Headings come from
// the batch form. The views hold no widget per row, so any count shows at once.
class BatchRowsModel : public QAbstractTableModel {
public:
    BatchRowsModel(BatchForm& form, QObject* parent);
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // Presses the button of a button cell; false for another cell.
    bool Press(const QModelIndex& index);

private:
    // The model replaced its rows.
    void Reset();

    BatchForm& form_;
    int shownRows_ = 0;
};

// Draws a button cell as a push button.
class BatchButtonDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

} // namespace tos::gui
