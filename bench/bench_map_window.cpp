#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPixmap>
#include <sstream>
#include <string>

#include "cli/cli_session.h"
#include "forms/app.h"
#include "gui/scene_map_window.h"
#include "scene_generator.h"

namespace {

// The scene map window over the default 30,000-model scene: what a change of the
// selection costs until the window shows it (the placements again and a full repaint).
void BM_MapWindowFollowsSelection(benchmark::State& state)
{
    const tos::bench::GeneratedProject project("mapwindow", tos::bench::SceneLayout{});
    std::ostringstream out, err;
    tos::cli::CommandContext context{out, err, project.Folder(), {}};
    tos::cli::CliPlatform platform(context);
    tos::App app(platform);
    tos::cli::LoadOptions options;
    options.project = project.Prj();
    tos::cli::StartAndLoad(app, platform, options);

    tos::gui::SceneMapWindow window(app, nullptr);
    app.main.btnSceneMap.Click.Fire();
    QApplication::processEvents();
    auto* view = window.findChild<QWidget*>("sceneMapView");
    int stem = 0;
    for (auto _ : state) {
        stem = stem % 99 + 1;
        app.main.comboSelectObject.SetText("Stem" + std::string(stem < 10 ? "00" : "0") +
                                           std::to_string(stem));
        QApplication::processEvents();
        const QPixmap picture = view->grab();
        benchmark::DoNotOptimize(picture.cacheKey());
    }
    state.counters["models"] = static_cast<double>(window.Map().models.size());
}
BENCHMARK(BM_MapWindowFollowsSelection)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    // No display needed: the window draws into memory.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication qt(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
