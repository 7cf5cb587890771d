#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace {

// Each source folder may include only its own headers and those of folders
// below it; the front ends sit on top and never include each other.
const std::map<std::string, int>& Levels()
{
    static const std::map<std::string, int> levels = {
        {"support", 0}, {"forms", 1},   {"orientation", 2}, {"script", 3},
        {"project", 3}, {"combiner", 3}, {"map", 3},        {"batch", 4},
        {"shell", 5},   {"gui", 6},     {"win", 6},         {"cli", 6},
    };
    return levels;
}

// The folder of a project include such as `#include "forms/app.h"`, or "" for any other line.
std::string IncludedFolder(const std::string& line)
{
    const std::size_t hash = line.find_first_not_of(" \t");
    if (hash == std::string::npos || line[hash] != '#')
        return "";
    const std::size_t word = line.find_first_not_of(" \t", hash + 1);
    if (word == std::string::npos || line.compare(word, 7, "include") != 0)
        return "";
    const std::size_t open = line.find_first_not_of(" \t", word + 7);
    if (open == std::string::npos || line[open] != '"')
        return "";
    const std::size_t slash = line.find('/', open);
    return slash == std::string::npos ? "" : line.substr(open + 1, slash - open - 1);
}

bool MayInclude(const std::string& from, const std::string& to)
{
    if (from == to)
        return true;
    const auto f = Levels().find(from);
    const auto t = Levels().find(to);
    return f != Levels().end() && t != Levels().end() && t->second < f->second;
}

TEST(Layers, TheRuleItselfTellsUpFromDown)
{
    struct Row {
        const char* from;
        const char* to;
        bool allowed;
    };
    const Row rows[] = {
        {.from = "forms", .to = "support", .allowed = true},
        {.from = "shell", .to = "project", .allowed = true},
        {.from = "support", .to = "forms", .allowed = false},
        {.from = "project", .to = "shell", .allowed = false},
        {.from = "project", .to = "script", .allowed = false},
        {.from = "gui", .to = "cli", .allowed = false},
        {.from = "cli", .to = "unknown", .allowed = false},
    };
    for (const Row& r : rows)
        EXPECT_EQ(MayInclude(r.from, r.to), r.allowed) << r.from << " -> " << r.to;
}

TEST(Layers, IncludeLinesNameTheirFolder)
{
    struct Row {
        const char* line;
        const char* folder;
    };
    const Row rows[] = {
        {.line = "#include \"forms/app.h\"", .folder = "forms"},
        {.line = "  #  include \"shell/startup.h\"", .folder = "shell"},
        {.line = "#include <gtest/gtest.h>", .folder = ""},
        {.line = "// #include \"cli/commands.h\"", .folder = ""},
        {.line = "#include \"local.h\"", .folder = ""},
    };
    for (const Row& r : rows)
        EXPECT_EQ(IncludedFolder(r.line), r.folder) << r.line;
}

TEST(Layers, NoFolderIncludesOneAboveIt)
{
    namespace fs = std::filesystem;
    const fs::path src = fs::path(TOS_SOURCE_DIR) / "src";
    std::vector<std::string> offenders;
    std::size_t scanned = 0;
    for (const auto& entry : fs::recursive_directory_iterator(src)) {
        const auto ext = entry.path().extension();
        if (!entry.is_regular_file() || (ext != ".h" && ext != ".cpp"))
            continue;
        const std::string folder = fs::relative(entry.path(), src).begin()->string();
        ++scanned;
        std::ifstream in(entry.path());
        std::string line;
        while (std::getline(in, line)) {
            const std::string included = IncludedFolder(line);
            if (!included.empty() && !MayInclude(folder, included))
                offenders.push_back(fs::relative(entry.path(), src).string() + ": " + line);
        }
    }
    EXPECT_GT(scanned, 40u);
    EXPECT_TRUE(offenders.empty()) << ::testing::PrintToString(offenders);
}

} // namespace
