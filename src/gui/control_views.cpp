#include "gui/control_views.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <limits>
#include <map>

#include "forms/screen_text.h"
#include "gui/cp1252.h"
#include "gui/qt_platform.h"

namespace tos::gui {

namespace {

// Passes focus and mouse events of a widget to the control's events. A window
// that loses or gains activation is no change of focus inside the form.
class EventRelay : public QObject {
public:
    EventRelay(QWidget* widget, Event* gotFocus, Event* lostFocus, Event* click, Event* dblClick)
        : QObject(widget), gotFocus_(gotFocus), lostFocus_(lostFocus), click_(click),
          dblClick_(dblClick)
    {
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::FocusIn:
            if (IsFormFocus(event))
                Fire(gotFocus_);
            break;
        case QEvent::FocusOut:
            if (IsFormFocus(event))
                Fire(lostFocus_);
            break;
        case QEvent::MouseButtonRelease:
            Fire(click_);
            break;
        case QEvent::MouseButtonDblClick:
            Fire(dblClick_);
            break;
        default:
            break;
        }
        return false;
    }

private:
    static bool IsFormFocus(QEvent* event)
    {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
    }
    static void Fire(Event* event)
    {
        if (event)
            event->Fire();
    }

    Event* gotFocus_;
    Event* lostFocus_;
    Event* click_;
    Event* dblClick_;
};

// A combo box that tells the model when its list drops down.
class DropDownComboBox : public QComboBox {
public:
    DropDownComboBox(ComboBox& model, QWidget* parent) : QComboBox(parent), model_(model) {}
    void showPopup() override
    {
        model_.DropDown.Fire();
        QComboBox::showPopup();
    }

private:
    ComboBox& model_;
};

// Runs paint once at the next turn of the event loop, however often it is asked
// for before then: rows change in bursts (a load or a build adds them one by one).
std::function<void()> Coalesced(QObject* context, std::function<void()> paint)
{
    QPointer<QObject> guard(context);
    auto pending = std::make_shared<bool>(false);
    return [guard, pending, paint] {
        if (!guard || *pending)
            return;
        *pending = true;
        QMetaObject::invokeMethod(
            guard,
            [guard, pending, paint] {
                *pending = false;
                if (guard)
                    paint();
            },
            Qt::QueuedConnection);
    };
}

QString Name(const Control& control)
{
    return QString::fromStdString(control.Name());
}

// The face both front ends choose, then the desktop's face of the same kind: a
// script list must stay fixed-pitch.
QStringList Families(const std::string& name, bool fixedPitch)
{
    static std::map<std::string, QStringList> chosen;
    const auto known = chosen.find(name);
    if (known != chosen.end())
        return known->second;
    const QStringList installed = QFontDatabase::families();
    QStringList families;
    families << QString::fromStdString(ChooseFace(name, [&installed](const std::string& face) {
        return installed.contains(QString::fromStdString(face), Qt::CaseInsensitive);
    }));
    families << (fixedPitch ? QStringLiteral("monospace") : QStringLiteral("sans-serif"));
    return chosen[name] = families;
}

void PaintFont(const Control& control, QWidget* widget)
{
    const Font& font = control.GetFont();
    if (font.name.empty())
        return;
    QFont f = widget->font();
    const bool fixedPitch = IsFixedPitchFace(font.name);
    f.setFamilies(Families(font.name, fixedPitch));
    if (font.points > 0)
        f.setPointSize(font.points);
    f.setStyleHint(fixedPitch ? QFont::TypeWriter : QFont::SansSerif);
    if (f != widget->font())
        widget->setFont(f);
}

// A box that cannot be used, locked grey or disabled, has the button-face colour.
void PaintBack(const Control& control, QWidget* widget)
{
    const QPalette app = QApplication::palette();
    const bool grey = control.Back() == BackColor::ButtonFace || !control.Enabled();
    const QColor base = grey ? app.color(QPalette::Button) : app.color(QPalette::Base);
    if (widget->palette().color(QPalette::Base) == base &&
        widget->palette().color(QPalette::Disabled, QPalette::Base) == base)
        return;
    QPalette p = widget->palette();
    p.setColor(QPalette::Base, base);
    widget->setPalette(p);
}

// The state every control has. A control hidden in the model is hidden on the
// screen only once its window is up, so building the form shows nothing early.
void PaintCommon(const Control& control, QWidget* widget)
{
    widget->setEnabled(control.Enabled());
    widget->setHidden(!control.Visible());
    widget->setToolTip(FromCp1252(control.ToolTip()));
    PaintFont(control, widget);
}

// Repaints the widget from the model now and at every change of the control.
template <class W, class Paint> void Mirror(Control& control, W* widget, Paint paint)
{
    widget->setObjectName(Name(control));
    QPointer<W> guard(widget);
    auto repaint = [guard, &control, paint] {
        if (!guard)
            return;
        PaintCommon(control, guard);
        paint(guard.data());
    };
    control.view.Subscribe(repaint);
    repaint();
}

bool IsControl(char c)
{
    const auto b = static_cast<unsigned char>(c);
    return b < 0x20 || b == 0x7F;
}

QString ShownText(const std::string& row)
{
    const QString text = FromCp1252(row);
    if (std::none_of(row.begin(), row.end(), IsControl))
        return text;
    QString shown;
    for (const QChar c : text) {
        if (c == u'\t') {
            do
                shown += u' ';
            while (shown.size() % static_cast<qsizetype>(kTabColumns) != 0);
        } else if (c.unicode() < 0x20) {
            shown += QChar(0x2400 + c.unicode());
        } else if (c.unicode() == 0x7F) {
            shown += QChar(0x2421);
        } else {
            shown += c;
        }
    }
    return shown;
}

// Gives every row the size of the widest, so a list of uniform rows is as wide
// as its longest row and scrolls sideways to show it whole.
class WidestRowDelegate : public QStyledItemDelegate {
public:
    WidestRowDelegate(const RowsModel& rows, QObject* parent)
        : QStyledItemDelegate(parent), rows_(rows)
    {
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const int widest = rows_.WidestRow();
        return QStyledItemDelegate::sizeHint(option, widest < 0 ? index : rows_.index(widest));
    }

private:
    const RowsModel& rows_;
};

} // namespace

