#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tos {

// Where a row's object name comes from, as the two name boxes of the main form say.
enum class NameFrom { Typed, Tolvarine, MaxFile };

// One object row of a batch run: what a user would put into the main form
// before pressing Process for it.
struct BatchItem {
    std::string select;     // a row of the object list
    std::string maxFile;    // for txtMaxFile
    std::string objectName; // for txtMaxObjectName
    // None: the value the main form held when the run started.
    std::optional<std::string> verticalScale;
    std::optional<std::string> verticalOffset;
    bool process = true; // unchecked rows are kept in the list but not run
    // None: the list's own value, else what the main form held.
    std::optional<bool> max2008;
    std::optional<bool> instances;
    NameFrom nameFrom = NameFrom::Typed;
    // Lines of the item's section that the program does not read (other keys,
    // comments), kept as they were written.
    std::vector<std::string> otherLines;

    bool operator==(const BatchItem&) const = default;
};

// The script style a batch list gives all its items ([Batch] Style= and
// Instances=); an item may set its own.
struct BatchStyle {
    std::optional<bool> max2008;
    std::optional<bool> instances;

    bool operator==(const BatchStyle&) const = default;
};

// A whole batch list: its items in their order, its style, and whatever else the
// file holds, so that saving gives back everything that was read.
struct BatchList {
    std::vector<BatchItem> items;
    BatchStyle style;
    std::vector<std::string> head;       // lines before [Batch]
    std::vector<std::string> batchOther; // lines of [Batch] that the program does not read
    std::vector<std::string> tail;       // other sections, header lines included

    bool operator==(const BatchList&) const = default;
};

} // namespace tos
