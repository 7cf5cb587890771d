#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/batch_items.h"

namespace tos {

struct App;

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
