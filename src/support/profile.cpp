#include "support/profile.h"

#include <algorithm>
#include <ctime>

#include "support/conversions.h"
#include "support/platform.h"
#include "support/profile_state.h"

namespace tos {

namespace {

constexpr std::int64_t kLargeFile = 65535;
constexpr std::int64_t kLookLifetimeNs = 100'000'000;
constexpr std::size_t kParsedCopies = 8;

// What the reader of small files hands out: the value or the default, at most size - 1
// characters, and its length.
std::int32_t CopyToBuffer(std::string_view value, std::string& buffer, std::int32_t size)
{
    buffer.assign(value.substr(0, static_cast<std::size_t>(std::max(size - 1, 0))));
    return static_cast<std::int32_t>(buffer.size());
}

// The coarse clock is read from memory, while the precise one may cost as much as
// the rest of a read; a few milliseconds of resolution are plenty for a 100 ms window.
std::int64_t CoarseNowNs()
{
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &ts);
    return static_cast<std::int64_t>(ts.tv_sec) * 1'000'000'000 + ts.tv_nsec;
}

} // namespace

bool IsPositiveInt32Text(std::string_view digits, std::int32_t& value)
{
    if (digits.empty() || digits.size() > 10 || digits.front() == '0')
        return false;
    long long v = 0;
    for (char c : digits) {
        if (c < '0' || c > '9')
            return false;
        v = v * 10 + (c - '0');
    }
    if (v > 2147483647LL)
        return false;
    value = static_cast<std::int32_t>(v);
    return true;
}

const FileFacts& ProfileFiles::Impl::Facts(const std::string& file)
{
    if (look.valid && look.path == file && CoarseNowNs() - look.takenNs < kLookLifetimeNs)
        return look.facts;
    return FreshFacts(file);
}

const FileFacts& ProfileFiles::Impl::FreshFacts(const std::string& file)
{
    look.valid = false;
    look.facts = GetFileFacts(file);
    look.path = file;
    look.takenNs = CoarseNowNs();
    look.valid = true;
    return look.facts;
}

const ParsedProfile* ProfileFiles::Impl::ParsedCopy(const std::string& file, const FileFacts& facts)
{
    auto it =
        std::find_if(parsed.begin(), parsed.end(), [&](const Parsed& p) { return p.path == file; });
    if (it != parsed.end() && it->stamp == facts.stamp) {
        if (it != parsed.begin())
            std::rotate(parsed.begin(), it, it + 1);
        return parsed.front().profile.get();
    }
    if (it != parsed.end())
        parsed.erase(it);
    std::unique_ptr<ParsedProfile> profile;
    if (Trap([&] { profile = std::make_unique<ParsedProfile>(ReadWholeFile(file)); }))
        return nullptr;
    if (parsed.size() == kParsedCopies)
        parsed.pop_back();
    parsed.insert(parsed.begin(), Parsed{file, facts.stamp, std::move(profile)});
    return parsed.front().profile.get();
}

ProfileFiles::ProfileFiles(Platform& platform) : impl_(std::make_unique<Impl>(platform)) {}

ProfileFiles::~ProfileFiles() = default;

std::string ProfileFiles::GetINIString(const std::string& section, const std::string& key,
                                       const std::string& file)
{
    static const std::string kNotFound = "NotFound";
    std::string buffer;
    auto failure = Trap([&] {
        const FileFacts& facts = impl_->Facts(file);
        std::int32_t n = 0;
        if (facts.length < kLargeFile) {
            const ParsedProfile* profile = impl_->ParsedCopy(file, facts);
            std::optional<std::string_view> value;
            if (profile != nullptr)
                value = profile->Value(section, key);
            n = CopyToBuffer(value.value_or(kNotFound), buffer, 255);
        } else {
            n = ReadValueFromCache(section, key, kNotFound, buffer, 255, file);
        }
        buffer.resize(std::min(buffer.size(), static_cast<std::size_t>(std::max(n, 0))));
    });
    if (failure) {
        impl_->platform.ShowMessage({"Unexpected error in GetINIString for file: " + file + "  \n" +
                                     failure->Description() + " (" +
                                     SignedIntegerText(failure->Number()) + ")"});
        return "";
    }
    if (buffer == kNotFound)
        return "";
    return buffer;
}

void ProfileFiles::FlushProfileFile(const std::string& file)
{
    Impl& s = *impl_;
    if (s.look.path == file)
        s.look.valid = false;
    std::erase_if(s.parsed, [&](const Impl::Parsed& p) { return p.path == file; });
    // The large-file copy and the numbered sections stay: they go by the file's stamp,
    // and a project load would otherwise read and index a big scene twice.
}

void ProfileFiles::ForgetLastLook()
{
    impl_->look.valid = false;
}

std::optional<std::vector<std::int32_t>> ProfileFiles::NumberedSections(const std::string& file,
                                                                        const std::string& prefix)
{
    Impl& s = *impl_;
    // A lookup trims the whole name; the digits end it, so only the prefix's start matters.
    std::string_view head = prefix;
    head.remove_prefix(std::min(head.find_first_not_of(' '), head.size()));

    std::vector<std::int32_t> numbers;
    std::string stamp;
    bool cached = false;
    auto consider = [&](std::string_view name) {
        std::int32_t n = 0;
        if (name.size() > head.size() && EqualsIgnoringCase(name.substr(0, head.size()), head) &&
            IsPositiveInt32Text(name.substr(head.size()), n))
            numbers.push_back(n);
    };

    bool readable = false;
    Trap([&] {
        const FileFacts& facts = s.Facts(file);
        stamp = facts.stamp;
        if (s.numbered && s.numbered->file == file && s.numbered->stamp == stamp &&
            s.numbered->prefix == prefix) {
            numbers = s.numbered->numbers;
            cached = readable = true;
            return;
        }
        if (facts.length < kLargeFile) {
            const ParsedProfile* profile = s.ParsedCopy(file, facts);
            if (profile == nullptr)
                return;
            for (std::string_view name : profile->SectionNames())
                consider(name);
        } else {
            if (file != s.SectionCacheFile || facts.stamp != s.SectionCacheStamp)
                LoadSectionCache(file);
            if (!s.sectionCacheRead)
                return;
            for (const auto& entry : s.SectionCache)
                consider(entry.first);
        }
        readable = true;
    });
    if (!readable)
        return std::nullopt;
    if (!cached) {
        std::sort(numbers.begin(), numbers.end());
        numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
        s.numbered = Impl::Numbered{file, stamp, prefix, numbers};
    }
    return numbers;
}

} // namespace tos
