#include <sys/resource.h>
#include <sys/stat.h>

#include <filesystem>

#include "hostile_case.h"

namespace tos::test {

namespace fs = std::filesystem;

std::vector<HostileCase> PlatformCases()
{
    const Step scene = WriteScene(Counted("1") + kModel1);
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
        {"script into a full device", scene, {}, {"Barn"},
         [](LoadFixture& fx) {
             fs::create_symlink("/dev/full", fx.dir.File("Scene_Main_Barn.ms"));
         },
         {"Unexpected error in BuildScript \n\n 61 - Disk full"}, "80,0,4", true},
        // The super-user may write anywhere, so the writer takes a folder without any write
        // permission bit as one it may not write into, as the system does for others.
        {"folder without write permission", scene, {}, {"Barn"},
         [](LoadFixture& fx) { fs::permissions(fx.dir.Path(), fs::perms(0555)); },
         {"Unexpected error in BuildScript \n\n 75 - Path/File access error"}, "80,0,4", false,
         [](LoadFixture& fx) {
             fs::permissions(fx.dir.Path(), fs::perms::owner_all, fs::perm_options::add);
         }},
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
