#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

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

// A scene of numbered model sections as the scene editor writes them, in a fresh folder.
class Scene {
public:
    explicit Scene(int models)
    {
        folder_ = std::filesystem::temp_directory_path() /
                  ("tos-bench-profile-" + std::to_string(std::random_device{}()));
        std::filesystem::create_directories(folder_);
        path_ = (folder_ / "scene.scn").string();

        std::mt19937 rng(7);
        std::uniform_real_distribution<double> ground(0, 3840), height(0, 40), unit(-1, 1);
        std::string text = "[Environment]\r\nTerrainWidth=5\r\nTerrainWidthScale=3.0\r\n\r\n"
                           "[StaticModels]\r\nNumberOfStaticModels=" +
                           std::to_string(models) + "\r\n\r\n";
        char buf[160];
        for (int n = 1; n <= models; ++n) {
            std::snprintf(buf, sizeof buf,
                          "[Model%d]\r\nSLT=Stem%03d.SLT\r\nPosition=%.1f,%.1f,%.1f\r\n"
                          "LookVector=%.3f,%.3f,%.3f\r\nUpVector=%.3f,%.3f,%.3f\r\n\r\n",
                          n, static_cast<int>(rng() % 100), ground(rng), height(rng), ground(rng),
                          unit(rng), unit(rng), unit(rng), unit(rng), unit(rng), unit(rng));
            text += buf;
        }
        std::ofstream(path_, std::ios::binary)
            .write(text.data(), static_cast<std::streamsize>(text.size()));
        size_ = text.size();
    }
    ~Scene()
    {
        std::error_code ec;
        std::filesystem::remove_all(folder_, ec);
    }
    const std::string& Path() const { return path_; }
    std::size_t Size() const { return size_; }

private:
    std::filesystem::path folder_;
    std::string path_;
    std::size_t size_ = 0;
};

// Reads SLT and Position of random models, one read per iteration.
void RandomReads(benchmark::State& state, int models, bool largeFile)
{
    const Scene scene(models);
    if ((scene.Size() >= 65535) != largeFile) {
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
            profiles.GetINIString(sections[i % sections.size()], keys[i & 1], scene.Path());
        bytes += value.size();
        benchmark::DoNotOptimize(value.data());
        ++i;
    }
    if (platform.messages != 0 || bytes == 0)
        state.SkipWithError("reads failed");
    state.SetItemsProcessed(state.iterations());
    state.counters["file_bytes"] = static_cast<double>(scene.Size());
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
    const Scene scene(kModels);
    CountingPlatform platform;
    tos::ProfileFiles profiles(platform);
    std::vector<std::string> sections;
    for (int n = 1; n <= kModels; ++n)
        sections.push_back("Model" + std::to_string(n));

    for (auto _ : state) {
        profiles.FlushProfileFile(scene.Path());
        for (const auto& s : sections) {
            benchmark::DoNotOptimize(profiles.GetINIString(s, "SLT", scene.Path()).data());
            benchmark::DoNotOptimize(profiles.GetINIString(s, "Position", scene.Path()).data());
        }
    }
    if (platform.messages != 0)
        state.SkipWithError("reads failed");
    state.SetItemsProcessed(state.iterations() * kModels * 2);
}
BENCHMARK(BM_OwnRoadWholeScene)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
