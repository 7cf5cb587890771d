#include "gui/control_views.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>

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

void PaintFont(const Control& control, QWidget* widget)
{
    const Font& font = control.GetFont();
    if (font.name.empty())
        return;
    QFont f = widget->font();
    // Where the named face is missing, the desktop's face of the same kind
    // stands in: a script list must stay fixed-pitch.
    const bool fixedPitch = font.name.find("Courier") != std::string::npos;
    f.setFamilies({QString::fromStdString(font.name),
                   fixedPitch ? QStringLiteral("monospace") : QStringLiteral("sans-serif")});
    if (font.points > 0)
        f.setPointSize(font.points);
    f.setStyleHint(fixedPitch ? QFont::TypeWriter : QFont::SansSerif);
    if (f != widget->font())
        widget->setFont(f);
}

void PaintBack(const Control& control, QWidget* widget)
{
    const QPalette app = QApplication::palette();
    const QColor base = control.Back() == BackColor::ButtonFace ? app.color(QPalette::Button)
                                                                : app.color(QPalette::Base);
    if (widget->palette().color(QPalette::Base) == base)
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
    }));

    QObject::connect(w->lineEdit(), &QLineEdit::textEdited, w,
                     [&box](const QString& text) { box.SetText(ToCp1252(text)); });
    QObject::connect(w, &QComboBox::activated, w, [&box, w](int index) {
        box.SetText(ToCp1252(w->itemText(index)));
        box.Click.Fire();
    });
    new EventRelay(w, &box.GotFocus, &box.LostFocus, nullptr, nullptr);
    return w;
}

void FormPlacement::Sync(QWidget* window, int leftTwips, int topTwips, int pointer)
{
    if (placed_ != std::pair(leftTwips, topTwips)) {
        placed_ = std::pair(leftTwips, topTwips);
        window->move(TwipsToPixels(leftTwips), TwipsToPixels(topTwips));
    }
    if (pointer == kPointerHourglass)
        window->setCursor(Qt::WaitCursor);
    else
        window->unsetCursor();
}

RowsModel::RowsModel(const ListBox& list, QObject* parent)
    : QAbstractListModel(parent), list_(list), shownRows_(list.ListCount().value())
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
    // A row that is gone since the last reset reads as "".
    return FromCp1252(list_.List(Int16(static_cast<std::int16_t>(index.row()))));
}

void RowsModel::Reset()
{
    beginResetModel();
    shownRows_ = list_.ListCount().value();
    endResetModel();
}

QListView* MakeListBox(ListBox& list, QWidget* parent)
{
    auto* w = new QListView(parent);
    w->setObjectName(Name(list));
    auto* rows = new RowsModel(list, w);
    w->setModel(rows);
    w->setUniformItemSizes(true);
    w->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto paint = [w, rows, &list] {
        PaintCommon(list, w);
        PaintBack(list, w);
        rows->Reset();
    };
    paint();
    list.view.Subscribe(Coalesced(w, paint));
    return w;
}

} // namespace tos::gui
