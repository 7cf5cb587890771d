#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "support/profile.h"

namespace tos {

// The answers of a test or a transformation of a model's value, one per distinct value: a
// scene holds few distinct values, and the tests of a walk depend on the value alone.
template <class Answer> class ValueMemo {
public:
    // work(value) gives the answer, from the value as a string. Values with the same
    // distinct number (from the walk that gives them) share one answer without a lookup.
    template <class Work>
    const Answer& operator()(std::string_view value, std::uint32_t distinct, Work work)
    {
        if (distinct == ProfileFiles::kNoDistinct)
            return ByValue(value, work);
        if (distinct >= byNumber_.size())
            byNumber_.resize(distinct + 1);
        std::optional<Answer>& answer = byNumber_[distinct];
        if (!answer)
            answer = ByValue(value, work);
        return *answer;
    }

private:
    template <class Work> const Answer& ByValue(std::string_view value, Work& work)
    {
        const auto found = answers_.find(value);
        if (found != answers_.end())
            return found->second;
        const std::string text(value);
        return answers_.emplace(text, work(text)).first->second;
    }

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const noexcept
        {
            return std::hash<std::string_view>{}(s);
        }
    };
    std::unordered_map<std::string, Answer, Hash, std::equal_to<>> answers_;
    std::vector<std::optional<Answer>> byNumber_;
};

} // namespace tos
