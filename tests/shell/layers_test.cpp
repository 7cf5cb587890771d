#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <tuple>
#include <vector>

namespace {

// Each source folder may include only its own headers and those of folders below
// it; the front ends sit on top and never include each other. Only the Qt front end
// may include Qt: the core must build without it.
bool Offends(const std::string& folder, const std::string& line)
{
    static const std::map<std::string, int> levels = {
        {"support", 0}, {"forms", 1},    {"orientation", 2}, {"script", 3},
        {"project", 3}, {"combiner", 3}, {"map", 3},         {"batch", 4},
        {"shell", 5},   {"gui", 6},      {"win", 6},         {"cli", 6},
    };
    static const std::regex project(R"(^\s*#\s*include\s*"(\w+)/)");
    static const std::regex qt(R"(^\s*#\s*include\s*[<"](Q[A-Za-z]\w*(/|[>"])|q\w+\.h[>"]))");
    std::smatch m;
    if (folder != "gui" && std::regex_search(line, qt))
        return true;
    if (!std::regex_search(line, m, project) || m[1] == folder)
        return false;
    const auto from = levels.find(folder), to = levels.find(m[1]);
    return from == levels.end() || to == levels.end() || to->second >= from->second;
}

TEST(Layers, NoFolderIncludesOneAboveItAndOnlyTheQtWindowsIncludeQt)
{
    // The checker itself: one row for each way a line can offend, and the look-alikes.
    // clang-format off
    const std::tuple<const char*, const char*, bool> rows[] = {
        {"shell",   "  #  include \"project/catalogue.h\"", false},
        {"project", "#include \"shell/startup.h\"",         true},
        {"gui",     "#include \"cli/commands.h\"",          true},
        {"cli",     "#include \"unknown/x.h\"",             true},
        {"cli",     "// #include \"gui/main_window.h\"",    false},
        {"forms",   "  # include \"QWidget\"",              true},
        {"map",     "#include <qstring.h>",                  true},
        {"gui",     "#include <QString>",                    false},
    };
    // clang-format on
    for (const auto& [folder, line, offends] : rows)
        EXPECT_EQ(Offends(folder, line), offends) << folder << ": " << line;

    namespace fs = std::filesystem;
    const fs::path src = fs::path(TOS_SOURCE_DIR) / "src";
    std::vector<std::string> offenders;
    std::size_t scanned = 0;
    for (const auto& entry : fs::recursive_directory_iterator(src)) {
        const auto ext = entry.path().extension();
        if (!entry.is_regular_file() || (ext != ".h" && ext != ".cpp"))
            continue;
        const fs::path relative = fs::relative(entry.path(), src);
        ++scanned;
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);)
            if (Offends(relative.begin()->string(), line))
                offenders.push_back(relative.string() + ": " + line);
    }
    EXPECT_GT(scanned, 40u);
    EXPECT_TRUE(offenders.empty()) << ::testing::PrintToString(offenders);
}

} // namespace
