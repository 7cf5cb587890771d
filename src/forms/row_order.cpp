#include "forms/row_order.h"

#include <algorithm>
#include <cstdint>

#include "support/conversions.h"

namespace tos {

namespace {

// The first 16 bytes of a row's key as two numbers, zeros behind a shorter key. Where they
// differ they order the keys as the whole keys do, a proper prefix first.
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

// The order of the keys of a and b (below, equal or above zero).
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

using Entries = std::vector<SortEntry>;

// Rows of one list share few first eight bytes (an object's name), so the entries are put
// in groups of equal heads by counting, and each group is sorted on its own: far fewer
// comparisons than one sort of them all.
void SortByKey(Entries& order, std::size_t from, const auto& less)
{
    if (from >= order.size())
        return;
    const std::size_t count = order.size() - from;
    const auto first = order.begin() + static_cast<std::ptrdiff_t>(from);
    std::vector<std::uint64_t> heads;
    std::vector<std::uint32_t> slots(64, 0); // 0 for free, else head number + 1
    std::vector<std::uint32_t> headOf(count);
    const auto slotOf = [&](std::uint64_t head) {
        std::size_t slot = (head * 0x9E3779B97F4A7C15ULL >> 32) & (slots.size() - 1);
        while (slots[slot] != 0 && heads[slots[slot] - 1] != head)
            slot = (slot + 1) & (slots.size() - 1);
        return slot;
    };
    for (std::size_t i = 0; i < count; ++i) {
        if (2 * (heads.size() + 1) > slots.size()) {
            slots.assign(slots.size() * 2, 0);
            for (std::size_t h = 0; h < heads.size(); ++h)
                slots[slotOf(heads[h])] = static_cast<std::uint32_t>(h + 1);
        }
        const std::size_t slot = slotOf(first[i].head);
        if (slots[slot] == 0) {
            heads.push_back(first[i].head);
            slots[slot] = static_cast<std::uint32_t>(heads.size());
        }
        headOf[i] = slots[slot] - 1;
    }
    // Groups in the order of their heads, each entry counted into its group's place.
    std::vector<std::uint32_t> byHead(heads.size());
    for (std::uint32_t h = 0; h < byHead.size(); ++h)
        byHead[h] = h;
    std::sort(byHead.begin(), byHead.end(),
              [&](std::uint32_t a, std::uint32_t b) { return heads[a] < heads[b]; });
    std::vector<std::size_t> start(heads.size() + 1, 0);
    std::vector<std::uint32_t> rank = byHead; // the same size; every place is written below
    for (std::uint32_t r = 0; r < byHead.size(); ++r)
        rank[byHead[r]] = r;
    for (std::size_t i = 0; i < count; ++i)
        ++start[rank[headOf[i]] + 1];
    for (std::size_t r = 0; r < heads.size(); ++r)
        start[r + 1] += start[r];
    Entries grouped(count);
    std::vector<std::size_t> at(start.begin(), start.end() - 1);
    for (std::size_t i = 0; i < count; ++i)
        grouped[at[rank[headOf[i]]]++] = first[i];
    for (std::size_t r = 0; r < heads.size(); ++r) {
        const auto from = grouped.begin() + static_cast<std::ptrdiff_t>(start[r]);
        const auto to = grouped.begin() + static_cast<std::ptrdiff_t>(start[r + 1]);
        if (!std::is_sorted(from, to, less))
            std::sort(from, to, less);
    }
    std::copy(grouped.begin(), grouped.end(), first);
}

} // namespace

void MergeRowsInOrder(std::vector<std::string>& rows, std::size_t sorted)
{
    const std::size_t n = rows.size();
    if (sorted >= n)
        return;
    Entries order(n);
    for (std::size_t i = 0; i < n; ++i)
        order[i] = {Packed(rows[i], 0), Packed(rows[i], 8), i};
    // Equal keys keep the order of their rows, so a plain sort gives the stable order.
    const auto less = [&rows](const SortEntry& a, const SortEntry& b) {
        if (a.head != b.head)
            return a.head < b.head;
        if (a.next != b.next)
            return a.next < b.next;
        const int order = KeyOrder(rows[a.index], rows[b.index]);
        return order != 0 ? order < 0 : a.index < b.index;
    };
    const auto added = order.begin() + static_cast<std::ptrdiff_t>(sorted);
    // Rows often come in order already (a list filled from a sorted one); then there is
    // nothing to move.
    if (std::is_sorted(added, order.end(), less) && (sorted == 0 || !less(*added, *(added - 1))))
        return;
    SortByKey(order, sorted, less);
    std::inplace_merge(order.begin(), added, order.end(), less);
    std::vector<std::string> inOrder(n);
    for (std::size_t i = 0; i < n; ++i)
        inOrder[i] = std::move(rows[order[i].index]);
    rows = std::move(inOrder);
}

} // namespace tos
