#include "forms/controls.h"

#include <algorithm>
#include <cstdint>

#include "support/conversions.h"
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

namespace {

// The first 16 bytes of a row's key (the row upper-cased) as two numbers, zeros behind a
// shorter key. Where they differ they order the keys as the whole keys do, a proper
// prefix first.
struct SortEntry {
    std::uint64_t head, next;
    std::size_t index;
};

std::uint64_t Packed(const std::string& row, std::size_t from)
{
    std::uint64_t v = 0;
    for (std::size_t i = from; i < from + 8; ++i)
        v = (v << 8) | (i < row.size() ? static_cast<unsigned char>(UpperChar(row[i])) : 0U);
    return v;
}

// The order of the keys of a and b (below, equal or above zero), bytes compared as
// unsigned, as std::string compares the upper-cased copies.
int KeyOrder(const std::string& a, const std::string& b)
{
    const std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i) {
        const auto x = static_cast<unsigned char>(UpperChar(a[i]));
        const auto y = static_cast<unsigned char>(UpperChar(b[i]));
        if (x != y)
            return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

} // namespace

void ListBox::SortPending() const
{
    if (!sorted_ || sortedCount_ == rows_.size())
        return;
    // Sort the new rows by key (equal rows in the order they were added in), then merge
    // them behind equal rows already there.
    const std::size_t n = rows_.size();
    std::vector<SortEntry> order(n);
    for (std::size_t i = 0; i < n; ++i)
        order[i] = {Packed(rows_[i], 0), Packed(rows_[i], 8), i};
    // Equal keys keep the order of their rows, so a plain sort gives the stable order.
    auto less = [this](const SortEntry& a, const SortEntry& b) {
        if (a.head != b.head)
            return a.head < b.head;
        if (a.next != b.next)
            return a.next < b.next;
        const int order = KeyOrder(rows_[a.index], rows_[b.index]);
        return order != 0 ? order < 0 : a.index < b.index;
    };
    const auto added = order.begin() + static_cast<std::ptrdiff_t>(sortedCount_);
    // Rows often come in order already (a list filled from a sorted one); then there is
    // nothing to move.
    if (std::is_sorted(added, order.end(), less) &&
        (sortedCount_ == 0 || !less(*added, *(added - 1)))) {
        sortedCount_ = n;
        return;
    }
    std::sort(added, order.end(), less);
    std::inplace_merge(order.begin(), added, order.end(), less);
    std::vector<std::string> rows(n);
    for (std::size_t i = 0; i < n; ++i)
        rows[i] = std::move(rows_[order[i].index]);
    rows_ = std::move(rows);
    sortedCount_ = n;
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
