#include <gtest/gtest.h>

#include <QString>
#include <QXmlStreamReader>
#include <sstream>

#include "map/map_fixture.h"
#include "map/scene_map.h"
#include "map/svg_writer.h"

namespace tos::test {
namespace {

struct Element {
    std::string name;
    std::string cls;
    std::string model;
};

// The elements that stand for a model, in document order; fails the test when
// the document is no well-formed XML.
std::vector<Element> ParseModelElements(const std::string& svg, std::string* texts = nullptr)
{
    QXmlStreamReader xml(QByteArray::fromStdString(svg));
    std::vector<Element> elements;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isCharacters() && texts)
            *texts += xml.text().toString().toStdString();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QString("svg")) {
            EXPECT_EQ(xml.attributes().value("version").toString(), "1.1");
        }
        const auto attributes = xml.attributes();
        if (attributes.hasAttribute("data-model"))
            elements.push_back({xml.name().toString().toStdString(),
                                attributes.value("class").toString().toStdString(),
                                attributes.value("data-model").toString().toStdString()});
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString() << " at line "
                                 << xml.lineNumber();
    return elements;
}

std::string Svg(const SceneMap& map)
{
    std::ostringstream out;
    WriteSvg(map, out);
    return out.str();
}

TEST(SvgWriter, OneElementPerModelAndPlacementInScriptOrder)
{
    struct Row {
        bool perimeter;
        const char* selection;
        std::vector<Element> tail; // the elements behind the nine models
    };
    const Row rows[] = {
        {.perimeter = false,
         .selection = "Tree",
         .tail = {{"path", "placement first", "1"}, {"path", "placement", "9"}}},
        {.perimeter = true,
         .selection = "Barn",
         .tail = {{"path", "placement first", "2"}, {"path", "folded", "2"}}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.selection);
        LoadFixture f;
        if (r.perimeter)
            f.app->main.chkPerimeterTile.SetValue(1);
        f.Load(MapScene());
        f.app->main.comboSelectObject.SetText(r.selection);
        const auto elements = ParseModelElements(Svg(SceneMapper(*f.app).Build()));
        ASSERT_EQ(elements.size(), 9 + r.tail.size());
        const char* main[] = {"object taken",      "object",     "billboard taken", "bale",
                              "triple-bale taken", "drum taken", "other",           "object",
                              "object taken"};
        const char* perimeter[] = {"object",     "object taken", "billboard",
                                   "bale taken", "triple-bale",  "drum",
                                   "other",      "object taken", "object"};
        for (std::size_t i = 0; i < 9; ++i) {
            EXPECT_EQ(elements[i].name, "circle");
            EXPECT_EQ(elements[i].cls, r.perimeter ? perimeter[i] : main[i]);
            EXPECT_EQ(elements[i].model, std::to_string(i + 1));
        }
        for (std::size_t i = 0; i < r.tail.size(); ++i) {
            EXPECT_EQ(elements[9 + i].name, r.tail[i].name);
            EXPECT_EQ(elements[9 + i].cls, r.tail[i].cls);
            EXPECT_EQ(elements[9 + i].model, r.tail[i].model);
        }
    }
}

// A map of a 100-unit terrain, so one picture unit is one scene unit.
SceneMap SmallMap()
{
    SceneMap map;
    map.scene = "C:\\Szenen\\T\xE4ler & <H\xF6he>.scn";
    map.tiles = 2;
    map.terrainSide = 100;
    map.selection = "Caf\xE9 \x80 \"1\"\x01";
    map.models = {{.number = 7,
                   .value = "Oak.SLT",
                   .kind = ModelKind::Object,
                   .x = 20,
                   .y = 4,
                   .z = 30,
                   .taken = true},
                  {.number = 8, .value = "Rock.xyz", .kind = ModelKind::Other, .x = 60, .z = 5}};
    map.placements = {
        {.number = 7, .at = {20, 30}, .lookX = 1, .maxX = -20, .maxY = 30, .first = true}};
    map.notes = {"The scene file cannot be read: C:\\Szenen\\T\xE4ler.scn"};
    return map;
}

TEST(SvgWriter, WritesTheMapsTextsColoursAndHoverTexts)
{
    const std::string svg = Svg(SmallMap());
    const char* fragments[] = {
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<svg ",
        "<title>Scene map of C:\\Szenen\\T&#228;ler &amp; &lt;H&#246;he&gt;.scn</title>",
        ".object{fill:#2b6cb0}\n",
        "circle{fill-opacity:0.3;stroke:none}\n",
        "<path class=\"grid\" d=\"M50 0V100M0 50H100\"/>",
        "<circle class=\"object taken\" data-model=\"7\" cx=\"30\" cy=\"20\" r=\"0.45\">"
        "<title>Model 7\nOak.SLT\nPosition 20, 4, 30</title></circle>",
        "<circle class=\"other\" data-model=\"8\" cx=\"5\" cy=\"60\" r=\"0.45\"><title>Model 8\n"
        "Rock.xyz\nPosition 60, 0, 5\nleft out of the lists by the load</title></circle>",
        "<path class=\"placement first\" data-model=\"7\" d=\"M29.1 20a0.9 0.9 0 1 0 1.8 0a0.9 0.9 "
        "0 1 0 -1.8 0M30 20l2.2 0\"><title>Model 7\nOak.SLT\nPosition 20, 4, 30\nfirst object, "
        "merged from the .max file\nin 3ds Max at -20, 30 (before the object scale)</title></path>",
        ">Faint: left out of the lists by the load</text>",
        // Under the picture: the status line and then the reader's notes.
        ">Caf&#233; &#8364; &quot;1&quot;?: 1 placement on the main tile &#8212; 2 models</text>\n"
        "<text x=\"0\" y=\"110.5\" text-anchor=\"start\">The scene file cannot be read: "
        "C:\\Szenen\\T&#228;ler.scn</text>",
    };
    for (const char* fragment : fragments)
        EXPECT_NE(svg.find(fragment), std::string::npos) << fragment << "\nin\n" << svg;
    // The main tile's map shows no tile to fold onto, nor its legend line.
    EXPECT_EQ(svg.find("id=\"fold-tile\""), std::string::npos);
    EXPECT_EQ(svg.find("perimeter copies fold onto"), std::string::npos);
    ParseModelElements(svg);
}

TEST(SvgWriter, SizePerModel)
{
    SceneMap map = SmallMap();
    map.models.clear();
    map.placements.clear();
    const std::size_t empty = Svg(map).size();
    for (std::int32_t n = 1; n <= 1000; ++n)
        map.models.push_back({.number = 100000 + n,
                              .value = "Tree_KV_Oak.SLT",
                              .kind = ModelKind::TripleBale,
                              .x = 1234.56789 + n,
                              .y = 0,
                              .z = -3456.78912 - n,
                              .taken = true});
    const std::string svg = Svg(map);
    EXPECT_EQ(ParseModelElements(svg).size(), 1000u);
    // The element and its hover text.
    EXPECT_LE((svg.size() - empty) / 1000.0, 200.0);
}

} // namespace
} // namespace tos::test
