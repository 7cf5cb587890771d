#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>
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
    struct Row {
        const char* folder;
        const char* line;
        bool offends;
    };
    const Row rows[] = {
        {.folder = "forms", .line = "#include \"support/files.h\"", .offends = false},
        {.folder = "shell", .line = "  #  include \"project/catalogue.h\"", .offends = false},
        {.folder = "support", .line = "#include \"forms/app.h\"", .offends = true},
        {.folder = "project", .line = "#include \"script/builder.h\"", .offends = true},
        {.folder = "project", .line = "#include \"shell/startup.h\"", .offends = true},
        {.folder = "gui", .line = "#include \"cli/commands.h\"", .offends = true},
        {.folder = "cli", .line = "#include \"unknown/x.h\"", .offends = true},
        {.folder = "cli", .line = "// #include \"gui/main_window.h\"", .offends = false},
        {.folder = "cli", .line = "#include \"local.h\"", .offends = false},
        {.folder = "forms", .line = "#include <queue>", .offends = false},
        {.folder = "forms", .line = "// #include <QString>", .offends = false},
        {.folder = "forms", .line = "  # include \"QWidget\"", .offends = true},
        {.folder = "win", .line = "#include <QtCore/qglobal.h>", .offends = true},
        {.folder = "map", .line = "#include <qstring.h>", .offends = true},
        {.folder = "gui", .line = "#include <QString>", .offends = false},
    };
    for (const Row& r : rows)
        EXPECT_EQ(Offends(r.folder, r.line), r.offends) << r.folder << ": " << r.line;

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