QGroupBox* MakeFrame(Frame& frame, QWidget* parent)
{
    auto* w = new QGroupBox(parent);
    Mirror(frame, w, [&frame](QGroupBox* g) { g->setTitle(FromCp1252(frame.Caption())); });
    return w;
}

QLabel* MakeLabel(Label& label, QWidget* parent)
{
    auto* w = new QLabel(parent);
    w->setTextFormat(Qt::PlainText);
    Mirror(label, w, [&label](QLabel* l) { l->setText(FromCp1252(label.Caption())); });
    return w;
}

QPushButton* MakeButton(Button& button, QWidget* parent)
{
    auto* w = new QPushButton(parent);
    w->setAutoDefault(false);
    Mirror(button, w, [&button](QPushButton* b) { b->setText(FromCp1252(button.Caption())); });
    QObject::connect(w, &QPushButton::clicked, w, [&button] { button.Click.Fire(); });
    return w;
}

QCheckBox* MakeCheckBox(CheckBox& box, QWidget* parent)
{
    auto* w = new QCheckBox(parent);
    auto paint = [&box](QCheckBox* c) {
        c->setText(FromCp1252(box.Caption()));
        c->setChecked(box.Checked());
    };
    Mirror(box, w, paint);
    // The widget has toggled itself; the model decides, and the widget follows it.
    QObject::connect(w, &QCheckBox::clicked, w, [&box, w, paint](bool checked) {
        box.SetValue(checked ? 1 : 0);
        paint(w);
    });
    return w;
}

QLineEdit* MakeTextBox(TextBox& box, QWidget* parent)
{
    auto* w = new QLineEdit(parent);
    Mirror(box, w, [&box](QLineEdit* e) {
        const QString text = FromCp1252(box.Text());
        // Setting equal text would move the cursor while the user types.
        if (e->text() != text)
            e->setText(text);
        e->setReadOnly(box.Locked());
        PaintBack(box, e);
    });
    QObject::connect(w, &QLineEdit::textEdited, w,
                     [&box](const QString& text) { box.SetText(ToCp1252(text)); });
    new EventRelay(w, &box.GotFocus, &box.LostFocus, &box.Click, &box.DblClick);
    return w;
}

