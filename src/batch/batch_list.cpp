#include "batch/batch_list.h"

#include <algorithm>
#include <cmath>

#include "forms/app.h"
#include "forms/form_routines.h"
#include "support/conversions.h"
#include "support/failure.h"
#include "support/files.h"
#include "support/parsed_profile.h"

namespace tos {

namespace {

constexpr const char* kExtension = ".tosbatch";
constexpr int kMaxItems = 32767;

// The reader drops white space at both ends and one pair of equal quotes
// around a value; a value it would change that way goes into double quotes.
std::string Quoted(const std::string& value)
{
    if (value.empty())
        return value;
    const bool trimmed = IsProfileWhite(value.front()) || IsProfileWhite(value.back());
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return trimmed || quoted ? '"' + value + '"' : value;
}

std::string Unquoted(std::string_view value)
{
    if (value.size() >= 2 && value.front() == value.back() &&
        (value.front() == '"' || value.front() == '\''))
        value = value.substr(1, value.size() - 2);
    return std::string(value);
}

std::vector<std::string_view> Lines(std::string_view text)
{
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' && text[i] != '\n')
            continue;
        lines.push_back(text.substr(start, i - start));
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            ++i;
        start = i + 1;
    }
    if (start < text.size())
        lines.push_back(text.substr(start));
    return lines;
}

// A section as the file holds it: its name and its lines behind the header.
struct Section {
    std::string name;
    std::string header; // the header line as written
    std::vector<std::string> lines;
};

// The value of the first line with key, or nullopt; that line is taken out of
// the section, so what is left is what the program does not read.
std::optional<std::string> Take(Section& section, std::string_view key)
{
    for (auto it = section.lines.begin(); it != section.lines.end(); ++it) {
        const std::string_view line = TrimProfileWhite(*it);
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos ||
            !EqualsIgnoringCase(TrimProfileWhite(line.substr(0, equals)), key))
            continue;
        std::string value = Unquoted(TrimProfileWhite(line.substr(equals + 1)));
        section.lines.erase(it);
        return value;
    }
    return std::nullopt;
}

// Reads the keys that take one of a few words, and tells the rest as problems.
struct WordReader {
    std::vector<std::string>& problems;
    std::string named;

    std::optional<bool> Bool(Section& section, const char* key)
    {
        const std::optional<std::string> value = Take(section, key);
        if (!value || value->empty())
            return std::nullopt;
        for (const char* yes : {"1", "true", "yes"})
            if (EqualsIgnoringCase(*value, yes))
                return true;
        for (const char* no : {"0", "false", "no"})
            if (EqualsIgnoringCase(*value, no))
                return false;
        problems.push_back(named + ": [" + section.name + "] has " + key + "=" + *value +
                           "; it takes 1 or 0.");
        return false;
    }

    std::optional<bool> Style(Section& section)
    {
        const std::optional<std::string> value = Take(section, "Style");
        if (!value || value->empty())
            return std::nullopt;
        if (EqualsIgnoringCase(*value, kMax2008Style) || EqualsIgnoringCase(*value, kClassicStyle))
            return EqualsIgnoringCase(*value, kMax2008Style);
        problems.push_back(named + ": [" + section.name + "] has Style=" + *value +
                           "; it takes classic or max2008.");
        return std::nullopt;
    }

    NameFrom Name(Section& section)
    {
        const std::optional<std::string> value = Take(section, "NameFrom");
        if (!value || value->empty() || EqualsIgnoringCase(*value, "typed"))
            return NameFrom::Typed;
        if (EqualsIgnoringCase(*value, "tolvarine"))
            return NameFrom::Tolvarine;
        if (EqualsIgnoringCase(*value, "maxfile"))
            return NameFrom::MaxFile;
        problems.push_back(named + ": [" + section.name + "] has NameFrom=" + *value +
                           "; it takes typed, tolvarine or maxfile.");
        return NameFrom::Typed;
    }
};

const char* NameFromWord(NameFrom from)
{
    return from == NameFrom::Tolvarine ? "tolvarine" : "maxfile";
}

void WriteStyle(std::vector<std::string>& lines, const std::optional<bool>& max2008,
                const std::optional<bool>& instances)
{
    if (max2008)
        lines.push_back(std::string("Style=") + (*max2008 ? kMax2008Style : kClassicStyle));
    if (instances)
        lines.push_back(std::string("Instances=") + (*instances ? "1" : "0"));
}

// The number behind "Item", or 0 for any other name.
int ItemNumber(std::string_view name)
{
    if (name.size() < 5 || !EqualsIgnoringCase(name.substr(0, 4), "Item") || name[4] == '0' ||
        name.size() > 9)
        return 0;
    int n = 0;
    for (const char c : name.substr(4)) {
        if (c < '0' || c > '9')
            return 0;
        n = n * 10 + (c - '0');
    }
    return n;
}

} // namespace

std::vector<std::string> MissingKeys(const BatchItem& item)
{
    std::vector<std::string> missing;
    for (const auto& [key, text] :
         {std::pair{"Select", &item.select}, std::pair{"MaxFile", &item.maxFile},
          std::pair{"ObjectName", &item.objectName}})
        if (text->empty())
            missing.push_back(key);
    return missing;
}

std::string DefaultBatchFile(const App& app)
{
    return app.state.ScriptBasePath + kExtension;
}

