#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tos {

// The answers of a test or a transformation of a model's value, one per distinct value: a
// scene holds few distinct values, and the tests of a walk depend on the value alone.
template <class Answer> class ValueMemo {
public:
    // work(value) gives the answer, from the value as a string.
    template <class Work> const Answer& operator()(std::string_view value, Work work)
    {
        const auto found = answers_.find(value);
        if (found != answers_.end())
            return found->second;
        const std::string text(value);
        return answers_.emplace(text, work(text)).first->second;
    }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const noexcept
        {
            return std::hash<std::string_view>{}(s);
        }
    };
    std::unordered_map<std::string, Answer, Hash, std::equal_to<>> answers_;
};

} // namespace tos
