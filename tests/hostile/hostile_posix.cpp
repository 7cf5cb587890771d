#include <sys/resource.h>
#include <sys/stat.h>

#include <filesystem>

#include "hostile_case.h"

namespace tos::test {

namespace fs = std::filesystem;

std::vector<HostileCase> PlatformCases()
{
    // clang-format off
    return {
        {"NUL in keys and values, small scene", WriteScene(NulScene()), {}, {kNulObject}, {},
         kBadFileName, "80,0,4", false},
        {"scene is a pipe",
         [](LoadFixture& fx) { ASSERT_EQ(mkfifo(fx.dir.File("Scene.scn").c_str(), 0644), 0); },
         {kNoCount, kNoEnvironment[0], kNoEnvironment[1]}, {}, {}, {}, "", false},
        {"scene never ends",
         [](LoadFixture& fx) { fs::create_symlink("/dev/zero", fx.dir.File("Scene.scn")); },
         {kNoCount, kNoEnvironment[0], kNoEnvironment[1]}, {}, {}, {}, "", false},
    };
    // clang-format on
}

long PeakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

} // namespace tos::test