QComboBox* MakeComboBox(ComboBox& box, QWidget* parent)
{
    auto* w = new DropDownComboBox(box, parent);
    w->setEditable(true);
    w->setInsertPolicy(QComboBox::NoInsert);
    w->setCompleter(nullptr);
    w->setMaxVisibleItems(20);
    auto paintText = [&box](QComboBox* c) {
        const QString text = FromCp1252(box.Text());
        if (c->currentText() != text) {
            const QSignalBlocker block(c);
            c->setEditText(text);
        }
    };
    Mirror(box, w, paintText);

    box.Items().view.Subscribe(Coalesced(w, [w, &box, paintText] {
        const QSignalBlocker block(w);
        QStringList rows;
        for (const auto& row : box.Items().Rows())
            rows << FromCp1252(row);
        w->clear();
        w->addItems(rows);
        w->setCurrentIndex(-1);
        paintText(w);
        // The drop-down is as wide as its longest row, however narrow the box.
        QAbstractItemView* list = w->view();
        list->setMinimumWidth(list->sizeHintForColumn(0) + 2 * list->frameWidth() +
                              list->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    }));

    QObject::connect(w->lineEdit(), &QLineEdit::textEdited, w,
                     [&box](const QString& text) { box.SetText(ToCp1252(text)); });
    QObject::connect(w, &QComboBox::activated, w, [&box, w](int index) {
        box.SetText(ToCp1252(w->itemText(index)));
        box.Click.Fire();
    });
    QObject::connect(w->view()->verticalScrollBar(), &QScrollBar::valueChanged, w,
                     [&box] { box.Scroll.Fire(); });
    new EventRelay(w, &box.GotFocus, &box.LostFocus, nullptr, nullptr);
    return w;
}

void FormPlacement::Sync(QWidget* window, int leftTwips, int topTwips)
{
    if (placed_ != std::pair(leftTwips, topTwips)) {
        placed_ = std::pair(leftTwips, topTwips);
        window->move(TwipsToPixels(leftTwips), TwipsToPixels(topTwips));
    }
}

RowsModel::RowsModel(const ListBox& list, QObject* parent)
    : QAbstractListModel(parent), list_(list), shownClears_(list.Clears())
{
}

int RowsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : shownRows_;
}

QVariant RowsModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    // A row that is gone since the last sync reads as "".
    return ShownText(list_.Row(static_cast<std::size_t>(index.row())));
}

bool RowsModel::Sync()
{
    const bool emptied = list_.Clears() != shownClears_;
    shownClears_ = list_.Clears();
    // Qt counts rows in int; memory runs out long before a list gets there.
    const int rows =
        static_cast<int>(std::min<std::size_t>(list_.RowCount(), std::numeric_limits<int>::max()));
    // Rows of an unsorted list only ever go to its end until it is emptied.
    const bool appended = !emptied && !list_.Sorted() && rows >= shownRows_;
    if (!appended) {
        widestRow_ = -1;
        widestColumns_ = 0;
    }
    for (int i = appended ? shownRows_ : 0; i < rows; ++i) {
        const std::size_t columns = ShownColumns(list_.Row(static_cast<std::size_t>(i)));
        if (widestRow_ < 0 || columns > widestColumns_) {
            widestRow_ = i;
            widestColumns_ = columns;
        }
    }
    if (!appended) {
        beginResetModel();
        shownRows_ = rows;
        endResetModel();
    } else if (rows > shownRows_) {
        beginInsertRows({}, shownRows_, rows - 1);
        shownRows_ = rows;
        endInsertRows();
    }
    return emptied;
}

QListView* MakeListBox(ListBox& list, QWidget* parent)
{
    auto* w = new QListView(parent);
    w->setObjectName(Name(list));
    auto* rows = new RowsModel(list, w);
    w->setModel(rows);
    w->setItemDelegate(new WidestRowDelegate(*rows, w));
    // One size for all rows lets the view lay out a long script at once.
    w->setUniformItemSizes(true);
    w->setTextElideMode(Qt::ElideNone);
    w->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    w->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto paint = [w, rows, &list] {
        PaintCommon(list, w);
        PaintBack(list, w);
        if (rows->Sync()) {
            // A new script is read from its first row and column.
            w->scrollToTop();
            w->horizontalScrollBar()->setValue(0);
        }
    };
    paint();
    list.view.Subscribe(Coalesced(w, paint));
    return w;
}

} // namespace tos::gui
