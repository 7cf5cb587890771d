#include "gui/batch_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "forms/batch_form.h"
#include "gui/batch_table.h"
#include "gui/control_views.h"
#include "gui/cp1252.h"
#include "support/platform.h"

namespace tos::gui {

BatchWindow::BatchWindow(BatchForm& form, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                         Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint),
      form_(form)
{
    setObjectName("frmProcessAll");
    setWindowTitle(FromCp1252(form.caption));
    BuildControls();
    resize(1100, 600);

    // The model outlives the window in tests; its notifiers must not reach a dead window.
    QPointer<BatchWindow> self(this);
    form.formView.Subscribe([self] {
        if (self)
            self->SyncForm();
    });
    form.showModal = [self] {
        if (self)
            self->exec();
    };
}

BatchWindow::~BatchWindow()
{
    form_.showModal = nullptr;
}

void BatchWindow::BuildControls()
{
    auto* file = new QHBoxLayout;
    file->addWidget(MakeLabel(form_.lblBatchFile, this));
    file->addWidget(MakeTextBox(form_.txtBatchFile, this), 1);
    file->addWidget(MakeButton(form_.btnLoad, this));
    file->addWidget(MakeButton(form_.btnSave, this));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(MakeButton(form_.btnRunBatch, this));
    buttons->addStretch(1);
    buttons->addWidget(MakeButton(form_.btnClose, this));

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(file);
    layout->addWidget(BuildTable(), 4);
    layout->addWidget(MakeLabel(form_.lblSummary, this));
    layout->addWidget(MakeListBox(form_.lstSummary, this), 1);
    layout->addLayout(buttons);
}

QTableView* BatchWindow::BuildTable()
{
    auto* table = new QTableView(this);
    table->setObjectName(QString::fromStdString(form_.tblRows.Name()));
    auto* rows = new BatchRowsModel(form_, table);
    table->setModel(rows);
    table->setItemDelegateForColumn(static_cast<int>(BatchColumn::Browse),
                                    new BatchButtonDelegate(table));
    table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                           QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    // One height for all lines lets the view lay out thousands at once.
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 10);
    // Paths are long and names middling; the two numbers are short.
    const int widths[kBatchColumns] = {200, 240, 70, 140, 90, 90, 90, 90};
    for (int c = 0; c < kBatchColumns; ++c)
        table->setColumnWidth(c, widths[c]);
    table->horizontalHeader()->setSectionResizeMode(static_cast<int>(BatchColumn::MaxFile),
                                                    QHeaderView::Stretch);
    connect(table, &QTableView::clicked, rows,
            [rows](const QModelIndex& index) { rows->Press(index); });
    return table;
}

void BatchWindow::SyncForm()
{
    if (!form_.visible && isVisible())
        hide();
    if (form_.mousePointer == kPointerHourglass)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void BatchWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    form_.btnClose.Click.Fire();
}

void BatchWindow::reject()
{
    form_.btnClose.Click.Fire();
}

} // namespace tos::gui
