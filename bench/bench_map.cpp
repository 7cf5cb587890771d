#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "cli/cli_session.h"
#include "cli/commands.h"
#include "forms/app.h"
#include "map/scene_map.h"
#include "map/svg_writer.h"
#include "scene_generator.h"

namespace {

// The default generated scene, 30,000 models, loaded once as the window would.
struct LoadedScene {
    explicit LoadedScene(bool perimeter)
        : project("map", tos::bench::SceneLayout{}), context{out, err, project.Folder(), {}},
          platform(context), app(platform)
    {
        tos::cli::LoadOptions options;
        options.project = project.Prj();
        options.perimeter = perimeter;
        tos::cli::StartAndLoad(app, platform, options);
        app.main.comboSelectObject.SetText("Stem001");
    }

    tos::bench::GeneratedProject project;
    std::ostringstream out, err;
    tos::cli::CommandContext context;
    tos::cli::CliPlatform platform;
    tos::App app;
};

// The map built from the loaded form and scene, and its SVG written to a file.
// Target: at most 0.2 s for 30,000 models.
void BM_MapAndSvg(benchmark::State& state)
{
    LoadedScene scene(state.range(0) != 0);
    const std::string svgPath = scene.project.Folder() + "/Generated.svg";
    std::size_t models = 0, placements = 0;
    for (auto _ : state) {
        const tos::SceneMap map = tos::SceneMapper(scene.app).Build();
        std::ofstream file(svgPath, std::ios::binary | std::ios::trunc);
        tos::WriteSvg(map, file);
        file.close();
        models = map.models.size();
        placements = map.placements.size();
    }
    state.counters["models"] = static_cast<double>(models);
    state.counters["placements"] = static_cast<double>(placements);
    state.counters["svg_bytes"] = static_cast<double>(std::filesystem::file_size(svgPath));
}
BENCHMARK(BM_MapAndSvg)->ArgName("perimeter")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// What the window does when the selection changes: the placements again, the
// models kept.
void BM_MapSelectionChange(benchmark::State& state)
{
    LoadedScene scene(false);
    tos::SceneMapper mapper(scene.app);
    tos::SceneMap map = mapper.Build();
    int stem = 0;
    for (auto _ : state) {
        stem = stem % 99 + 1;
        scene.app.main.comboSelectObject.SetText("Stem" + std::string(stem < 10 ? "00" : "0") +
                                                 std::to_string(stem));
        mapper.PlaceSelection(map);
        benchmark::DoNotOptimize(map.placements.data());
    }
    state.counters["placements"] = static_cast<double>(map.placements.size());
}
BENCHMARK(BM_MapSelectionChange)->Unit(benchmark::kMillisecond);

// tos-cli map end to end: start-up, load, map, SVG file.
void BM_MapCommand(benchmark::State& state)
{
    const tos::bench::GeneratedProject project("mapcli", tos::bench::SceneLayout{});
    const std::string prj = project.Prj();
    const std::string svg = project.Folder() + "/Cli.svg";
    const char* argv[] = {"tos-cli", "map", prj.c_str(), "Stem001", "--output", svg.c_str()};
    for (auto _ : state) {
        std::ostringstream out, err;
        if (tos::cli::Run(6, argv, out, err, project.Folder()) != 0) {
            state.SkipWithError(("tos-cli map failed: " + err.str()).c_str());
            return;
        }
    }
}
BENCHMARK(BM_MapCommand)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
