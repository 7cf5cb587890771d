#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace tos::bench {

// What a generated scene holds. Defaults give the large scene the benchmarks
// load: 30,000 models of 100 object stems and all four stock groups, half of
// them on the main tile of a 5 x 5 terrain at grid resolution 3.0.
struct SceneLayout {
    std::int32_t models = 30000;
    int stems = 100;
    // Stems in turn (model n has stem (n - 1) mod stems), so each stands equally
    // often; otherwise each model's stem is drawn at random.
    bool stemsInTurn = false;
    // Share of the models that are stock objects, spread over the four groups.
    double stockShare = 0.1;
    // Share of the models placed inside the main tile; the rest lie on the perimeter tiles.
    double mainTileShare = 0.5;
    // Share of the models tilted off the vertical; the rest stand upright, turned about it.
    double tiltedShare = 0.3;
    int terrainWidth = 5;
    double gridRes = 3.0;
    std::uint32_t seed = 1;
};

// Models of as many distinct objects, one each, all on the main tile and none of
// them stock: the object list holds every one (Process All's benchmarks).
SceneLayout DistinctObjects(std::int32_t count);

// The scene text, CR LF line ends, in the order the scene editor writes it:
// Environment, StaticModels, then Model1..Model<models>. Upright models have an
// up vector of 0,1,0; tilted ones have look and up vectors off the axes, at right angles.
std::string GenerateScene(const SceneLayout& layout);

// Writes <folder>/<base>.prj and <folder>/<base>.scn; returns the .prj path.
std::string WriteProject(const std::string& folder, const std::string& base,
                         const SceneLayout& layout);

// A generated project <base>.prj / <base>.scn in a fresh temporary folder, which
// goes with the object.
class GeneratedProject {
public:
    GeneratedProject(const std::string& tag, const SceneLayout& layout);
    ~GeneratedProject();
    GeneratedProject(const GeneratedProject&) = delete;
    GeneratedProject& operator=(const GeneratedProject&) = delete;

    const std::string& Prj() const { return prj_; }
    std::string Scene() const { return (folder_ / "Generated.scn").string(); }
    std::string Folder() const { return folder_.string(); }

private:
    std::filesystem::path folder_;
    std::string prj_;
};

} // namespace tos::bench
