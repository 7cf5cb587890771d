#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tos {

struct App;

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

// The keys of Select, MaxFile and ObjectName that the item lacks, in this
// order; a run leaves such an item out.
std::vector<std::string> MissingKeys(const BatchItem& item);

// What a batch list file gave, and one text for each thing that was wrong with
// it (the file, an item, a key).
struct BatchListRead {
    BatchList list;
    std::vector<std::string> problems;
    bool readable = false; // the file and its [Batch] Items count could be read
};

// The batch list a project keeps beside it: "<ScriptBasePath>.tosbatch".
std::string DefaultBatchFile(const App& app);

// Reads a batch list: profile form, Windows-1252, lines ending in CR LF, LF or
// CR; a value is the text behind the first "=", without white space at its ends
// and without one pair of equal quotes around it. An item to be processed
// without Select, MaxFile or ObjectName gives a problem naming the file, the item
// and the key, and is still read, so nothing typed so far is lost.
BatchListRead ReadBatchList(const std::string& file);
// The same for the text of a file named file.
BatchListRead ParseBatchList(std::string_view text, const std::string& file);

// The text of a batch list as it is written: CR LF lines, values that the reader
// would trim or unquote in double quotes, an item that cannot run (one of its
// three names empty) with Process=0.
std::string BatchListText(const BatchList& list);

// Replaces the file with the list, whole or not at all. Failures travel as Failure.
void WriteBatchList(const std::string& file, const BatchList& list);

} // namespace tos
