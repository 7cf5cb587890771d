#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tos::fuzz {

// A property that must hold: when it does not, the finding is printed and the
// program aborts, which libFuzzer records as a crash with its input.
void Require(bool holds, std::string_view what);
void Require(bool holds, std::string_view what, std::string_view detail);

// A folder of this process under the temporary folder, made at the first call and
// removed when the process ends.
const std::string& ScratchFolder();

// Writes bytes exactly as given to name in the scratch folder; returns the full path.
std::string WriteScratchFile(const std::string& name, std::string_view bytes);

std::string ReadFileBytes(const std::string& path);

// Takes parts of a fuzz input from its end, so a plain file used as a seed keeps
// its front intact as the main payload.
class TailReader {
public:
    TailReader(const std::uint8_t* data, std::size_t size)
        : bytes_(reinterpret_cast<const char*>(data), size)
    {
    }
    // One byte from the end; 0 when nothing is left.
    std::uint8_t Byte();
    // Up to count bytes that stand just before the end, in their order.
    std::string_view Bytes(std::size_t count);
    // What is left, from the front.
    std::string_view Rest() const { return bytes_; }

private:
    std::string_view bytes_;
};

} // namespace tos::fuzz
