#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

namespace {

// An include of a Qt header: <QString>, <QtCore/...>, <qstring.h>.
const std::regex& QtInclude()
{
    static const std::regex pattern(R"(^\s*#\s*include\s*[<"](Q[A-Za-z]\w*(/|[>"])|q\w+\.h[>"]))");
    return pattern;
}

// Only the desktop windows may use Qt; the core must build without it.
TEST(QtFreeCore, NoSourceOutsideTheGuiFolderIncludesQt)
{
    namespace fs = std::filesystem;
    const fs::path src = fs::path(TOS_SOURCE_DIR) / "src";
    std::vector<std::string> offenders;
    std::size_t scanned = 0;
    for (const auto& entry : fs::recursive_directory_iterator(src)) {
        const fs::path rel = fs::relative(entry.path(), src);
        if (!entry.is_regular_file() || *rel.begin() == "gui")
            continue;
        const auto ext = entry.path().extension();
        if (ext != ".h" && ext != ".cpp")
            continue;
        ++scanned;
        std::ifstream in(entry.path());
        std::string line;
        while (std::getline(in, line))
            if (std::regex_search(line, QtInclude()))
                offenders.push_back(rel.string() + ": " + line);
    }
    EXPECT_GT(scanned, 20u);
    EXPECT_TRUE(offenders.empty()) << ::testing::PrintToString(offenders);
}

TEST(QtFreeCore, PatternRecognisesQtIncludes)
{
    // clang-format off
    const std::pair<const char*, bool> rows[] = {
        {"#include <QString>",             true},
        {"  #  include \"QWidget\"",       true},
        {"#include <QtCore/qglobal.h>",    true},
        {"#include <qstring.h>",           true},
        {"#include <queue>",               false},
        {"#include \"shell/app.h\"",       false},
        {"// #include <QString> is gone",  false},
    };
    // clang-format on
    for (const auto& [line, isQt] : rows)
        EXPECT_EQ(std::regex_search(line, QtInclude()), isQt) << line;
}

} // namespace
