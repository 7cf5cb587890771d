#include "script/script_check.h"

#include <array>
#include <optional>
#include <set>
#include <string_view>

#include "script/maxscript_literals.h"
#include "support/conversions.h"

namespace tos {

namespace {

constexpr std::string_view kHead = "-- Tolvarine Object Scripter for ";
constexpr std::string_view kMerge = "mergeMAXFile \"";
constexpr std::string_view kMergeEnd = "\" #mergeDups #select #noredraw";
constexpr std::string_view kCopy = "copy $";
constexpr std::string_view kCopyEnd = " isSelected:on name:\"";
constexpr std::string_view kRotate = "rotate $";
constexpr std::string_view kRotateEnd = " (angleaxis ";
constexpr std::string_view kModernPath = "local maxFile = ";
constexpr std::string_view kModernName = "local objectName = ";

// Names that $ reads as a set of objects rather than as one object.
constexpr std::array<std::string_view, 9> kObjectSets{"OBJECTS", "GEOMETRY",   "LIGHTS",
                                                      "CAMERAS", "HELPERS",    "SHAPES",
                                                      "SYSTEMS", "SPACEWARPS", "SELECTION"};

bool StartsWith(std::string_view text, std::string_view prefix)
{
    return text.substr(0, prefix.size()) == prefix;
}

// Letters and digits as a name behind $ may hold them: ASCII, and the letters of
// the Windows code page (those with a capital or a small form).
bool IsNameCharacter(char c)
{
    const auto u = static_cast<unsigned char>(c);
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_')
        return true;
    return u >= 0x80 &&
           (UpperChar(c) != c || u == 0x8A || u == 0x8C ||
            u == 0x8E || u == 0x9F || (u >= 0xC0 && u <= 0xDE && u != 0xD7));
}

// The name a classic row puts behind $, or nullopt for a row that holds none.
std::optional<std::string_view> ClassicName(std::string_view row)
{
    const auto between = [&](std::string_view start, std::string_view end) {
        const std::size_t stop = row.rfind(end);
        return stop == std::string_view::npos || stop < start.size()
                   ? std::optional<std::string_view>()
                   : row.substr(start.size(), stop - start.size());
    };
    if (StartsWith(row, kCopy))
        return between(kCopy, kCopyEnd);
    if (StartsWith(row, kRotate))
        return between(kRotate, kRotateEnd);
    if (StartsWith(row, "$")) {
        if (auto name = between("$", ".pos = ["))
            return name;
        return between("$", ".scale = [");
    }
    return std::nullopt;
}

// Collects the findings of one script, each kind once.
class Findings {
public:
    explicit Findings(std::vector<ScriptFinding>& out) : out_(out) {}

    void NewScript() { told_.clear(); }

    void Stop(std::size_t line, const std::string& kind, const std::string& text, bool classic)
    {
        Add(line, kind, "3ds Max would stop at line " + Number(line) + ": " + text, classic);
    }
    void Misread(std::size_t line, const std::string& kind, const std::string& text, bool classic)
    {
        Add(line, kind, "3ds Max would misread line " + Number(line) + ": " + text, classic);
    }

private:
    static std::string Number(std::size_t line)
    {
        return IntegerToText(static_cast<long long>(line));
    }

    void Add(std::size_t line, const std::string& kind, std::string text, bool classic)
    {
        if (told_.insert(kind).second)
            out_.push_back({line, std::move(text), classic});
    }

