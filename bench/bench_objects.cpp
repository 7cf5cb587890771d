#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <sstream>
#include <string>

#include "cli/commands.h"
#include "scene_generator.h"

namespace {

// A project of the given size in a fresh temporary folder, removed at the end.
class GeneratedProject {
public:
    explicit GeneratedProject(std::int32_t models)
    {
        folder_ = std::filesystem::temp_directory_path() /
                  ("tos-bench-objects-" + std::to_string(std::random_device{}()));
        std::filesystem::create_directories(folder_);
        tos::bench::SceneLayout layout;
        layout.models = models;
        prj_ = tos::bench::WriteProject(folder_.string(), "Generated", layout);
    }
    ~GeneratedProject()
    {
        std::error_code ec;
        std::filesystem::remove_all(folder_, ec);
    }
    const std::string& Prj() const { return prj_; }
    std::string Folder() const { return folder_.string(); }

private:
    std::filesystem::path folder_;
    std::string prj_;
};

// tos-cli objects end to end: start-up, load, print the object list.
void BM_ObjectsCommand(benchmark::State& state)
{
    const GeneratedProject project(static_cast<std::int32_t>(state.range(0)));
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
