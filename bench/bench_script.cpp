#include <benchmark/benchmark.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

#include "cli/commands.h"
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

// tos-cli script end to end: start-up, load, Process for Stem001, save, print.
void BM_ScriptCommand(benchmark::State& state)
{
    // 30,000 models, all on the main tile, of three stems in turn, so Stem001
    // stands 10,000 times; every model is tilted, so each copy gets three rotate rows.
    tos::bench::SceneLayout layout;
    layout.models = 30000;
    layout.stems = 3;
    layout.stemsInTurn = true;
    layout.stockShare = 0;
    layout.mainTileShare = 1.0;
    layout.tiltedShare = 1.0;
    const tos::bench::GeneratedProject project("script", layout);
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

} // namespace

BENCHMARK_MAIN();