BatchListRead ReadBatchList(const std::string& file)
{
    std::string text;
    if (auto failure = Trap([&] { text = ReadWholeFile(file); })) {
        BatchListRead read;
        read.problems.push_back("The batch list " + file +
                                " cannot be read: " + failure->Description() + " (" +
                                IntegerToText(failure->Number()) + ").");
        return read;
    }
    return ParseBatchList(text, file);
}

BatchListRead ParseBatchList(std::string_view text, const std::string& file)
{
    BatchListRead read;
    BatchList& list = read.list;
    const std::string named = "The batch list " + file;

    // Lines before the first header, then the sections in their order.
    std::vector<Section> sections;
    for (const std::string_view raw : Lines(text)) {
        const std::string_view line = TrimProfileWhite(raw);
        const std::size_t close = line.rfind(']');
        if (!line.empty() && line.front() == '[' && close != std::string_view::npos) {
            sections.push_back({std::string(line.substr(1, close - 1)), std::string(raw), {}});
            continue;
        }
        (sections.empty() ? list.head : sections.back().lines).emplace_back(raw);
    }

    Section* batch = nullptr;
    std::vector<Section*> itemSections;
    for (Section& section : sections) {
        if (!batch && EqualsIgnoringCase(section.name, "Batch")) {
            batch = &section;
            continue;
        }
        const int n = ItemNumber(section.name);
        if (n > 0 && static_cast<std::size_t>(n) > itemSections.size())
            itemSections.resize(static_cast<std::size_t>(n), nullptr);
        if (n > 0 && !itemSections[static_cast<std::size_t>(n - 1)])
            itemSections[static_cast<std::size_t>(n - 1)] = &section;
    }

    const std::optional<std::string> countText = batch ? Take(*batch, "Items") : std::nullopt;
    double count = -1;
    if (countText)
        (void)Trap([&] { count = TextToNumber(*countText); });
    if (!countText || countText->empty() || count < 0 || count != std::floor(count) ||
        count > kMaxItems) {
        read.problems.push_back(named + ": [Batch] has no whole number Items (found \"" +
                                countText.value_or("") + "\").");
        return read;
    }
    read.readable = true;
    WordReader words{read.problems, named};
    list.style.max2008 = words.Style(*batch);
    list.style.instances = words.Bool(*batch, "Instances");
    list.batchOther = batch->lines;

    const auto items = static_cast<std::size_t>(count);
    itemSections.resize(std::max(itemSections.size(), items), nullptr);
    for (std::size_t i = 0; i < items; ++i) {
        Section empty{"Item" + IntegerToText(static_cast<long long>(i) + 1), "", {}};
        Section& section = itemSections[i] ? *itemSections[i] : empty;
        BatchItem item;
        item.select = Take(section, "Select").value_or("");
        item.maxFile = Take(section, "MaxFile").value_or("");
        item.objectName = Take(section, "ObjectName").value_or("");
        if (std::optional<std::string> v = Take(section, "VerticalScale"); v && !v->empty())
            item.verticalScale = *v;
        if (std::optional<std::string> v = Take(section, "VerticalOffset"); v && !v->empty())
            item.verticalOffset = *v;
        item.process = words.Bool(section, "Process").value_or(true);
        item.max2008 = words.Style(section);
        item.instances = words.Bool(section, "Instances");
        item.nameFrom = words.Name(section);
        item.otherLines = section.lines;
        if (item.process)
            for (const std::string& key : MissingKeys(item))
                read.problems.push_back(named + ": [" + section.name + "] has no " + key + ".");
        list.items.push_back(std::move(item));
    }
    // Sections the list does not read stay, as they were, for the next save.
    itemSections.resize(items);
    for (const Section& section : sections) {
        if (&section == batch ||
            std::find(itemSections.begin(), itemSections.end(), &section) != itemSections.end())
            continue;
        list.tail.push_back(section.header);
        list.tail.insert(list.tail.end(), section.lines.begin(), section.lines.end());
    }
    return read;
}

std::string BatchListText(const BatchList& list)
{
    std::vector<std::string> lines = list.head;
    lines.push_back("[Batch]");
    lines.push_back("Items=" + IntegerToText(std::ssize(list.items)));
    WriteStyle(lines, list.style.max2008, list.style.instances);
    lines.insert(lines.end(), list.batchOther.begin(), list.batchOther.end());
    for (std::size_t i = 0; i < list.items.size(); ++i) {
        const BatchItem& item = list.items[i];
        lines.push_back("[Item" + IntegerToText(static_cast<long long>(i) + 1) + "]");
        lines.push_back("Select=" + Quoted(item.select));
        lines.push_back("MaxFile=" + Quoted(item.maxFile));
        lines.push_back("ObjectName=" + Quoted(item.objectName));
        if (item.verticalScale)
            lines.push_back("VerticalScale=" + Quoted(*item.verticalScale));
        if (item.verticalOffset)
            lines.push_back("VerticalOffset=" + Quoted(*item.verticalOffset));
        // An item that cannot run is kept unchecked, so it loads without a word.
        if (!item.process || !MissingKeys(item).empty())
            lines.push_back("Process=0");
        if (item.nameFrom != NameFrom::Typed)
            lines.push_back(std::string("NameFrom=") + NameFromWord(item.nameFrom));
        WriteStyle(lines, item.max2008, item.instances);
        lines.insert(lines.end(), item.otherLines.begin(), item.otherLines.end());
    }
    lines.insert(lines.end(), list.tail.begin(), list.tail.end());
    return CrLfText(lines);
}

void WriteBatchList(const std::string& file, const BatchList& list)
{
    ReplaceFileAtomically(file, BatchListText(list));
}

} // namespace tos
