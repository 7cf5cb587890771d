#include "map/scene_map.h"

#include <algorithm>
#include <cmath>

#include "forms/app.h"
#include "forms/record_walk.h"
#include "map/path_text.h"
#include "orientation/angles.h"
#include "orientation/tile_grid.h"
#include "support/conversions.h"
#include "support/element_view.h"
#include "support/elements.h"
#include "support/failure.h"
#include "support/value_memo.h"

namespace tos {

namespace {

constexpr std::size_t kMaxNotes = 20;
constexpr std::int32_t kModelsReserved = 1 << 16;
const std::string kModel = "Model";
const std::string kPosition = "Position";

// The desktop as the map sees it: every service as it is, except that a message
// box is written down instead of shown.
class QuietPlatform : public Platform {
public:
    explicit QuietPlatform(Platform& real) : real_(real) {}

    void ShowMessage(const MessageBox& box) override { Note(box.text); }
    std::string ShowFileDialog(const FileDialogRequest& request) override
    {
        return real_.ShowFileDialog(request);
    }
    std::string ReadSetting(const std::string& key, const std::string& valueName) override
    {
        return real_.ReadSetting(key, valueName);
    }
    void WriteSetting(const std::string& key, const std::string& valueName,
                      const std::string& value) override
    {
        real_.WriteSetting(key, valueName, value);
    }
    bool OpenDocument(const std::string& path) override { return real_.OpenDocument(path); }
    std::string ProgramFolder() override { return real_.ProgramFolder(); }
    void SetMousePointer(FormId form, int pointer) override
    {
        real_.SetMousePointer(form, pointer);
    }
    ScreenSize Screen() override { return real_.Screen(); }

    // A missing file is reported at every read; one note of each text is enough.
    void Note(const std::string& text)
    {
        if (notes.size() < kMaxNotes && std::find(notes.begin(), notes.end(), text) == notes.end())
            notes.push_back(text);
    }

    std::vector<std::string> notes;

private:
    Platform& real_;
};

} // namespace

struct SceneMapper::Impl {
    explicit Impl(App& a) : app(a), quiet(a.platform), profiles(quiet, a.profiles) {}

    App& app;
    QuietPlatform quiet;
    // The map's own reader, so that reading makes no box; it shares the load's copy of a
    // large scene, which is then read and indexed once.
    ProfileFiles profiles;

    std::string Read(const std::string& section, const char* key)
    {
        return profiles.GetINIString(section, key, app.state.ScnFile);
    }

    double Element(std::string_view text, int index)
    {
        return TextToNumber(ElementOrMessage(quiet, text, ",", index));
    }

    ModelKind KindOf(const std::string& value)
    {
        const RunState& s = app.state;
        if (GetFileExtension(quiet, UpperCase(value)) == "SLT" ||
            s.InternalMiscStockObject.Contains(value))
            return ModelKind::Object;
        if (s.InternalBillboard.Contains(value))
            return ModelKind::Billboard;
        if (s.InternalBale.Contains(value))
            return ModelKind::Bale;
        if (s.InternalTripleBale.Contains(value))
            return ModelKind::TripleBale;
        if (s.Internal55GalDrum_TrashCan.Contains(value))
            return ModelKind::Drum;
        return ModelKind::Other;
    }

    // The model numbers that the builders' record lists hold, ascending.
    std::vector<std::int32_t> TakenNumbers()
    {
        std::vector<std::int32_t> taken;
        auto collect = [&](const RecordWalk& walk) {
            for (const std::string& row : (app.main.*walk.list).Rows())
                // A row whose number is out of range names no model.
                (void)Trap([&] { taken.push_back(ModelNumberOfRow(quiet, walk, row).value()); });
        };
        collect(kObjectRows);
        for (const RecordWalk& walk : kStockGroupRows)
            collect(walk);
        std::sort(taken.begin(), taken.end());
        return taken;
    }

    void Note(const std::string& what, const Failure& f)
    {
        quiet.Note(what + ": " + f.Description() + " (" + SignedIntegerText(f.Number()) + ")");
    }

