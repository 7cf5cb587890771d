// Whole-process wall times of tos-cli beside the floor program (one read of the
// scene and one pass over its lines), run on the same generated scenes in the same
// run: the ratio says how much more than reading the scene once each command does.
// Beside them the peak memory of the load and a hostile scene of millions of sections.
// Usage: floor_ratios FLOOR TOS_CLI [--keep]   (--keep leaves the scenes for profiling)

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "process_timer.h"
#include "scene_generator.h"

namespace {

// The hostile scene: millions of sections of one header line each, every one a model.
std::string WriteManySections(const std::filesystem::path& folder, int sections)
{
    const std::string prj = (folder / "Many.prj").string();
    std::FILE* f = std::fopen(prj.c_str(), "wb");
    std::fclose(f);
    const std::string scn = (folder / "Many.scn").string();
    f = std::fopen(scn.c_str(), "wb");
    std::fprintf(f,
                 "[Environment]\r\nTerrainWidth=5\r\nTerrainWidthScale=3.0\r\n\r\n"
                 "[StaticModels]\r\nNumberOfStaticModels=%d\r\n\r\n",
                 sections);
    for (int n = 1; n <= sections; ++n)
        std::fprintf(f, "[Model%d]\r\n", n);
    std::fclose(f);
    return prj;
}

const char* Verdict(bool met)
{
    return met ? "goal met" : "goal NOT met";
}

} // namespace

int main(int argc, char** argv)
{
    const bool keep = argc == 4 && std::string(argv[3]) == "--keep";
    if (argc != 3 && !keep) {
        std::fprintf(stderr, "usage: floor_ratios FLOOR TOS_CLI [--keep]\n");
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
        double goal; // the ratio to the floor to stay within
    };
    const Work works[] = {
        {"tos-cli objects, 30,000 models", {floor, scn(scene)}, {cli, "objects", scene}, 1.5},
        {"tos-cli script, 10,000 turned copies",
         {floor, scn(trees)},
         {cli, "script", trees, "Stem001", "--max-file", "C:\\m\\Stem.max", "--use-max-name",
          "--no-save"},
         2.5},
        {"tos-cli map, 30,000 models",
         {floor, scn(scene)},
         {cli, "map", scene, "--output", (folder / "Scene.svg").string()},
         2.5},
    };
    std::printf("%-40s %10s %10s %8s %8s\n", "work", "ms", "floor ms", "ratio", "goal");
    double objectsPeak = 0;
    for (const Work& w : works) {
        const auto [f, c] = tos::bench::MedianRuns(w.floor, w.command, 15);
        if (&w == &works[0])
            objectsPeak = c.peakMiB;
        std::printf("%-40s %10.1f %10.1f %7.1fx %7.1fx  %s\n", w.what, c.ms, f.ms, c.ms / f.ms,
                    w.goal, Verdict(c.ms / f.ms <= w.goal));
    }
    const double sceneMiB = static_cast<double>(std::filesystem::file_size(scn(scene))) / 1048576.0;
    const double peakGoal = 1.5 * sceneMiB + 10;
    std::printf("peak memory, tos-cli objects, 30,000 models: %.1f MiB (scene %.1f MiB; goal <= "
                "%.1f MiB)  %s\n",
                objectsPeak, sceneMiB, peakGoal, Verdict(objectsPeak <= peakGoal));

    const std::string many = WriteManySections(folder, 6'600'000);
    const double manyMB = static_cast<double>(std::filesystem::file_size(scn(many))) / 1e6;
    const auto [floorMany, cliMany] =
        tos::bench::MedianRuns({floor, scn(many)}, {cli, "objects", many}, 3);
    std::printf("tos-cli objects, 6.6 million one-line sections (%.0f MB): %.2f s, peak %.0f MB "
                "(floor %.2f s, %.1fx; goal <= 3 s, <= 300 MB)  %s\n",
                manyMB, cliMany.ms / 1000, cliMany.peakMiB * 1.048576, floorMany.ms / 1000,
                cliMany.ms / floorMany.ms,
                Verdict(cliMany.ms <= 3000 && cliMany.peakMiB * 1.048576 <= 300));
    if (keep)
        std::printf("scenes kept in %s\n", folder.string().c_str());
    else
        std::filesystem::remove_all(folder);
    return 0;
}
