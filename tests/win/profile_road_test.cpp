#include <gtest/gtest.h>

#include "win/platform/win32.h"

#include <algorithm>
#include <string>
#include <vector>

#include "common/scratch.h"
#include "support/parsed_profile.h"

namespace tos {
namespace {

// Our portable reader, the one Linux uses for files below 65,535 bytes, must answer
// as GetPrivateProfileStringA does (default "NotFound", size 255).

struct Read {
    std::string section;
    std::string key;
};

struct Profile {
    const char* name;
    std::string text;
    std::vector<Read> reads;
};

const std::string kNotFound = "NotFound";

// A new name for every text: the system keeps its own copy of files it read. (Built in
// steps: the cross compiler's -Wrestrict misreads "p" + std::to_string(n) at -O3.)
std::string FileName(std::string prefix, int number)
{
    prefix += std::to_string(number);
    prefix += ".ini";
    return prefix;
}

std::string Ours(const ParsedProfile& profile, const Read& read)
{
    const std::string value(profile.Value(read.section, read.key).value_or(kNotFound));
    return value.substr(0, 254);
}

std::string Theirs(const std::string& file, const Read& read)
{
    std::string buffer(255, '\0');
    const DWORD n = GetPrivateProfileStringA(read.section.c_str(), read.key.c_str(),
                                             kNotFound.c_str(), buffer.data(), 255, file.c_str());
    buffer.resize(n);
    return buffer;
}

// The names a lookup can reach: the system also lists a second section of a name.
std::vector<std::string> TheirSections(const std::string& file)
{
    std::string list(4096, '\0');
    const DWORD n = GetPrivateProfileSectionNamesA(list.data(), 4096, file.c_str());
    std::vector<std::string> names;
    for (std::size_t start = 0; start < n;) {
        const std::size_t end = list.find('\0', start);
        const std::string name = list.substr(start, end - start);
        if (std::none_of(names.begin(), names.end(), [&](const std::string& seen) {
                return lstrcmpiA(seen.c_str(), name.c_str()) == 0;
            }))
            names.push_back(name);
        start = end + 1;
    }
    return names;
}

const std::vector<Read> kPlainReads = {
    {"Sec", "Key"}, {"Sec", "Other"}, {"sec", "KEY"}, {"Sec", "Missing"}, {"Nope", "Key"}};

// clang-format off
const std::vector<Profile> kProfiles = {
    {"crlf", "[Sec]\r\nKey=Value\r\nOther=2\r\n", kPlainReads},
    {"lf", "[Sec]\nKey=Value\nOther=2\n", kPlainReads},
    {"cr", "[Sec]\rKey=Value\rOther=2\r", kPlainReads},
    {"no end of line", "[Sec]\r\nKey=Value\r\nOther=2", kPlainReads},
    {"blanks and tabs round keys and values",
     "  [Sec]  \r\n  Key \t=\t Value \t\r\n\tOther=\t2\r\n",
     {{"Sec", "Key"}, {"Sec", "Other"}, {" Sec ", "Key"}, {"Sec", " Key "}}},
    {"quotes",
     "[Q]\r\nD=\"double\"\r\nS='single'\r\nOpen=\"open\r\nMixed=\"a'\r\nInner=a\"b\"\r\n"
     "Spaced= \"x\" \r\nEmpty=\"\"\r\n",
     {{"Q", "D"}, {"Q", "S"}, {"Q", "Open"}, {"Q", "Mixed"}, {"Q", "Inner"}, {"Q", "Spaced"},
      {"Q", "Empty"}}},
    {"key without equals", "[N]\r\nBare\r\nKey=after\r\n", {{"N", "Bare"}, {"N", "Key"}}},
    {"other case", "[MiXed]\r\nKeY=v\r\n", {{"mixed", "key"}, {"MIXED", "KEY"}}},
    {"same names twice",
     "[Dup]\r\nD=first\r\nD=again\r\n[Other]\r\nX=1\r\n[DUP]\r\nD=second\r\nE=only in second\r\n",
     {{"Dup", "D"}, {"Dup", "E"}, {"Other", "X"}}},
    {"lines before the first section", "Loose=1\r\nstray text\r\n[S]\r\nK=v\r\n",
     {{"S", "K"}, {"S", "Loose"}}},
    {"comment lines",
     "; note\r\n[S]\r\n;K=commented\r\nK=v\r\n; K=late\r\n",
     {{"S", "K"}, {"S", ";K"}}},
    {"text behind the bracket",
     "[Tail] ; note\r\nT=1\r\n[Two]x]\r\nU=2\r\n[Open\r\nV=3\r\n",
     {{"Tail", "T"}, {"Two]x", "U"}, {"Two", "U"}, {"Open", "V"}}},
    {"300-character value", "[L]\r\nLong=" + std::string(300, 'L') + "\r\n", {{"L", "Long"}}},
    {"empty value", "[E]\r\nK=\r\nB= \r\n", {{"E", "K"}, {"E", "B"}}},
    {"empty file", "", {{"S", "K"}}},
};
// clang-format on

TEST(ProfileRoad, OurReaderAnswersAsTheSystemReader)
{
    test::ScratchDir dir;
    int file = 0;
    for (const Profile& profile : kProfiles) {
        const std::string path = dir.Write(FileName("p", ++file), profile.text);
        const ParsedProfile ours(profile.text);
        for (const Read& read : profile.reads)
            EXPECT_EQ(Ours(ours, read), Theirs(path, read))
                << profile.name << ": [" << read.section << "] " << read.key;
        std::vector<std::string> ourSections;
        for (std::string_view name : ours.SectionNames())
            ourSections.emplace_back(name);
        EXPECT_EQ(ourSections, TheirSections(path)) << profile.name << ": section names";
    }
}

// Where Wine answers otherwise and our reader keeps to the rule we chose, the rule
// holds for ours, and the system may give either answer.
TEST(ProfileRoad, WhereWineDiffersOursKeepsItsRule)
{
    struct Row {
        const char* rule;
        std::string text;
        Read read;
        std::string wine; // ours answers kNotFound
    };
    // clang-format off
    const Row rows[] = {
        {.rule = "a header's name stands between the brackets unchanged",
         .text = "[ Sec ]\r\nKey=Value\r\n", .read = {"Sec", "Key"}, .wine = "Value"},
        {.rule = "a lookup trims the name asked for, not the header's",
         .text = "[ Sec ]\r\nKey=Value\r\n", .read = {" Sec ", "Key"}, .wine = "Value"},
        {.rule = "the same with a tab",
         .text = "[\tSec]\r\nKey=Value\r\n", .read = {"Sec", "Key"}, .wine = "Value"},
    };
    // clang-format on
    test::ScratchDir dir;
    int file = 0;
    for (const Row& row : rows) {
        const std::string path = dir.Write(FileName("d", ++file), row.text);
        EXPECT_EQ(Ours(ParsedProfile(row.text), row.read), kNotFound) << row.rule;
        const std::string theirs = Theirs(path, row.read);
        EXPECT_TRUE(theirs == kNotFound || theirs == row.wine) << row.rule << ": " << theirs;
    }
}

} // namespace
} // namespace tos
