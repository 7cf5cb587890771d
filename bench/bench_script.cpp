#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

#include "cli/commands.h"
#include "scene_generator.h"

namespace {

// 30,000 models, all on the main tile, of as few stems as it takes for one stem
// (Stem001) to stand about the given number of times; every model has a general
// orientation, so each copy gets up to three rotate rows.
class GeneratedProject {
public:
    explicit GeneratedProject(int stems)
    {
        folder_ = std::filesystem::temp_directory_path() /
                  ("tos-bench-script-" + std::to_string(std::random_device{}()));
        std::filesystem::create_directories(folder_);
        tos::bench::SceneLayout layout;
        layout.models = 30000;
        layout.stems = stems;
        layout.stockShare = 0;
        layout.mainTileShare = 1.0;
        prj_ = tos::bench::WriteProject(folder_.string(), "Generated", layout);
        const std::string scene = ReadAll(folder_ / "Generated.scn");
        placements_ = CountOf(scene, "SLT=Stem001.SLT\r\n");
    }
    ~GeneratedProject()
    {
        std::error_code ec;
        std::filesystem::remove_all(folder_, ec);
    }
    const std::string& Prj() const { return prj_; }
    std::string Folder() const { return folder_.string(); }
    double Placements() const { return static_cast<double>(placements_); }

private:
    static std::string ReadAll(const std::filesystem::path& path)
    {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }
    static std::size_t CountOf(const std::string& text, const std::string& what)
    {
        std::size_t count = 0;
        for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
            ++count;
        return count;
    }

    std::filesystem::path folder_;
    std::string prj_;
    std::size_t placements_ = 0;
};

// tos-cli script end to end: start-up, load, Process for Stem001, save, print.
// The script buffer holds at most 32,767 rows, so with 10,000 turned copies the
// build stops with its overflow message once the buffer is full (status 1).
void BM_ScriptCommand(benchmark::State& state)
{
    const GeneratedProject project(static_cast<int>(state.range(0)));
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
    state.counters["placements"] = project.Placements();
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["status"] = status;
}
// 3 stems: about 10,000 placements; 6 stems: about 5,000, a script that fits.
BENCHMARK(BM_ScriptCommand)->Arg(3)->Arg(6)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
