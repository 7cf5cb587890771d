#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tos {

struct App;

// What a model of the scene is to the program: a candidate of the object list
// (an .SLT model or a misc stock object), one of the four stock groups, or
// something the program never places.
enum class ModelKind { Object, Billboard, Bale, TripleBale, Drum, Other };

// The class name of a kind in the SVG picture, and its caption in legends.
const char* KindClass(ModelKind kind);
const char* KindCaption(ModelKind kind);

// A point of the scene's ground plane, x and z.
struct GroundPoint {
    double x = 0;
    double z = 0;
};

struct MapModel {
    std::int32_t number = 0; // n of Model<n>
    std::string value;       // its SLT value, as the scene has it
    ModelKind kind = ModelKind::Other;
    double x = 0, y = 0, z = 0; // Position; what is missing reads as 0
    bool taken = false;         // the last load put it into a record list
};

// One copy that the script of the selection makes, in the order it makes them.
struct MapPlacement {
    std::int32_t number = 0;
    GroundPoint at;                    // the model's position in the scene
    std::optional<GroundPoint> folded; // perimeter mode: where the copy lands
    double lookX = 0, lookY = 0;       // heading: the look vector in 3ds Max's x and y
    double maxX = 0, maxY = 0;         // where it stands in 3ds Max, before the object scale
    bool first = false;                // the merged object itself
};

// A picture of the loaded scene and of what the selected row's script will do.
struct SceneMap {
    std::string scene; // path of the scene file, as text to show
    int tiles = 0;     // TerrainWidth, rounded as the window rounds it
    double gridRes = 0;
    double terrainSide = 0; // tiles of GridRes x 256 each; 0 when that says nothing
    // The main tile window of the load.
    double windowStart = 0, windowEnd = 0;
    // The builder's tile choice and geometry: where 3ds Max's origin lies.
    bool mainTile = true;
    double tile = 0, centre = 0, limit = 0;

    std::vector<MapModel> models; // ascending model number
    std::string selection;        // the text of the object list's box
    std::vector<MapPlacement> placements;
    // What the program would have said in message boxes while reading, which the map
    // never shows as boxes.
    std::vector<std::string> notes;
};

// The smallest rectangle of the picture that holds the terrain, every model and
// every placement, in picture coordinates: right is scene z, down is scene x, so
// 3ds Max's x points right and its y up.
struct PictureBounds {
    double left = 0, top = 0, right = 0, bottom = 0;
};
PictureBounds BoundsOf(const SceneMap& map);

// "1 placement", "2 placements": how captions count the placements.
std::string PlacementCount(std::size_t count);

// A scale bar's length in scene units: 1, 2 or 5 times a power of ten, at most
// the length given (and 1 when that is not above 0).
double ScaleBarLength(double atMost);

// Builds maps of the loaded project from the scene, the record lists and the
// form's values. It only looks: it changes no control, no list and no run state,
// and shows no message box (its own reader records them in the map's notes).
class SceneMapper {
public:
    explicit SceneMapper(App& app);
    ~SceneMapper();
    SceneMapper(const SceneMapper&) = delete;
    SceneMapper& operator=(const SceneMapper&) = delete;

    // The whole map.
    SceneMap Build();

    // Reads the scene's models and which of them the lists hold: the part that
    // changes only with a load.
    void ReadModels(SceneMap& map);

    // The grid, the tile choice and the placements of the selection: the part
    // that follows the form.
    void PlaceSelection(SceneMap& map);

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace tos
