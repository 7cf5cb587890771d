#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "map/scene_map.h"

namespace tos {

// How a map looks and what it says, shared by the map window and the SVG picture
// so that both tell the same. Texts are bytes of the code page, like all text of
// the program; colours are 0xRRGGBB.

std::uint32_t KindColour(ModelKind kind);

namespace map_colour {
inline constexpr std::uint32_t kTerrain = 0xeef3e6;
inline constexpr std::uint32_t kTerrainEdge = 0x6b7d5c;
inline constexpr std::uint32_t kGrid = 0xb4c2a5;
inline constexpr std::uint32_t kMainTile = 0xffe9a8;
inline constexpr std::uint32_t kMainTileEdge = 0xc27c00;
inline constexpr std::uint32_t kCopy = 0xe53e3e;
inline constexpr std::uint32_t kFirst = 0x000000;
inline constexpr std::uint32_t kFolded = 0x805ad5;
inline constexpr std::uint32_t kAxis = 0x000000;
} // namespace map_colour

// Opacity of a model the load left out, and of the main tile's fill.
inline constexpr double kFaintOpacity = 0.3;
inline constexpr double kMainTileOpacity = 0.45;

// A coordinate as the map writes it: shortest form to eight significant digits.
std::string MapNumber(double value);
// The same, appended: long texts are built in one buffer.
void AppendMapNumber(std::string& out, double value);

// The same, without an allocation, for a writer that needs a number's text twice.
class MapNumberText {
public:
    explicit MapNumberText(double value);
    std::string_view View() const { return {text_, size_}; }

private:
    char text_[24];
    std::size_t size_;
};

// A model's position, each number written once.
struct PositionText {
    explicit PositionText(const MapModel& model) : x(model.x), y(model.y), z(model.z) {}
    MapNumberText x, y, z;
};

// One line of the legend: what is drawn, and its caption.
enum class LegendMark { Model, FaintModel, Copy, First, Folded, MainTile, FoldTile };
struct LegendEntry {
    LegendMark mark = LegendMark::Model;
    ModelKind kind = ModelKind::Other; // for the two model marks
    const char* caption = "";
};
// The fold tile is listed only in perimeter mode, where it is drawn.
std::vector<LegendEntry> LegendOf(const SceneMap& map);

// The line under the picture: selection, placements, tile choice, models.
std::string StatusLine(const SceneMap& map);

// Hover texts: a model's number, value and position; a placement adds its place in
// the script and where it stands in 3ds Max, and for folded where it lands.
std::string DescribeModel(const SceneMap& map, const MapModel& model);
std::string DescribePlacement(const SceneMap& map, std::size_t index, bool folded);
// The same texts, appended; a model's with its position already written.
void AppendModelDescription(std::string& out, const MapModel& model, const PositionText& position);
void AppendPlacementDescription(std::string& out, const SceneMap& map, std::size_t index,
                                bool folded);

} // namespace tos
