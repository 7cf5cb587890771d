#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tos {

struct App;

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

    bool operator==(const BatchItem&) const = default;
};

// The script style a batch list gives all its items ([Batch] Style= and
// Instances=); an item may set its own.
struct BatchStyle {
    std::optional<bool> max2008;
    std::optional<bool> instances;

    bool operator==(const BatchStyle&) const = default;
};

// The keys of Select, MaxFile and ObjectName that the item lacks, in this
// order; a run leaves such an item out.
std::vector<std::string> MissingKeys(const BatchItem& item);

// What a batch list file gave: its items in their order, and one text for each
// thing that was wrong with it (the file, an item, a key).
struct BatchListRead {
    std::vector<BatchItem> items;
    BatchStyle style;
    std::vector<std::string> problems;
    bool readable = false; // the file and its [Batch] Items count could be read
};

// The batch list a project keeps beside it: "<ScriptBasePath>.tosbatch".
std::string DefaultBatchFile(const App& app);

// Reads a batch list through the program's profile reader. An item without
// Select, MaxFile or ObjectName gives a problem naming the file, the item and
// the key, and is still read, so nothing typed so far is lost.
BatchListRead ReadBatchList(App& app, const std::string& file);

// Writes the items as a batch list (profile form, CR LF lines), replacing the
// file. A value the reader would trim or unquote is written in quotes, so it
// reads back as it was. Failures travel as Failure.
void WriteBatchList(App& app, const std::string& file, const std::vector<BatchItem>& items,
                    const BatchStyle& style = {});

} // namespace tos
