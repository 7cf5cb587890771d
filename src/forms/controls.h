#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/checked.h"

namespace tos {

// One event of a control. Firing runs the connected routines at once, inside the
// change that caused it. A failure in a routine without a trap ends that routine
// silently; the routine that made the change carries on.
class Event {
public:
    void Connect(std::function<void()> routine) { routines_.push_back(std::move(routine)); }
    void Fire();

private:
    std::vector<std::function<void()>> routines_;
};

// Tells a view (the Qt window) that a control's state changed, so it can repaint.
// Not an event of the program: nothing of the logic listens here.
class ViewNotifier {
public:
    void Subscribe(std::function<void()> listener) { listeners_.push_back(std::move(listener)); }
    void Notify() const
    {
        for (const auto& l : listeners_)
            l();
    }

private:
    std::vector<std::function<void()>> listeners_;
};

struct Font {
    std::string name; // "" for the form's default
    int points = 0;
};

enum class BackColor { Window, ButtonFace };

class Control {
public:
    explicit Control(std::string name) : name_(std::move(name)) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name_; }
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    const std::string& ToolTip() const { return toolTip_; }
    void SetToolTip(std::string tip);
    const Font& GetFont() const { return font_; }
    void SetFont(Font font);
    // Grey means the system's button-face colour, editable the window colour.
    BackColor Back() const { return back_; }
    void SetBack(BackColor back);

    ViewNotifier view;

protected:
    void Changed() const { view.Notify(); }

private:
    std::string name_;
    bool enabled_ = true;
    bool visible_ = true;
    std::string toolTip_;
    Font font_;
    BackColor back_ = BackColor::Window;
};

class Label : public Control {
public:
    Label(std::string name, std::string caption);
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);

private:
    std::string caption_;
};

// A frame only groups controls; it has a caption and nothing else.
using Frame = Label;

class Button : public Control {
public:
    Button(std::string name, std::string caption);
    const std::string& Caption() const { return caption_; }
    Event Click;

private:
    std::string caption_;
};

class TextBox : public Control {
public:
    explicit TextBox(std::string name, std::string text = "");
    const std::string& Text() const { return text_; }
    // Fires Change when the text differs from the one held.
    void SetText(std::string text);
    bool Locked() const { return locked_; }
    void SetLocked(bool locked);

    Event Change, Click, DblClick, GotFocus, LostFocus;

private:
    std::string text_;
    bool locked_ = false;
};

class CheckBox : public Control {
public:
    CheckBox(std::string name, std::string caption, int value = 0);
    const std::string& Caption() const { return caption_; }
    // 0 unchecked, 1 checked; "checked" always means the value 1.
    int Value() const { return value_; }
    bool Checked() const { return value_ == 1; }
    // Fires Click when the value differs from the one held.
    void SetValue(int value);

    Event Click;

private:
    std::string caption_;
    int value_;
};

// How many rows a list may hold. The record lists and the combo box count their
// rows in 16 bits; the two lists that hold scripts may grow as long as a script.
enum class RowLimit { Int16, None };

// Rows of a list box, a combo box or a script. A list limited to 16 bits holds at
// most 32,767 rows; one more is failure 6. A sorted list keeps ascending order of
// the upper-cased row compared byte by byte, a proper prefix first, and a row
// equal to others (ignoring case) goes behind them.
class ListBox : public Control {
public:
    static constexpr int kMaxRows = 32767;

    ListBox(std::string name, bool sorted, RowLimit limit = RowLimit::Int16);
    bool Sorted() const { return sorted_; }
    void AddItem(std::string row);
    void Clear();
    // The count as a 16-bit value; past 32,767 rows (only an unlimited list gets
    // there) it is failure 6, as a 16-bit count would be.
    Int16 ListCount() const;
    // Row i, 0-based; a row behind the last (or before the first) reads as "".
    const std::string& List(Int16 index) const;
    // The same for walks over a list of any length.
    std::size_t RowCount() const { return rows_.size(); }
    const std::string& Row(std::size_t index) const;
    const std::vector<std::string>& Rows() const;
    // Counts the times the list was emptied, so a view knows to show it from the top.
    std::size_t Clears() const { return clears_; }

private:
    void SortPending() const;

    bool sorted_;
    RowLimit limit_;
    std::size_t clears_ = 0;
    // Sorted rows first, then rows added since the last read, merged in on demand
    // so that a load of many rows costs n log n, not n squared.
    mutable std::vector<std::string> rows_;
    mutable std::size_t sortedCount_ = 0;
};

class ComboBox : public Control {
public:
    explicit ComboBox(std::string name);
    const std::string& Text() const { return text_; }
    // Fires Change when the text differs from the one held.
    void SetText(std::string text);
    ListBox& Items() { return items_; }
    const ListBox& Items() const { return items_; }

    Event Change, Click, DropDown, GotFocus, LostFocus, Scroll;

private:
    std::string text_;
    ListBox items_;
};

} // namespace tos
