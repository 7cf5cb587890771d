// Whole-process wall times of tos-cli beside the floor program (one read of the
// scene and one pass over its lines), run on the same generated scenes in the same
// run: the ratio says how much more than reading the scene once each command does.
// Usage: floor_ratios FLOOR TOS_CLI
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "scene_generator.h"

extern char** environ;

namespace {

// One run with its output thrown away; the wall time in milliseconds.
double RunOnce(const std::vector<std::string>& args)
{
    std::vector<char*> argv;
    for (const std::string& a : args)
        argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t pid = 0;
    if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ) != 0) {
        std::fprintf(stderr, "cannot start %s\n", argv[0]);
        std::exit(2);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    posix_spawn_file_actions_destroy(&actions);
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

double Median(const std::vector<std::string>& args, int runs = 9)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i)
        times.push_back(RunOnce(args));
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: floor_ratios FLOOR TOS_CLI\n");
        return 2;
    }
    const std::string floor = argv[1], cli = argv[2];
    const auto folder = std::filesystem::temp_directory_path() / "tos-floor-ratios";
    std::filesystem::create_directories(folder);

    tos::bench::SceneLayout forest;
    forest.stems = 3;
    forest.stemsInTurn = true;
    forest.stockShare = 0;
    forest.mainTileShare = 1.0;
    forest.tiltedShare = 1.0;
    const std::string scene = tos::bench::WriteProject(folder.string(), "Scene", {});
    const std::string trees = tos::bench::WriteProject(folder.string(), "Forest", forest);
    const auto scn = [](const std::string& prj) { return prj.substr(0, prj.size() - 4) + ".scn"; };

    struct Work {
        const char* what;
        std::vector<std::string> floor;
        std::vector<std::string> command;
    };
    const Work works[] = {
        {"tos-cli objects, 30,000 models", {floor, scn(scene)}, {cli, "objects", scene}},
        {"tos-cli script, 10,000 turned copies",
         {floor, scn(trees)},
         {cli, "script", trees, "Stem001", "--max-file", "C:\\m\\Stem.max", "--use-max-name",
          "--no-save"}},
        {"tos-cli map, 30,000 models",
         {floor, scn(scene)},
         {cli, "map", scene, "--output", (folder / "Scene.svg").string()}},
    };
    std::printf("%-40s %10s %10s %8s\n", "work", "ms", "floor ms", "ratio");
    for (const Work& w : works) {
        const double f = Median(w.floor), c = Median(w.command);
        std::printf("%-40s %10.1f %10.1f %7.1fx\n", w.what, c, f, c / f);
    }
    std::filesystem::remove_all(folder);
    return 0;
}
