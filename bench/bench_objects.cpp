#include <benchmark/benchmark.h>

#include <algorithm>
#include <sstream>
#include <string>

#include "cli/commands.h"
#include "scene_generator.h"

namespace {

// tos-cli objects end to end: start-up, load, print the object list.
void BM_ObjectsCommand(benchmark::State& state)
{
    tos::bench::SceneLayout layout;
    layout.models = static_cast<std::int32_t>(state.range(0));
    const tos::bench::GeneratedProject project("objects", layout);
    const char* argv[] = {"tos-cli", "objects", project.Prj().c_str()};
    std::size_t rows = 0;
    for (auto _ : state) {
        std::ostringstream out, err;
        const int status = tos::cli::Run(3, argv, out, err, project.Folder());
        if (status != 0) {
            state.SkipWithError(("tos-cli objects failed: " + err.str()).c_str());
            return;
        }
        const std::string listing = out.str();
        rows = static_cast<std::size_t>(std::count(listing.begin(), listing.end(), '\n'));
        benchmark::DoNotOptimize(rows);
    }
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["models/s"] = benchmark::Counter(static_cast<double>(state.range(0)),
                                                    benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_ObjectsCommand)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
