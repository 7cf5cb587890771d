#include <windows.h>

#include <psapi.h>

#include "hostile_case.h"

namespace tos::test {

namespace {

// A file held open by another program that lets no one else read or write it, as an
// editor may keep a scene or a script while it works on it.
struct Holder {
    HANDLE handle = INVALID_HANDLE_VALUE;

    // Writes the file, then holds it.
    Step Take(const std::string& name, const std::string& bytes)
    {
        return [this, name, bytes](LoadFixture& fx) {
            fx.dir.Write(name, bytes);
            handle = CreateFileA(fx.dir.File(name).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
            ASSERT_NE(handle, INVALID_HANDLE_VALUE) << name;
        };
    }
    Step Release()
    {
        return [this](LoadFixture&) {
            if (handle != INVALID_HANDLE_VALUE)
                CloseHandle(handle);
            handle = INVALID_HANDLE_VALUE;
        };
    }
};

} // namespace

std::vector<HostileCase> PlatformCases()
{
    static Holder held;
    const std::string text = Counted("1") + kModel1;
    const Step scene = WriteScene(text);
    // clang-format off
    return {
        // The system's reader answers with its defaults, as for a file that is not there.
        {"scene held by another program", held.Take("Scene.scn", text),
         {kNoCount, kNoEnvironment[0], kNoEnvironment[1]}, {}, {}, {}, "", false,
         held.Release()},
        {"scene held before Process", scene, {}, {"Barn"}, held.Take("Scene.scn", text),
         {"Unexpected error in CalculateAngles_NegZ for Model1:  Overflow ( 6)",
          "LookX = 0  LookY = 0  LookZ = 0"}, "-1920,1920,0", true, held.Release()},
        {"script held by another program", scene, {}, {"Barn"},
         held.Take("Scene_Main_Barn.ms", "-- kept\r\n"),
         {"Unexpected error in BuildScript \n\n 70 - Permission denied"}, "80,0,4", true,
         held.Release()},
        // The system's reader ends a value at a NUL byte: the model is no object.
        {"NUL in keys and values, small scene", WriteScene(NulScene()), {}, {}, {}, {}, "", false},
    };
    // clang-format on
}

long PeakMegabytes()
{
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<long>(counters.PeakWorkingSetSize >> 20);
}

} // namespace tos::test
