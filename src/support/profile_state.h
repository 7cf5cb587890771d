#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/files.h"
#include "support/parsed_profile.h"
#include "support/profile.h"
#include "support/profile_index.h"

namespace tos {

// Files of this length or more go to the large-file reader.
inline constexpr std::int64_t kLargeFile = 65535;
inline constexpr std::int64_t kLookLifetimeNs = 100'000'000;
// The buffer a read gives the reader: 255 characters.
inline constexpr std::int32_t kValueSize = 255;

// A section that NumberedSections finds: its number and where it is.
struct ProfileFiles::NumberedSection {
    std::int32_t number;
    // For a large file, the position behind the header in the section cache of
    // the generation below; -1 for a small file.
    std::int32_t behind;
};
// The answer of NumberedSections for one file, stamp and prefix.
struct ProfileFiles::Numbered {
    std::string file;
    std::string stamp;
    std::string prefix;
    std::uint64_t generation;              // of the section cache the places come from
    std::vector<NumberedSection> sections; // ascending, distinct numbers
};

// The distinct values a walk meets, numbered 0, 1, ... in the order they first come. A scene
// holds few of them, so the table stays small; open addressing keeps a lookup to one probe
// or two, with no division.
class DistinctValues {
public:
    // At most this many values get a number; others get kFull, and the table stays small.
    static constexpr std::uint32_t kFull = 0xFFFE;
    std::uint32_t NumberOf(std::string_view value);

private:
    static std::uint64_t Hash(std::string_view value);
    std::vector<std::string> values_;
    std::vector<std::uint32_t> slots_; // 0 for free, else number + 1
};

// Large files: the one file held in memory with an index of its section headers, and
// what walks over it keep.
struct ProfileFiles::LargeFile {
    std::string file;
    std::string stamp;
    std::string text;
    // The names between the brackets of the header lines that end in "]" (other headers
    // can never match a lookup), each with the position behind its header line.
    SectionIndex index;
    std::int32_t pos = 0;
    bool read = false;            // whether the last load could read the file
    std::uint64_t generation = 0; // counts the loads

    // The last answer of NumberedSections: a load asks it once per model walk, and the
    // answer holds while the file's stamp does.
    std::shared_ptr<const Numbered> numbered;

    // The values one key had in the sections of that answer, read by a walk over them and
    // given again to the next walk while the cache they point into holds: a load walks the
    // same models several times. Places into the text, so no value is copied; five bytes a
    // section, since a scene may hold millions. A value that does not fit is read again.
    struct WalkValues {
        std::shared_ptr<const Numbered> numbered;
        std::string key;
        std::vector<std::uint16_t> offset; // from the start of the section's first line
        std::vector<std::uint8_t> length;  // a value has at most 255 characters
        // A number per distinct value, so tests on a value are answered once per number;
        // kUnread for a section not read yet.
        std::vector<std::uint16_t> distinct;
        DistinctValues numbers;
    };
    static constexpr std::uint16_t kUnread = 0xFFFF;
    static constexpr std::uint16_t kNoNumber = DistinctValues::kFull; // read, with no number
    WalkValues walkValues;

    // The place behind the header of the section name, or -1. The last answer is kept: a
    // copy's values are read one after another from the same section.
    std::int32_t FindSection(std::string_view name)
    {
        if (lastFound.generation != generation || lastFound.name != name)
            lastFound = {std::string(name), index.Find(text, name), generation};
        return lastFound.behind;
    }
    struct Found {
        std::string name;
        std::int32_t behind = -1;
        std::uint64_t generation = 0;
    };
    Found lastFound;
    std::uint64_t walkTakeovers = 0; // counts the times a walk took walkValues over
};

struct ProfileFiles::Impl {
    Impl(Platform& p, std::shared_ptr<LargeFile> shared) : platform(p), large(std::move(shared)) {}

    Platform& platform;

    // Length and stamp of the file last asked about. Taking them costs more than the
    // rest of a read, so a look less than 100 ms old is used again for the same path.
    struct Look {
        std::string path;
        std::int64_t takenNs = 0; // on the coarse monotonic clock
        FileFacts facts;
        bool valid = false;
        std::uint64_t count = 0; // of the looks taken, so a walk can tell this one again
    };
    Look look;
    // Fails as GetFileFacts does.
    const FileFacts& Facts(const std::string& file);
    // A fresh look, also kept for the next reads.
    const FileFacts& FreshFacts(const std::string& file);

    // The first road, for files below 65,535 bytes: a reader that behaves like the
    // platform's, which on Windows is the platform's own. Each platform has its file.
    // The value or the default, at most size - 1 characters, and its length.
    std::int32_t ReadSmallFile(const std::string& section, const std::string& key,
                               const std::string& defaultValue, std::string& buffer,
                               std::int32_t size, const std::string& file, const FileFacts& facts);
    // Names of the sections that reader can reach; nullopt when the file cannot be read.
    std::optional<std::vector<std::string>> SmallFileSections(const std::string& file,
                                                              const FileFacts& facts);
    // Drops that reader's copy of the file.
    void FlushSmallFile(const std::string& file);

    // Small files on our own reader: parsed copies, each valid while the stamp it was
    // read at holds.
    struct Parsed {
        std::string path;
        std::string stamp;
        std::unique_ptr<ParsedProfile> profile;
    };
    std::vector<Parsed> parsed; // most recently used first
    // nullptr when the file cannot be read.
    const ParsedProfile* ParsedCopy(const std::string& file, const FileFacts& facts);

    // The reader of large files, which readers made to share it have in common.
    std::shared_ptr<LargeFile> large;
    // The scan of one section of the cache, from the position behind its header, for
    // the first line whose key is key: its value, whole, as a view into the text.
    struct Scanned {
        std::optional<std::string_view> value;
        bool plain = true; // no line took the element walk, so no message was possible
    };
    Scanned ScanSection(std::int32_t behind, std::string_view key);
    // The same scan of a text whose lines take NextLine's direct step, with the key trimmed.
    Scanned ScanShortText(std::string_view text, std::int32_t behind, std::string_view wanted);

    // The section a walk visits, for the reads of its other keys.
    struct Visited {
        bool held = false; // whether its place in the cache was known at the visit
        std::int32_t number = 0;
        std::int32_t behind = -1;
        std::uint64_t look = 0;       // the look that showed the cache holding the file
        std::uint64_t generation = 0; // of the cache
        const std::string* file = nullptr;
        const std::string* prefix = nullptr;
    };
    // The visit in progress (the innermost one when walks nest), or nullptr.
    const Visited* visited = nullptr;
};

} // namespace tos
