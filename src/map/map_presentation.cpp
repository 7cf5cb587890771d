#include "map/map_presentation.h"

#include <algorithm>
#include <cmath>

#include "support/conversions.h"

namespace tos {

std::uint32_t KindColour(ModelKind kind)
{
    switch (kind) {
    case ModelKind::Object:
        return 0x2b6cb0;
    case ModelKind::Billboard:
        return 0xd53f8c;
    case ModelKind::Bale:
        return 0xd69e2e;
    case ModelKind::TripleBale:
        return 0x9c4221;
    case ModelKind::Drum:
        return 0x2f855a;
    case ModelKind::Other:
        break;
    }
    return 0x718096;
}

std::string MapNumber(double value)
{
    if (std::abs(value) < 1e-9)
        return "0";
    return GeneralText(value, 8);
}

std::vector<LegendEntry> LegendOf(const SceneMap& map)
{
    std::vector<LegendEntry> legend;
    for (const ModelKind kind : {ModelKind::Object, ModelKind::Billboard, ModelKind::Bale,
                                 ModelKind::TripleBale, ModelKind::Drum, ModelKind::Other})
        legend.push_back({.mark = LegendMark::Model, .kind = kind, .caption = KindCaption(kind)});
    legend.push_back({.mark = LegendMark::FaintModel,
                      .kind = ModelKind::Other,
                      .caption = "Faint: left out of the lists by the load"});
    legend.push_back(
        {.mark = LegendMark::Copy, .caption = "Placement of a copy, with its heading"});
    legend.push_back(
        {.mark = LegendMark::First, .caption = "First object (merged from the .max file)"});
    legend.push_back(
        {.mark = LegendMark::Folded, .caption = "Where a perimeter copy lands after folding"});
    legend.push_back({.mark = LegendMark::MainTile, .caption = "Main tile window of the load"});
    if (!map.mainTile)
        legend.push_back(
            {.mark = LegendMark::FoldTile, .caption = "The tile perimeter copies fold onto"});
    return legend;
}

std::string StatusLine(const SceneMap& map)
{
    std::string text = map.selection.empty()
                           ? std::string("No row selected")
                           : map.selection + ": " + PlacementCount(map.placements.size());
    text += map.mainTile ? " on the main tile" : ", perimeter tiles folded onto one tile";
    // The code page's dash.
    return text + " \x97 " + std::to_string(map.models.size()) + " models";
}

namespace {

std::string ModelLines(const MapModel& m)
{
    return "Model " + std::to_string(m.number) + "\n" + m.value + "\nPosition " + MapNumber(m.x) +
           ", " + MapNumber(m.y) + ", " + MapNumber(m.z);
}

// A placement's model; a number the scene's models lack shows alone.
std::string ModelLines(const SceneMap& map, std::int32_t number)
{
    const auto it =
        std::lower_bound(map.models.begin(), map.models.end(), number,
                         [](const MapModel& m, std::int32_t n) { return m.number < n; });
    if (it == map.models.end() || it->number != number)
        return "Model " + std::to_string(number);
    return ModelLines(*it);
}

} // namespace

std::string DescribeModel(const SceneMap&, const MapModel& model)
{
    return ModelLines(model) + (model.taken ? "" : "\nleft out of the lists by the load");
}

std::string DescribePlacement(const SceneMap& map, std::size_t index, bool folded)
{
    const MapPlacement& p = map.placements.at(index);
    std::string text = ModelLines(map, p.number) + "\n";
    text += p.first ? std::string("first object, merged from the .max file")
                    : "copy " + std::to_string(index) + " of " +
                          std::to_string(map.placements.size() - 1);
    if (folded && p.folded)
        text += "\nfolded to " + MapNumber(p.folded->x) + ", " + MapNumber(p.folded->z);
    return text + "\nin 3ds Max at " + MapNumber(p.maxX) + ", " + MapNumber(p.maxY) +
           " (before the object scale)";
}

} // namespace tos
