// The script check and MAXScript's string literals on any bytes: every text comes
// back from its literal as it was, a script of the newer style is clean whatever
// the name and path hold, and the check of any rows tells lines that exist.
#include <string>
#include <vector>

#include "forms/controls.h"
#include "fuzz_support.h"
#include "script/maxscript_literals.h"
#include "script/script_check.h"
#include "script/script_text.h"

namespace {

using namespace tos;
using tos::fuzz::Require;

std::vector<std::string> Rows(std::string_view bytes)
{
    std::vector<std::string> rows;
    while (!bytes.empty()) {
        const std::size_t lf = bytes.find('\n');
        rows.emplace_back(bytes.substr(0, lf));
        if (lf == std::string_view::npos)
            break;
        bytes.remove_prefix(lf + 1);
    }
    return rows;
}

void RoundTrip(const std::string& literal, const std::string& text)
{
    const LiteralRead read = ReadStringLiteral(literal, 0);
    Require(read.closed && read.end == literal.size(), "a literal ends at its closing quote",
            literal);
    Require(read.text == text, "a literal reads back as the text it was made of", literal);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<std::string> rows =
        Rows(std::string_view(reinterpret_cast<const char*>(data), size));
    for (const std::string& row : rows) {
        RoundTrip(StringLiteral(row), row);
        RoundTrip(PathLiteral(row), row);
    }

    std::size_t last = 0;
    for (const ScriptFinding& finding : CheckScript(rows)) {
        Require(finding.line > last && finding.line <= rows.size(),
                "findings stand at lines of the script, in order");
        Require(finding.text.starts_with("3ds Max would "), "a finding says what 3ds Max would do",
                finding.text);
        last = finding.line;
    }

    const std::string object = rows.empty() ? "" : rows[0];
    const std::string path = rows.size() < 2 ? "" : rows[1];
    ListBox script("List2", false, RowLimit::None);
    const auto text = MakeScriptText(script, object, {.max2008 = true, .instances = false});
    text->Head("Fuzz_Main_Fuzz.ms", path);
    text->FirstObject({1, 2, 3}, 0.5);
    text->CopyPlacement(1, {4, 5, 6});
    text->CopyTurns(1, {});
    text->GoBack({});
    text->End();
    const std::vector<ScriptFinding> found = CheckScript(script.Rows());
    Require(found.empty() == !object.empty(),
            "the newer style leaves nothing to find but an empty name", object);
    return 0;
}
