#include "scene_generator.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <random>
#include <stdexcept>

namespace tos::bench {

namespace {

// A few names from each stock group, so every group's list fills.
constexpr std::array kStockValues = {
    "Billboard_FOX.SLB", "Billboard_Oakley.SLB", "Billboard_RK.SLB", "FoxHB.SLB", "Fox03.SLB",
    "RainbowHB.SLB",     "TripleBale01.SLB",     "TripleBale07.SLB", "50Gal.SLB", "Trash_Can01.SLB",
};

struct Vec {
    double x, y, z;
};

Vec Normalised(Vec v)
{
    const double len = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    return {v.x / len, v.y / len, v.z / len};
}

Vec Cross(Vec a, Vec b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

std::string Triple(double x, double y, double z, const char* format)
{
    char buf[96];
    std::snprintf(buf, sizeof buf, format, x, y, z);
    return buf;
}

std::string Fixed1(double v)
{
    char buf[48];
    std::snprintf(buf, sizeof buf, "%.1f", v);
    return buf;
}

class Generator {
public:
    explicit Generator(const SceneLayout& layout) : layout_(layout), rng_(layout.seed) {}

    std::string Scene()
    {
        std::string text;
        text.reserve(static_cast<std::size_t>(layout_.models) * 130 + 256);
        text += "[Environment]\r\nTerrainWidth=" + std::to_string(layout_.terrainWidth) +
                "\r\nTerrainWidthScale=" + Fixed1(layout_.gridRes) +
                "\r\n\r\n[StaticModels]\r\nNumberOfStaticModels=" + std::to_string(layout_.models) +
                "\r\n\r\n";
        for (std::int32_t n = 1; n <= layout_.models; ++n)
            AppendModel(text, n);
        return text;
    }

private:
    double Uniform(double lo, double hi)
    {
        return std::uniform_real_distribution<double>(lo, hi)(rng_);
    }

    std::string ModelValue(std::int32_t n)
    {
        if (Uniform(0, 1) < layout_.stockShare)
            return kStockValues[std::uniform_int_distribution<std::size_t>(0, kStockValues.size() -
                                                                                  1)(rng_)];
        const int stem = layout_.stemsInTurn
                             ? static_cast<int>((n - 1) % layout_.stems)
                             : std::uniform_int_distribution<int>(0, layout_.stems - 1)(rng_);
        char buf[48];
        // Every third stem comes in variants, as trees and barns do.
        if (stem % 3 == 0)
            std::snprintf(buf, sizeof buf, "Stem%03d_KV_Kind%d.SLT", stem,
                          std::uniform_int_distribution<int>(1, 4)(rng_));
        else
            std::snprintf(buf, sizeof buf, "Stem%03d.SLT", stem);
        return buf;
    }

    // x and z inside the main tile, or on one of the tiles around it.
    std::pair<double, double> Ground()
    {
        const double tile = layout_.gridRes * (layout_.terrainWidth == 6 ? 512 : 256);
        const double start =
            layout_.terrainWidth == 6 ? tile : tile * (layout_.terrainWidth - 1) / 2.0;
        const double end = start + tile;
        const double side = tile * layout_.terrainWidth;
        if (Uniform(0, 1) < layout_.mainTileShare)
            return {Uniform(start, end), Uniform(start, end)};
        for (;;) {
            const double x = Uniform(0, side), z = Uniform(0, side);
            if (x < start || x > end || z < start || z > end)
                return {x, z};
        }
    }

    // Look and up vectors as the scene editor writes them.
    std::pair<std::string, std::string> Orientation()
    {
        if (Uniform(0, 1) >= layout_.tiltedShare) {
            const double a = Uniform(-3.14159, 3.14159);
            return {Triple(std::sin(a), 0, std::cos(a), "%.3f,%g,%.3f"), "0,1,0"};
        }
        const Vec look = Normalised({Uniform(-1, 1), Uniform(-0.3, 0.3), Uniform(-1, 1)});
        const Vec side =
            Normalised(Cross(look, Normalised({Uniform(-0.2, 0.2), 1, Uniform(-0.2, 0.2)})));
        const Vec up = Cross(side, look);
        return {Triple(look.x, look.y, look.z, "%.3f,%.3f,%.3f"),
                Triple(up.x, up.y, up.z, "%.3f,%.3f,%.3f")};
    }

    void AppendModel(std::string& text, std::int32_t n)
    {
        const auto [x, z] = Ground();
        const auto [look, up] = Orientation();
        text += "[Model" + std::to_string(n) + "]\r\nSLT=" + ModelValue(n) +
                "\r\nPosition=" + Triple(x, Uniform(0, 40), z, "%.1f,%.1f,%.1f") +
                "\r\nLookVector=" + look + "\r\nUpVector=" + up + "\r\n\r\n";
    }

    SceneLayout layout_;
    std::mt19937 rng_;
};

void WriteFile(const std::string& path, const std::string& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out)
        throw std::runtime_error("cannot write " + path);
}

} // namespace

SceneLayout DistinctObjects(std::int32_t count)
{
    SceneLayout layout;
    layout.models = count;
    layout.stems = count;
    layout.stemsInTurn = true;
    layout.stockShare = 0;
    layout.mainTileShare = 1.0;
    return layout;
}

std::string GenerateScene(const SceneLayout& layout)
{
    return Generator(layout).Scene();
}

std::string WriteProject(const std::string& folder, const std::string& base,
                         const SceneLayout& layout)
{
    const std::string prj = folder + "/" + base + ".prj";
    WriteFile(prj, "");
    WriteFile(folder + "/" + base + ".scn", GenerateScene(layout));
    return prj;
}

GeneratedProject::GeneratedProject(const std::string& tag, const SceneLayout& layout)
{
    folder_ = std::filesystem::temp_directory_path() /
              ("tos-bench-" + tag + "-" + std::to_string(std::random_device{}()));
    std::filesystem::create_directories(folder_);
    prj_ = WriteProject(folder_.string(), "Generated", layout);
}

GeneratedProject::~GeneratedProject()
{
    std::error_code ec;
    std::filesystem::remove_all(folder_, ec);
}

} // namespace tos::bench