    std::vector<ScriptFinding>& out_;
    std::set<std::string> told_;
};

void CheckName(Findings& findings, std::size_t line, std::string_view name)
{
    if (name.empty()) {
        findings.Misread(line, "empty", "the object name is empty, so $ means the selection.",
                         true);
        return;
    }
    bool quotes = false, pattern = false, backslash = false;
    for (const char c : name) {
        if (c == '*' || c == '?')
            pattern = true;
        else if (c == '\\')
            backslash = true;
        else if (!IsNameCharacter(c))
            quotes = true;
    }
    const std::string shown(quotes || backslash || pattern ? name : std::string_view());
    if (quotes)
        findings.Stop(line, "quotes", "the name " + shown + " needs quotes.", true);
    else if (backslash)
        findings.Misread(line, "backslash",
                         "the backslash in the name " + shown + " starts an escape.", true);
    else if (pattern)
        findings.Misread(line, "pattern",
                         "* and ? in the name " + shown + " match other objects too.", true);
    for (std::string_view set : kObjectSets) {
        if (name.size() == set.size() && EqualsIgnoringCase(name, set)) {
            std::string text = "$";
            text.append(name).append(" means a set of objects, not the object ");
            findings.Misread(line, "set", text.append(name).append("."), true);
        }
    }
}

bool IsHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// What MAXScript makes of "\c" in a plain string.
std::string EscapeMeaning(char c)
{
    switch (c) {
    case '\\':
        return "one backslash";
    case 'n':
        return "a line break";
    case 'r':
        return "a carriage return";
    case 't':
        return "a tab";
    case 'x':
        return "a character code";
    default:
        return std::string(1, c);
    }
}

void CheckClassicPath(Findings& findings, std::size_t line, std::string_view row)
{
    std::string_view path = row.substr(kMerge.size());
    if (path.size() >= kMergeEnd.size() && path.substr(path.size() - kMergeEnd.size()) == kMergeEnd)
        path.remove_suffix(kMergeEnd.size());
    const std::string shown(path);
    if (path.find('"') != std::string_view::npos) {
        findings.Stop(line, "path",
                      "the path " + shown +
                          " holds a double quote, which ends the "
                          "string early.",
                      true);
        return;
    }
    if (StartsWith(path, "\\\\")) {
        findings.Misread(line, "path",
                         "the path " + shown +
                             " starts with \\\\, which a string "
                             "reads as one backslash.",
                         true);
        return;
    }
    const LiteralRead read = ReadStringLiteral(row, kMerge.size() - 1);
    if (read.text == path)
        return;
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
        if (path[i] != '\\')
            continue;
        const char c = path[i + 1];
        if (std::string_view("\\\"*?%nrt").find(c) != std::string_view::npos ||
            (c == 'x' && i + 2 < path.size() && IsHexDigit(path[i + 2]))) {
            findings.Misread(line, "path",
                             "in the path " + shown + ", a string reads \\" + std::string(1, c) +
                                 " as " + EscapeMeaning(c) + ".",
                             true);
            return;
        }
    }
}

void CheckModernName(Findings& findings, std::size_t line, std::string_view row)
{
    const LiteralRead read = ReadStringLiteral(row, kModernName.size());
    if (!read.closed)
        findings.Stop(line, "literal", "the object name's string is not closed.", false);
    else if (read.text.empty())
        findings.Stop(line, "empty", "the object name is empty.", false);
}

void CheckModernPath(Findings& findings, std::size_t line, std::string_view row)
{
    const LiteralRead read = ReadStringLiteral(row, kModernPath.size());
    if (!read.closed)
        findings.Stop(line, "path", "the path's string is not closed.", false);
}

} // namespace

std::vector<ScriptFinding> CheckScript(const std::vector<std::string>& rows)
{
    std::vector<ScriptFinding> out;
    Findings findings(out);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string_view row = rows[i];
        const std::size_t line = i + 1;
        // The first character tells the kinds of row apart; most rows are none of them.
        switch (row.empty() ? '\0' : row.front()) {
        case '-':
            if (StartsWith(row, kHead))
                findings.NewScript();
            break;
        case 'm':
            if (StartsWith(row, kMerge))
                CheckClassicPath(findings, line, row);
            break;
        case 'l':
            if (StartsWith(row, kModernPath))
                CheckModernPath(findings, line, row);
            else if (StartsWith(row, kModernName))
                CheckModernName(findings, line, row);
            break;
        case 'c':
        case 'r':
        case '$':
            if (const auto name = ClassicName(row))
                CheckName(findings, line, *name);
            break;
        default:
            break;
        }
    }
    return out;
}

void CheckShownScript(MainForm& form)
{
    form.scriptFindings = CheckScript(form.List2.Rows());
    form.lblScriptCheck.SetCaption(CheckLine(form.scriptFindings));
}

} // namespace tos
