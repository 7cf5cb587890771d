#include <benchmark/benchmark.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

#include <chrono>
#include <vector>

#include "cli/cli_session.h"
#include "cli/commands.h"
#include "forms/app.h"
#include "scene_generator.h"

namespace {

// How often a text stands in another.
std::size_t CountOf(const std::string& text, const std::string& what)
{
    std::size_t count = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++count;
    return count;
}

std::string ReadAll(const std::string& path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

// 30,000 models, all on the main tile, of three stems in turn, so Stem001 stands
// 10,000 times; every model is tilted, so each copy gets three rotate rows.
tos::bench::SceneLayout ForestLayout()
{
    tos::bench::SceneLayout layout;
    layout.models = 30000;
    layout.stems = 3;
    layout.stemsInTurn = true;
    layout.stockShare = 0;
    layout.mainTileShare = 1.0;
    layout.tiltedShare = 1.0;
    return layout;
}

// tos-cli script end to end: start-up, load, Process for Stem001, save, print.
void BM_ScriptCommand(benchmark::State& state)
{
    const tos::bench::GeneratedProject project("script", ForestLayout());
    const auto placements = CountOf(ReadAll(project.Scene()), "SLT=Stem001.SLT\r\n");
    const std::string prj = project.Prj();
    const char* argv[] = {"tos-cli",       "script",     prj.c_str(),
                          "Stem001",       "--max-file", "C:\\Models\\Stem.max",
                          "--use-max-name"};
    std::size_t rows = 0;
    for (auto _ : state) {
        std::ostringstream out, err;
        if (tos::cli::Run(7, argv, out, err, project.Folder()) != 0) {
            state.SkipWithError(("tos-cli script failed: " + err.str()).c_str());
            return;
        }
        const std::string listing = out.str();
        rows = static_cast<std::size_t>(std::count(listing.begin(), listing.end(), '\n'));
        benchmark::DoNotOptimize(rows);
    }
    state.counters["placements"] = static_cast<double>(placements);
    state.counters["rows"] = static_cast<double>(rows);
}
BENCHMARK(BM_ScriptCommand)->Unit(benchmark::kMillisecond)->UseRealTime();

// The forest of BM_ScriptCommand loaded once, with the form ready for Process.
struct LoadedForest {
    LoadedForest() : project("style", ForestLayout()), context{out, err, project.Folder(), {}}
    {
        tos::cli::LoadOptions load;
        load.project = project.Prj();
        tos::cli::StartAndLoad(app, platform, load);
        app.main.txtMaxFile.SetText("C:\\Models\\Stem.max");
        app.main.txtMaxObjectName.SetText("Stem");
        app.main.comboSelectObject.SetText("Stem001");
    }

    // One Process in the style given: the script built, saved and checked.
    double Process(bool max2008)
    {
        app.main.chkMax2008.SetValue(max2008 ? 1 : 0);
        const auto start = std::chrono::steady_clock::now();
        app.main.btnProcess.Click.Fire();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }

    tos::bench::GeneratedProject project;
    std::ostringstream out, err;
    tos::cli::CommandContext context;
    tos::cli::CliPlatform platform{context};
    tos::App app{platform};
};

// Process alone for 10,000 turned copies, in the classic style (0) and the
// style for 3ds Max 2008 and later (1).
void BM_ProcessStyle(benchmark::State& state)
{
    LoadedForest forest;
    const bool max2008 = state.range(0) == 1;
    for (auto _ : state)
        state.SetIterationTime(forest.Process(max2008));
    if (forest.platform.MessageCount() != 0)
        state.SkipWithError(("Process showed a message: " + forest.err.str()).c_str());
    state.counters["rows"] = static_cast<double>(forest.app.main.List2.RowCount());
}
BENCHMARK(BM_ProcessStyle)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseManualTime();

// The two styles in turn, so both meet the same machine: the median of the
// newer style's time over the classic one's. The goal is at most 1.2.
void BM_StyleRatio(benchmark::State& state)
{
    LoadedForest forest;
    std::vector<double> ratios;
    for (auto _ : state) {
        const double classic = forest.Process(false);
        ratios.push_back(forest.Process(true) / classic);
    }
    std::sort(ratios.begin(), ratios.end());
    const double median = ratios[ratios.size() / 2];
    state.counters["max2008_over_classic"] = median;
    state.counters["goal_1_2_met"] = median <= 1.2 ? 1 : 0;
}
BENCHMARK(BM_StyleRatio)->Iterations(15)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
