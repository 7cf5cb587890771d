#include "forms/controls.h"

#include "forms/row_order.h"
#include "support/failure.h"

namespace tos {

void Event::Fire()
{
    // Copy: a routine may connect further routines while it runs.
    const auto routines = routines_;
    for (const auto& routine : routines)
        (void)Trap(routine);
}

void Control::SetEnabled(bool enabled)
{
    if (enabled_ != enabled) {
        enabled_ = enabled;
        Changed();
    }
}

void Control::SetVisible(bool visible)
{
    if (visible_ != visible) {
        visible_ = visible;
        Changed();
    }
}

void Control::SetToolTip(std::string tip)
{
    toolTip_ = std::move(tip);
    Changed();
}

void Control::SetFont(Font font)
{
    font_ = std::move(font);
    Changed();
}

Label::Label(std::string name, std::string caption)
    : Control(std::move(name)), caption_(std::move(caption))
{
}

void Label::SetCaption(std::string caption)
{
    if (caption_ != caption) {
        caption_ = std::move(caption);
        Changed();
    }
}

Button::Button(std::string name, std::string caption)
    : Control(std::move(name)), caption_(std::move(caption))
{
}

TextBox::TextBox(std::string name, std::string text)
    : Control(std::move(name)), text_(std::move(text))
{
}

void TextBox::SetText(std::string text)
{
    if (text_ == text)
        return;
    text_ = std::move(text);
    Changed();
    Change.Fire();
}

void TextBox::SetLocked(bool locked)
{
    if (locked_ != locked) {
        locked_ = locked;
        Changed();
    }
}

void Control::SetBack(BackColor back)
{
    if (back_ != back) {
        back_ = back;
        Changed();
    }
}

CheckBox::CheckBox(std::string name, std::string caption, int value)
    : Control(std::move(name)), caption_(std::move(caption)), value_(value)
{
}

void CheckBox::SetValue(int value)
{
    if (value_ == value)
        return;
    value_ = value;
    Changed();
    Click.Fire();
}

ListBox::ListBox(std::string name, bool sorted, RowLimit limit)
    : Control(std::move(name)), sorted_(sorted), limit_(limit)
{
}

void ListBox::AddItem(std::string row)
{
    if (limit_ == RowLimit::Int16 && rows_.size() >= static_cast<std::size_t>(kMaxRows))
        Fail(err::Overflow);
    rows_.push_back(std::move(row));
    Changed();
}

void ListBox::Clear()
{
    ++clears_;
    if (rows_.empty())
        return;
    rows_.clear();
    sortedCount_ = 0;
    Changed();
}

Int16 ListBox::ListCount() const
{
    return Int16::From(static_cast<long long>(rows_.size()));
}

const std::string& ListBox::List(Int16 index) const
{
    static const std::string empty;
    if (index.value() < 0)
        return empty;
    return Row(static_cast<std::size_t>(index.value()));
}

const std::string& ListBox::Row(std::size_t index) const
{
    static const std::string empty;
    if (index >= rows_.size())
        return empty;
    SortPending();
    return rows_[index];
}

const std::vector<std::string>& ListBox::Rows() const
{
    SortPending();
    return rows_;
}

void ListBox::SortPending() const
{
    if (!sorted_ || sortedCount_ == rows_.size())
        return;
    // Rows added since the last read are merged in on demand, so that a load of many
    // rows costs n log n, not n squared.
    MergeRowsInOrder(rows_, sortedCount_);
    sortedCount_ = rows_.size();
}

ComboBox::ComboBox(std::string name) : Control(name), items_(std::move(name), false) {}

void ComboBox::SetText(std::string text)
{
    if (text_ == text)
        return;
    text_ = std::move(text);
    Changed();
    Change.Fire();
}

} // namespace tos
