#include "batch/batch_list.h"

#include <cmath>

#include "forms/app.h"
#include "support/conversions.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos {

namespace {

constexpr const char* kExtension = ".tosbatch";

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

// The reader drops white space at both ends and one pair of equal quotes
// around a value; a value it would change that way goes into double quotes.
std::string Quoted(const std::string& value)
{
    if (value.empty())
        return value;
    const bool trimmed = IsBlank(value.front()) || IsBlank(value.back());
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return trimmed || quoted ? '"' + value + '"' : value;
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

BatchListRead ReadBatchList(App& app, const std::string& file)
{
    BatchListRead read;
    const std::string named = "The batch list " + file;
    // The profile reader reports a missing file at every read; one message is enough.
    if (auto failure = Trap([&] { (void)GetFileFacts(file); })) {
        read.problems.push_back(named + " cannot be read: " + failure->Description() + " (" +
                                IntegerToText(failure->Number()) + ").");
        return read;
    }
    app.profiles.FlushProfileFile(file);
    auto value = [&](const std::string& section, const std::string& key) {
        return app.profiles.GetINIString(section, key, file);
    };

    const std::string countText = value("Batch", "Items");
    double count = -1;
    (void)Trap([&] { count = TextToNumber(countText); });
    if (countText.empty() || count < 0 || count != std::floor(count) || count > 32767) {
        read.problems.push_back(named + ": [Batch] has no whole number Items (found \"" +
                                countText + "\").");
        return read;
    }
    read.readable = true;

    for (int n = 1; n <= static_cast<int>(count); ++n) {
        const std::string section = "Item" + IntegerToText(n);
        BatchItem item;
        item.select = value(section, "Select");
        item.maxFile = value(section, "MaxFile");
        item.objectName = value(section, "ObjectName");
        for (const std::string& key : MissingKeys(item))
            read.problems.push_back(named + ": [" + section + "] has no " + key + ".");
        if (std::string v = value(section, "VerticalScale"); !v.empty())
            item.verticalScale = v;
        if (std::string v = value(section, "VerticalOffset"); !v.empty())
            item.verticalOffset = v;
        item.process = value(section, "Process") != "0";
        read.items.push_back(std::move(item));
    }
    return read;
}

void WriteBatchList(App& app, const std::string& file, const std::vector<BatchItem>& items)
{
    std::vector<std::string> lines{"[Batch]", "Items=" + IntegerToText(std::ssize(items))};
    for (std::size_t i = 0; i < items.size(); ++i) {
        const BatchItem& item = items[i];
        lines.push_back("[Item" + IntegerToText(static_cast<long long>(i) + 1) + "]");
        lines.push_back("Select=" + Quoted(item.select));
        lines.push_back("MaxFile=" + Quoted(item.maxFile));
        lines.push_back("ObjectName=" + Quoted(item.objectName));
        if (item.verticalScale)
            lines.push_back("VerticalScale=" + Quoted(*item.verticalScale));
        if (item.verticalOffset)
            lines.push_back("VerticalOffset=" + Quoted(*item.verticalOffset));
        if (!item.process)
            lines.push_back("Process=0");
    }
    app.profiles.FlushProfileFile(file);
    WriteLinesCrLf(file, lines);
    // The next read must see the new content, not a copy taken within the last moment.
    app.profiles.FlushProfileFile(file);
}

} // namespace tos
