#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "scene_generator.h"
#include "support/platform.h"
#include "support/profile.h"

namespace {

// Counts the message boxes a read shows; a benchmark with any has gone wrong.
class CountingPlatform : public tos::Platform {
public:
    void ShowMessage(const tos::MessageBox&) override { ++messages; }
    std::string ShowFileDialog(const tos::FileDialogRequest&) override { return ""; }
    std::string ReadSetting(const std::string&, const std::string&) override { return ""; }
    void WriteSetting(const std::string&, const std::string&, const std::string&) override {}
    bool OpenDocument(const std::string&) override { return false; }
    std::string ProgramFolder() override { return ""; }
    void SetMousePointer(tos::FormId, int) override {}
    tos::ScreenSize Screen() override { return {}; }
    int messages = 0;
};

// A scene of the given size, of models that all stand on the main tile.
tos::bench::SceneLayout LayoutOf(int models)
{
    tos::bench::SceneLayout layout;
    layout.models = models;
    layout.stockShare = 0;
    return layout;
}

// Reads SLT and Position of random models, one read per iteration.
void RandomReads(benchmark::State& state, int models, bool largeFile)
{
    const tos::bench::GeneratedProject project("profile", LayoutOf(models));
    const std::string scene = project.Scene();
    const auto size = std::filesystem::file_size(scene);
    if ((size >= 65535) != largeFile) {
        state.SkipWithError("the scene is on the wrong road");
        return;
    }
    CountingPlatform platform;
    tos::ProfileFiles profiles(platform);

    std::mt19937 rng(11);
    std::vector<std::string> sections(4096);
    for (auto& s : sections)
        s = "Model" + std::to_string(1 + rng() % static_cast<unsigned>(models));
    const std::string keys[] = {"SLT", "Position"};

    std::size_t i = 0, bytes = 0;
    for (auto _ : state) {
        const std::string value =
            profiles.GetINIString(sections[i % sections.size()], keys[i & 1], scene);
        bytes += value.size();
        benchmark::DoNotOptimize(value.data());
        ++i;
    }
    if (platform.messages != 0 || bytes == 0)
        state.SkipWithError("reads failed");
    state.SetItemsProcessed(state.iterations());
    state.counters["file_bytes"] = static_cast<double>(size);
}

void BM_OwnRoadRandomReads(benchmark::State& state)
{
    RandomReads(state, 30000, true);
}
BENCHMARK(BM_OwnRoadRandomReads);

void BM_FirstRoadRandomReads(benchmark::State& state)
{
    RandomReads(state, 500, false);
}
BENCHMARK(BM_FirstRoadRandomReads);

// What a project load costs: SLT and Position of every model of the large scene in
// order, the file read and indexed afresh each time.
void BM_OwnRoadWholeScene(benchmark::State& state)
{
    constexpr int kModels = 30000;
    const tos::bench::GeneratedProject project("profile", LayoutOf(kModels));
    const std::string scene = project.Scene();
    CountingPlatform platform;
    tos::ProfileFiles profiles(platform);
    std::vector<std::string> sections;
    for (int n = 1; n <= kModels; ++n)
        sections.push_back("Model" + std::to_string(n));

    for (auto _ : state) {
        profiles.FlushProfileFile(scene);
        for (const auto& s : sections) {
            benchmark::DoNotOptimize(profiles.GetINIString(s, "SLT", scene).data());
            benchmark::DoNotOptimize(profiles.GetINIString(s, "Position", scene).data());
        }
    }
    if (platform.messages != 0)
        state.SkipWithError("reads failed");
    state.SetItemsProcessed(state.iterations() * kModels * 2);
}
BENCHMARK(BM_OwnRoadWholeScene)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