    // The notes of reading the models, which every later placing starts from.
    std::vector<std::string> modelNotes;
};

const char* KindClass(ModelKind kind)
{
    switch (kind) {
    case ModelKind::Object:
        return "object";
    case ModelKind::Billboard:
        return "billboard";
    case ModelKind::Bale:
        return "bale";
    case ModelKind::TripleBale:
        return "triple-bale";
    case ModelKind::Drum:
        return "drum";
    case ModelKind::Other:
        break;
    }
    return "other";
}

const char* KindCaption(ModelKind kind)
{
    switch (kind) {
    case ModelKind::Object:
        return "Object (.SLT or misc stock)";
    case ModelKind::Billboard:
        return "Stock billboard";
    case ModelKind::Bale:
        return "Stock single bale";
    case ModelKind::TripleBale:
        return "Stock triple bale";
    case ModelKind::Drum:
        return "Stock drum or trash can";
    case ModelKind::Other:
        break;
    }
    return "Other model";
}

SceneMapper::SceneMapper(App& app) : impl_(std::make_unique<Impl>(app)) {}

SceneMapper::~SceneMapper() = default;

SceneMap SceneMapper::Build()
{
    SceneMap map;
    ReadModels(map);
    PlaceSelection(map);
    return map;
}

void SceneMapper::ReadModels(SceneMap& map)
{
    Impl& m = *impl_;
    m.quiet.notes.clear();
    map.models.clear();
    const std::string& scene = m.app.state.ScnFile;
    map.scene = PathAsText(scene);
    const std::int32_t count = m.app.state.NumberOfStaticModels.value();
    if (map.scene.empty() || count < 1) {
        m.modelNotes.clear();
        return;
    }
    if (auto f = Trap([&] {
            // The declared count is only a hint: a scene may declare more than it holds.
            map.models.reserve(static_cast<std::size_t>(std::min(count, kModelsReserved)));
            const std::vector<std::int32_t> taken = m.TakenNumbers();
            // The walk goes up the model numbers, and so does this.
            auto nextTaken = taken.begin();
            ValueMemo<ModelKind> kinds;
            std::string spare;
            const bool read = m.profiles.ForEachNumberedValue(
                scene, kModel, count, "SLT",
                [&](std::int32_t n, std::string_view value, std::uint32_t distinct) {
                    MapModel model;
                    model.number = n;
                    model.value.assign(value);
                    model.kind =
                        kinds(value, distinct, [&](const std::string& v) { return m.KindOf(v); });
                    const std::string_view position = m.profiles.GetVisitedValue(
                        kModel, n, kPosition, m.app.state.ScnFile, spare);
                    model.x = m.Element(position, 0);
                    model.y = m.Element(position, 1);
                    model.z = m.Element(position, 2);
                    while (nextTaken != taken.end() && *nextTaken < n)
                        ++nextTaken;
                    model.taken = nextTaken != taken.end() && *nextTaken == n;
                    map.models.push_back(std::move(model));
                });
            if (!read)
                m.quiet.Note("The scene file cannot be read: " + map.scene);
        }))
        m.Note("The scene's models", *f);
    m.modelNotes = m.quiet.notes;
}

void SceneMapper::PlaceSelection(SceneMap& map)
{
    Impl& m = *impl_;
    const MainForm& form = m.app.main;
    m.quiet.notes = m.modelNotes;
    map.placements.clear();
    map.selection = form.comboSelectObject.Text();
    map.mainTile = form.chkMainTile.Checked();

    TileGeometry geometry;
    if (auto f = Trap([&] {
            const Num gridRes = TextToNumber(form.txtGridRes.Text());
            const double tiles = TextToNumber(form.txtNumberOfTiles.Text());
            const Num rounded = RoundHalfEven(tiles, 0);
            const TileWindow window = MainTileWindow(gridRes, rounded);
            geometry = WorkOutGeometry(map.mainTile, gridRes, tiles);
            map.gridRes = gridRes.value();
            // More tiles than a picture can show say nothing about the terrain.
            map.tiles = rounded > Num(0) && rounded <= Num(10000) ? int(rounded.value()) : 0;
            map.terrainSide = map.tiles > 0 && gridRes > Num(0)
                                  ? (Num(map.tiles) * gridRes * Num(256)).value()
                                  : 0;
            map.windowStart = window.start.value();
            map.windowEnd = window.end.value();
            map.tile = geometry.tile.value();
            map.centre = geometry.centre.value();
            map.limit = geometry.limit.value();
        })) {
        m.Note("The tile grid", *f);
        map.notes = m.quiet.notes;
        return;
    }
    if (map.selection.empty() || map.scene.empty()) {
        map.notes = m.quiet.notes;
        return;
    }
    // The lists hold the models of the other tile choice: folding them would show
    // copies no script of this load makes.
    if (form.listsMainTile >= 0 && (form.listsMainTile == 1) != map.mainTile) {
        map.notes = m.quiet.notes;
        map.notes.push_back("The tile choice has changed since the load: load the project "
                            "again to see where the copies will stand.");
        return;
    }

    const RecordWalk& walk = WalkOfSelection(m.quiet, map.selection);
    bool first = true;
    for (const std::string& row : (form.*walk.list).Rows()) {
        if (!RowCounts(m.quiet, walk, row, map.selection))
            continue;
        MapPlacement p;
        if (auto f = Trap([&] { p.number = ModelNumberOfRow(m.quiet, walk, row).value(); })) {
            m.Note("Row " + row, *f);
            continue;
        }
        const std::string section = "Model" + IntegerToText(p.number);
        const std::string position = m.Read(section, "Position");
        p.at = {m.Element(position, 0), m.Element(position, 2)};
        if (!map.mainTile) {
            if (auto f = Trap([&] {
                    p.folded =
                        GroundPoint{Fold(p.at.x, geometry).value(), Fold(p.at.z, geometry).value()};
                }))
                m.Note(section + " cannot be folded", *f);
        }
        const GroundPoint stands = p.folded.value_or(p.at);
        const MaxGround max = ToMaxGround(stands.x, stands.z, geometry.centre);
        p.maxX = max.x.value();
        p.maxY = max.y.value();
        const Vec3 look = WorkingVector(m.quiet, m.Read(section, "LookVector"));
        p.lookX = look.x;
        p.lookY = look.y;
        p.first = first;
        first = false;
        map.placements.push_back(p);
    }
    map.notes = m.quiet.notes;
}

PictureBounds BoundsOf(const SceneMap& map)
{
    PictureBounds b{0, 0, map.terrainSide, map.terrainSide};
    auto include = [&b](double x, double z) {
        b.left = std::min(b.left, z);
        b.right = std::max(b.right, z);
        b.top = std::min(b.top, x);
        b.bottom = std::max(b.bottom, x);
    };
    for (const MapModel& model : map.models)
        include(model.x, model.z);
    for (const MapPlacement& p : map.placements) {
        include(p.at.x, p.at.z);
        if (p.folded)
            include(p.folded->x, p.folded->z);
    }
    include(map.centre, map.centre);
    return b;
}

std::string PlacementCount(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " placement" : " placements");
}

double ScaleBarLength(double atMost)
{
    if (!(atMost > 0))
        return 1;
    const double power = std::pow(10.0, std::floor(std::log10(atMost)));
    for (const double step : {5.0, 2.0, 1.0})
        if (step * power <= atMost)
            return step * power;
    return power;
}

} // namespace tos
