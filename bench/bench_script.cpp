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
// The script buffer holds at most 32,767 rows, so with 10,000 turned copies the
// build stops with its overflow message once the buffer is full (status 1).
void BM_ScriptCommand(benchmark::State& state)
{
    // 30,000 models, all on the main tile, of as few stems as it takes for one stem
    // (Stem001) to stand about the given number of times; every model has a general
    // orientation, so each copy gets up to three rotate rows.
    tos::bench::SceneLayout layout;
    layout.models = 30000;
    layout.stems = static_cast<int>(state.range(0));
    layout.stockShare = 0;
    layout.mainTileShare = 1.0;
    const tos::bench::GeneratedProject project("script", layout);
    const auto placements = CountOf(ReadAll(project.Scene()), "SLT=Stem001.SLT\r\n");
    const std::string prj = project.Prj();
    const char* argv[] = {"tos-cli",       "script",     prj.c_str(),
                          "Stem001",       "--max-file", "C:\\Models\\Stem.max",
                          "--use-max-name"};
    std::size_t rows = 0;
    int status = 0;
    for (auto _ : state) {
        std::ostringstream out, err;
        status = tos::cli::Run(7, argv, out, err, project.Folder());
        if (status == 2) {
            state.SkipWithError(("tos-cli script failed: " + err.str()).c_str());
            return;
        }
        const std::string listing = out.str();
        rows = static_cast<std::size_t>(std::count(listing.begin(), listing.end(), '\n'));
        benchmark::DoNotOptimize(rows);
    }
    state.counters["placements"] = static_cast<double>(placements);
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["status"] = status;
}
// 3 stems: about 10,000 placements; 6 stems: about 5,000, a script that fits.
BENCHMARK(BM_ScriptCommand)->Arg(3)->Arg(6)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
