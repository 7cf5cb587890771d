#include "batch/batch_list.h"

#include <cmath>

#include "forms/app.h"
#include "forms/form_routines.h"
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

// Style=classic|max2008 and Instances=1|0 (or true/false, yes/no), any case;
// anything else is told as a problem and read as unset.
struct StyleReader {
    std::vector<std::string>& problems;
    std::string named;

    std::optional<bool> Style(const std::string& section, const std::string& value)
    {
        if (value.empty())
            return std::nullopt;
        if (EqualsIgnoringCase(value, kMax2008Style) || EqualsIgnoringCase(value, kClassicStyle))
            return EqualsIgnoringCase(value, kMax2008Style);
        problems.push_back(named + ": [" + section + "] has Style=" + value +
                           "; it takes classic or max2008.");
        return std::nullopt;
    }

    std::optional<bool> Instances(const std::string& section, const std::string& value)
    {
        if (value.empty())
            return std::nullopt;
        for (const char* yes : {"1", "true", "yes"})
            if (EqualsIgnoringCase(value, yes))
                return true;
        for (const char* no : {"0", "false", "no"})
            if (EqualsIgnoringCase(value, no))
                return false;
        problems.push_back(named + ": [" + section + "] has Instances=" + value +
                           "; it takes 1 or 0.");
        return std::nullopt;
    }
};

void WriteStyle(std::vector<std::string>& lines, const std::optional<bool>& max2008,
                const std::optional<bool>& instances)
{
    if (max2008)
        lines.push_back(std::string("Style=") + (*max2008 ? kMax2008Style : kClassicStyle));
    if (instances)
        lines.push_back(std::string("Instances=") + (*instances ? "1" : "0"));
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
    StyleReader style{read.problems, named};
    read.style.max2008 = style.Style("Batch", value("Batch", "Style"));
    read.style.instances = style.Instances("Batch", value("Batch", "Instances"));

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
        item.max2008 = style.Style(section, value(section, "Style"));
        item.instances = style.Instances(section, value(section, "Instances"));
        read.items.push_back(std::move(item));
    }
    return read;
}

void WriteBatchList(App& app, const std::string& file, const std::vector<BatchItem>& items,
                    const BatchStyle& style)
{
    std::vector<std::string> lines{"[Batch]", "Items=" + IntegerToText(std::ssize(items))};
    WriteStyle(lines, style.max2008, style.instances);
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
        WriteStyle(lines, item.max2008, item.instances);
    }
    app.profiles.FlushProfileFile(file);
    ReplaceFileAtomically(file, CrLfText(lines));
    // The next read must see the new content, not a copy taken within the last moment.
    app.profiles.FlushProfileFile(file);
}

} // namespace tos
