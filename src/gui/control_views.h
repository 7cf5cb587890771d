#pragma once

#include <QAbstractListModel>
#include <functional>
#include <optional>
#include <utility>

#include "forms/controls.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QWidget;

namespace tos::gui {

// Each function makes the widget of one control of a form model and ties the two
// together both ways: what the user does goes to the model as the control's own
// change or event, and every change of the model repaints the widget. The widget
// is named after the control, so it can be found by name.
QGroupBox* MakeFrame(Frame& frame, QWidget* parent);
QLabel* MakeLabel(Label& label, QWidget* parent);
QPushButton* MakeButton(Button& button, QWidget* parent);
QCheckBox* MakeCheckBox(CheckBox& box, QWidget* parent);
QLineEdit* MakeTextBox(TextBox& box, QWidget* parent);
QComboBox* MakeComboBox(ComboBox& box, QWidget* parent);
QListView* MakeListBox(ListBox& list, QWidget* parent);

// Mirrors a form's position (in twips) on its window. Only a new position of the
// form moves the window, so a window the user has dragged stays where it is.
class FormPlacement {
public:
    void Sync(QWidget* window, int leftTwips, int topTwips);

private:
    std::optional<std::pair<int, int>> placed_;
};

// The rows of a list box as an item model, read straight from the list. A row
// is shown as a fixed-pitch line: tabs stand at every eighth column and other
// control characters as their pictures, so the longest row is the widest.
class RowsModel : public QAbstractListModel {
public:
    RowsModel(const ListBox& list, QObject* parent);
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    // Shows the list as it is now: rows added behind the shown ones are inserted,
    // anything else resets the model. True when the list was emptied since.
    bool Sync();
    // The row of most columns, -1 for an empty list.
    int WidestRow() const { return widestRow_; }

private:
    const ListBox& list_;
    int shownRows_ = 0;
    std::size_t shownClears_ = 0;
    int widestRow_ = -1;
    std::size_t widestColumns_ = 0;
};

} // namespace tos::gui
