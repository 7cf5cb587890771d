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

TEST(SvgWriter, TextOfTheCodePageAndSizePerModel)
{
    SceneMap map;
    map.scene = "C:\\Szenen\\T\xE4ler & <H\xF6he>.scn";
    map.selection = "Caf\xE9 \x80 \"1\"\x01";
    map.tiles = 5;
    map.gridRes = 3;
    map.terrainSide = 3840;
    std::string texts;
    const std::size_t empty = Svg(map).size();
    ParseModelElements(Svg(map), &texts);
    EXPECT_NE(texts.find("T\xC3\xA4ler & <H\xC3\xB6he>.scn"), std::string::npos);
    EXPECT_NE(texts.find("Caf\xC3\xA9 \xE2\x82\xAC \"1\"?"), std::string::npos);

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
    EXPECT_LE((svg.size() - empty) / 1000.0, 150.0);
}

} // namespace
} // namespace tos::test
