#include <gtest/gtest.h>

#include <QString>
#include <QXmlStreamReader>
#include <sstream>

#include "common/scratch.h"
#include "map/scene_map.h"
#include "map/svg_writer.h"

namespace tos::test {
namespace {

// How many elements stand for a model or a placement; fails the test when the
// document is no well-formed SVG 1.1.
std::size_t CountModelElements(const std::string& svg)
{
    QXmlStreamReader xml(QByteArray::fromStdString(svg));
    std::size_t count = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QString("svg")) {
            EXPECT_EQ(xml.attributes().value("version").toString(), "1.1");
        }
        count += xml.attributes().hasAttribute("data-model") ? 1 : 0;
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString() << " at line "
                                 << xml.lineNumber();
    return count;
}

std::string Svg(const SceneMap& map)
{
    std::ostringstream out;
    WriteSvg(map, out);
    return out.str();
}

// Perimeter tiles on a 100-unit terrain, so one picture unit is one scene unit.
SceneMap SmallMap()
{
    SceneMap map;
    map.scene = "C:\\Szenen\\T\xE4ler & <H\xF6he>.scn";
    map.tiles = 2;
    map.terrainSide = 100;
    map.mainTile = false;
    map.tile = 50;
    map.selection = "Caf\xE9 \x80 \"1\"\x01";
    // clang-format off
    map.models = {
        {.number = 7, .value = "Oak.SLT", .kind = ModelKind::Object, .x = 70, .y = 4, .z = 80,
         .taken = true},
        {.number = 8, .value = "Rock.xyz", .kind = ModelKind::Other, .x = 60, .z = 5}};
    map.placements = {
        {.number = 7, .at = {70, 80}, .folded = GroundPoint{20, 30}, .lookX = 1, .maxX = -20,
         .maxY = 30, .first = true},
        {.number = 9, .at = {60, 90}, .folded = GroundPoint{10, 40}, .maxX = -10}};
    // clang-format on
    map.notes = {"The scene file cannot be read: C:\\Szenen\\T\xE4ler.scn"};
    return map;
}

// The picture of a small map, byte for byte: texts escaped, the colours of each kind,
// every model and placement with its hover text, the notes under the picture.
TEST(SvgWriter, WritesTheMapsTextsColoursAndHoverTexts)
{
    const std::string svg = Svg(SmallMap());
    EXPECT_EQ(svg, ReadBytes(std::string(TOS_TEST_DATA_DIR) + "/map/small_map.svg"));
    EXPECT_EQ(CountModelElements(svg), 2u + 4u);
}

TEST(SvgWriter, SizePerModel)
{
    SceneMap map = SmallMap();
    map.models.clear();
    map.placements.clear();
    const std::size_t empty = Svg(map).size();
    // clang-format off
    for (std::int32_t n = 1; n <= 1000; ++n)
        map.models.push_back({.number = 100000 + n, .value = "Tree_KV_Oak.SLT",
                              .kind = ModelKind::TripleBale, .x = 1234.56789 + n, .y = 0,
                              .z = -3456.78912 - n, .taken = true});
    // clang-format on
    const std::string svg = Svg(map);
    EXPECT_EQ(CountModelElements(svg), 1000u);
    // The element and its hover text.
    EXPECT_LE((svg.size() - empty) / 1000.0, 200.0);
}

} // namespace
} // namespace tos::test
