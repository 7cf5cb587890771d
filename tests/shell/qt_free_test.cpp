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
    // The pattern itself must tell Qt from the rest.
    for (const char* qt : {"#include <QString>", "  # include \"QWidget\"",
                           "#include <QtCore/qglobal.h>", "#include <qstring.h>"})
        ASSERT_TRUE(std::regex_search(qt, QtInclude())) << qt;
    for (const char* other :
         {"#include <queue>", "#include \"forms/app.h\"", "// #include <QString>"})
        ASSERT_FALSE(std::regex_search(other, QtInclude())) << other;

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

} // namespace
