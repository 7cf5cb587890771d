// The combiner on any file bytes: a script is read into rows, two empty rows follow,
// and the saved file is exactly those rows, each followed by CR LF.
#include <string>
#include <vector>

#include "combiner/script_combiner.h"
#include "common/fake_platform.h"
#include "forms/app.h"
#include "fuzz_support.h"
#include "shell/startup.h"

namespace {

using namespace tos;
using tos::fuzz::Require;

// The rows a script should give: a line ends at CR or CR LF; a lone LF is part of its
// row; nothing follows a line end at the very end.
std::vector<std::string> ExpectedRows(std::string_view bytes)
{
    std::vector<std::string> rows;
    while (!bytes.empty()) {
        const std::size_t cr = bytes.find('\r');
        rows.emplace_back(bytes.substr(0, cr));
        if (cr == std::string_view::npos)
            break;
        bytes.remove_prefix(cr + (bytes.substr(cr).starts_with("\r\n") ? 2 : 1));
    }
    return rows;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string script = fuzz::WriteScratchFile("In.ms", bytes);
    const std::string combined = fuzz::ScratchFolder() + "/Combined.ms";

    // One program for all runs, as a user combines again and again; each opening of the
    // combiner starts with an empty list.
    static test::FakePlatform platform;
    static App& app = []() -> App& {
        platform.programFolder = fuzz::ScratchFolder();
        static App started(platform);
        Main(started);
        return started;
    }();
    platform.ClearMessages();
    btnRunScriptCompiler_Click(app);
    AddScriptFile(app, script);
    const std::vector<std::string> rows = app.compiler.lstMaxScripts.Rows();
    if (platform.messages.empty()) {
        std::vector<std::string> expected = ExpectedRows(bytes);
        expected.insert(expected.end(), {"", ""});
        Require(rows == expected, "the rows are the script's lines and two empty rows");
    } else {
        // Only a list that cannot take another row stops the reading.
        Require(platform.Texts() ==
                    std::vector<std::string>{"Unexpected error in btnAddFile \n\n 6 - Overflow"},
                "the one failure of reading is the row limit", platform.Texts().front());
    }

    platform.ClearMessages();
    SaveCombinedScript(app, combined);
    Require(platform.messages.empty(), "saving into the scratch folder works");
    std::string all;
    for (const std::string& r : rows)
        all += r + "\r\n";
    Require(fuzz::ReadFileBytes(combined) == all, "the saved file is the rows with CR LF");
    return 0;
}
