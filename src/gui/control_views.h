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

// Mirrors a form's position (in twips) and mouse pointer on its window. Only a
// new position of the form moves the window, so a window the user has dragged
// stays where it is when the pointer changes for a load or a build.
class FormPlacement {
public:
    void Sync(QWidget* window, int leftTwips, int topTwips, int pointer);

private:
    std::optional<std::pair<int, int>> placed_;
};

// The rows of a list box as an item model, read straight from the list.
class RowsModel : public QAbstractListModel {
public:
    RowsModel(const ListBox& list, QObject* parent);
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    // Shows the list as it is now.
    void Reset();

private:
    const ListBox& list_;
    int shownRows_ = 0;
};

} // namespace tos::gui
