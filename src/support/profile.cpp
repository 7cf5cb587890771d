#include "support/profile.h"

#include <algorithm>

#include "support/case_blind.h"
#include "support/conversions.h"
#include "support/platform.h"
#include "support/profile_state.h"
#include "support/system.h"

namespace tos {

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
    ++look.count;
    return look.facts;
}

ProfileFiles::ProfileFiles(Platform& platform)
    : impl_(std::make_unique<Impl>(platform, std::make_shared<LargeFile>()))
{
}

ProfileFiles::ProfileFiles(Platform& platform, ProfileFiles& shareWith)
    : impl_(std::make_unique<Impl>(platform, shareWith.impl_->large))
{
}

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
            n = impl_->ReadSmallFile(section, key, kNotFound, buffer, kValueSize, file, facts);
        } else {
            n = ReadValueFromCache(section, key, kNotFound, buffer, kValueSize, file);
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
    s.FlushSmallFile(file);
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
    const auto found = FindNumbered(file, prefix);
    if (found == nullptr)
        return std::nullopt;
    std::vector<std::int32_t> numbers;
    numbers.reserve(found->sections.size());
    for (const auto& section : found->sections)
        numbers.push_back(section.number);
    return numbers;
}

std::shared_ptr<const ProfileFiles::Numbered> ProfileFiles::FindNumbered(const std::string& file,
                                                                         const std::string& prefix)
{
    Impl& s = *impl_;
    // A lookup trims the whole name; the digits end it, so only the prefix's start matters.
    std::string_view head = prefix;
    head.remove_prefix(std::min(head.find_first_not_of(' '), head.size()));

    std::vector<NumberedSection> sections;
    std::string stamp;
    std::uint64_t generation = 0;
    auto consider = [&](std::string_view name, std::int32_t behind) {
        std::int32_t n = 0;
        if (name.size() > head.size() && EqualsIgnoringCase(name.substr(0, head.size()), head) &&
            IsPositiveInt32Text(name.substr(head.size()), n))
            sections.push_back({n, behind});
    };

    bool readable = false;
    bool cached = false;
    Trap([&] {
        const FileFacts& facts = s.Facts(file);
        stamp = facts.stamp;
        if (s.large->numbered && s.large->numbered->file == file &&
            s.large->numbered->stamp == stamp && s.large->numbered->prefix == prefix) {
            cached = readable = true;
            return;
        }
        if (facts.length < kLargeFile) {
            const auto names = s.SmallFileSections(file, facts);
            if (!names)
                return;
            for (const std::string& name : *names)
                consider(name, -1);
        } else {
            if (file != s.large->file || facts.stamp != s.large->stamp)
                LoadSectionCache(file);
            if (!s.large->read)
                return;
            generation = s.large->generation;
            const SectionIndex& index = s.large->index;
            sections.reserve(index.Size());
            for (std::size_t i = 0; i < index.Size(); ++i)
                consider(index.Name(s.large->text, i), index.Behind(s.large->text, i));
        }
        readable = true;
    });
    if (!readable)
        return nullptr;
    if (!cached) {
        auto byNumber = [](const auto& a, const auto& b) { return a.number < b.number; };
        auto sameNumber = [](const auto& a, const auto& b) { return a.number == b.number; };
        // A scene lists its models in order, most often.
        if (!std::is_sorted(sections.begin(), sections.end(), byNumber))
            std::sort(sections.begin(), sections.end(), byNumber);
        sections.erase(std::unique(sections.begin(), sections.end(), sameNumber), sections.end());
        s.large->numbered.reset();
        s.large->numbered = std::make_shared<const Numbered>(
            Numbered{file, stamp, prefix, generation, std::move(sections)});
    }
    return s.large->numbered;
}

} // namespace tos
