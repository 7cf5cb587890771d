#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "support/case_blind.h"

namespace tos {

// White space of the profile form: blank, tab, CR, VT and FF; a line, a key and a
// value lose it at their ends.
bool IsProfileWhite(char c);
std::string_view TrimProfileWhite(std::string_view text);

// A profile file parsed the way the desktop's own profile reader sees it: lines end at
// CR LF, LF or CR; white space round a line is ignored; "[name]" opens a section whose
// name runs to the last "]"; the first section and the first key of a name count;
// names and keys compare without regard to case.
class ParsedProfile {
public:
    explicit ParsedProfile(std::string text);
    // Holds views into its own text, so it stays where it was made.
    ParsedProfile(const ParsedProfile&) = delete;
    ParsedProfile& operator=(const ParsedProfile&) = delete;

    // The value as that reader hands it out (one pair of enclosing quotes removed), or
    // nullopt where it would hand out the caller's default.
    std::optional<std::string_view> Value(std::string_view section, std::string_view key) const;

    // Names of the sections a lookup can reach, as they stand in the file.
    std::vector<std::string_view> SectionNames() const;

private:
    struct KeyLine {
        std::string_view key;
        std::string_view value;
        bool hasValue = false;
    };
    struct Section {
        std::string_view name;
        std::vector<KeyLine> keys;
    };

    std::string text_;
    std::vector<Section> sections_;
    std::unordered_map<std::string_view, std::size_t, CaseBlindHash, CaseBlindEqual> index_;
};

} // namespace tos
