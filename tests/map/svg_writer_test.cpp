#include <gtest/gtest.h>

#include <QString>
#include <QXmlStreamReader>
#include <sstream>

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

TEST(SvgWriter, WritesTheMapsTextsColoursAndHoverTexts)
{
    const std::string svg = Svg(SmallMap());
    const char* fragments[] = {
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<svg ",
        "<title>Scene map of C:\\Szenen\\T&#228;ler &amp; &lt;H&#246;he&gt;.scn</title>",
        ".object{fill:#2b6cb0}\n.billboard{fill:#d53f8c}\n.bale{fill:#d69e2e}\n"
        ".triple-bale{fill:#9c4221}\n.drum{fill:#2f855a}\n.other{fill:#718096}\n",
        "circle{fill-opacity:0.3;stroke:none}\n",
        "<path class=\"grid\" d=\"M50 0V100M0 50H100\"/>",
        "<rect id=\"fold-tile\" class=\"fold-tile\" x=\"0\" y=\"0\" width=\"50\" height=\"50\"/>",
        "<circle class=\"object taken\" data-model=\"7\" cx=\"80\" cy=\"70\" r=\"0.45\">"
        "<title>Model 7\nOak.SLT\nPosition 70, 4, 80</title></circle>",
        "<circle class=\"other\" data-model=\"8\" cx=\"5\" cy=\"60\" r=\"0.45\"><title>Model 8\n"
        "Rock.xyz\nPosition 60, 0, 5\nleft out of the lists by the load</title></circle>",
        // Each placement where the scene has it, with its heading, then where it lands.
        "<path class=\"placement first\" data-model=\"7\" d=\"M79.1 70a0.9 0.9 0 1 0 1.8 0a0.9 0.9 "
        "0 1 0 -1.8 0M80 70l2.2 0\"><title>Model 7\nOak.SLT\nPosition 70, 4, 80\nfirst object, "
        "merged from the .max file\nin 3ds Max at -20, 30 (before the object scale)</title></path>",
        "<path class=\"folded\" data-model=\"7\" d=\"M80 70L30 20M29.1 20a",
        "from the .max file\nfolded to 20, 30\nin 3ds Max at -20, 30 (before the object scale)",
        "<path class=\"placement\" data-model=\"9\" d=\"M89.1 60a0.9 0.9 0 1 0 1.8 0a0.9 0.9 0 1 0 "
        "-1.8 0\"><title>Model 9\ncopy 1 of 1\nin 3ds Max at -10, 0 (before the object scale)",
        ">Faint: left out of the lists by the load</text>",
        ">The tile perimeter copies fold onto</text>",
        // Under the picture: the status line and then the reader's notes.
        ">Caf&#233; &#8364; &quot;1&quot;?: 2 placements, perimeter tiles folded onto one tile "
        "&#8212; 2 models</text>\n<text x=\"0\" y=\"110.5\" text-anchor=\"start\">The scene file "
        "cannot be read: C:\\Szenen\\T&#228;ler.scn</text>",
    };
    for (const char* fragment : fragments)
        EXPECT_NE(svg.find(fragment), std::string::npos) << fragment << "\nin\n" << svg;
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
