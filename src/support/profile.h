#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/checked.h"

namespace tos {

class Platform;

// Read access to profile files: one GetINIString per value. Files below 65,535
// bytes go to a reader that behaves like the platform's; larger ones to our own
// reader, which holds one file with an index of its sections. A file's length and
// time of last change, once taken, serve the reads of the next 100 ms; a caller that
// has just rewritten a file calls FlushProfileFile before reading it again.
class ProfileFiles {
public:
    explicit ProfileFiles(Platform& platform);
    // A reader that shows its messages on platform and shares the large-file copy, and
    // with it the reading and indexing of a large file, with another one.
    ProfileFiles(Platform& platform, ProfileFiles& shareWith);
    ~ProfileFiles();
    ProfileFiles(const ProfileFiles&) = delete;
    ProfileFiles& operator=(const ProfileFiles&) = delete;

    // The value, or "" for anything missing. Never fails towards its caller; a
    // missing file shows its message at every read.
    std::string GetINIString(const std::string& section, const std::string& key,
                             const std::string& file);

    // Forgets the small-file reader's copy of the file and its length and time taken
    // last, so the next read looks at the disk. The large-file copy goes by the file's
    // stamp and stays while that is unchanged.
    void FlushProfileFile(const std::string& file);

    // Forgets the length and time of last change taken last, so the next read looks at the
    // disk. For the start of a user's action: the file may have changed since the one before.
    void ForgetLastLook();

    // The numbers n >= 1, ascending and distinct, for which GetINIString would find a
    // section named prefix + IntegerToText(n) in the file as it reads it now (its own
    // rules of section matching: case-blind, blanks at the ends dropped, "Model007" is
    // not "Model7"). nullopt when the file cannot be read.
    std::optional<std::vector<std::int32_t>> NumberedSections(const std::string& file,
                                                              const std::string& prefix);

    // Calls visit(n, value, distinct) for each n that NumberedSections finds, ascending, up
    // to last, where value is what GetINIString(prefix + IntegerToText(n), key, file) gives,
    // valid during the call. Within one walk, visits with the same distinct number have the
    // same value, so a test on the value can be answered once per number; kNoDistinct says
    // the value has none. False, with no call, when the file cannot be read. Faster than
    // reading by name: a large file's sections are found by their place, and the values
    // of the last walk are given again while the file is unchanged.
    static constexpr std::uint32_t kNoDistinct = 0xFFFFFFFF;
    using NumberedVisit = std::function<void(std::int32_t, std::string_view, std::uint32_t)>;
    bool ForEachNumberedValue(const std::string& file, const std::string& prefix, std::int32_t last,
                              const std::string& key, const NumberedVisit& visit);

    // The same as GetINIString(prefix + IntegerToText(number), key, file); faster for the
    // section that ForEachNumberedValue visits at the time, whose place it knows. The value
    // is a view into the reader's copy of the file, or into spare; valid until the next read.
    std::string_view GetVisitedValue(const std::string& prefix, std::int32_t number,
                                     const std::string& key, const std::string& file,
                                     std::string& spare);

private:
    struct Impl;
    struct LargeFile;
    struct NumberedSection;
    struct Numbered;

    // The reader of large files: looks the section up in the cache and walks its lines.
    std::int32_t ReadValueFromCache(const std::string& section, const std::string& key,
                                    const std::string& defaultValue, std::string& buffer,
                                    std::int32_t size, const std::string& file);
    // Reads the file and indexes its section headers.
    void LoadSectionCache(const std::string& file);
    // The answer of NumberedSections with each section's place, kept for the next asks
    // while the file's stamp holds; nullptr when the file cannot be read.
    std::shared_ptr<const Numbered> FindNumbered(const std::string& file,
                                                 const std::string& prefix);

    std::unique_ptr<Impl> impl_;
};

} // namespace tos
