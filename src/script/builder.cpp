#include "script/builder.h"

#include <memory>
#include <optional>
#include <string>

#include "forms/app.h"
#include "orientation/angles.h"
#include "orientation/tile_grid.h"
#include "script/script_text.h"
#include "support/conversions.h"
#include "support/element_view.h"
#include "support/elements.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos {

namespace {

// One run of a builder: the form's values as read at its start, and the script.
class Build {
public:
    Build(App& app, const BuilderKind& kind)
        : app_(app), kind_(kind), form_(app.main), rows_(app.main.*kind.walk.list)
    {
    }

    void Run()
    {
        selection_ = form_.comboSelectObject.Text();
        if (selection_.empty()) {
            app_.Message("Invalid Object Name");
            return;
        }
        mainTile_ = form_.chkMainTile.Checked();
        app_.state.ScriptFileName = app_.state.ScriptBasePath + (mainTile_ ? "_Main_" : "_Per_") +
                                    (kind_.fileSubject ? kind_.fileSubject : selection_) + ".ms";
        form_.List2.Clear();

        const Num gridRes = TextToNumber(form_.txtGridRes.Text());
        const double tiles = TextToNumber(form_.txtNumberOfTiles.Text());
        Num gridSize = RoundHalfEven(TextToNumber(form_.txtGridSize.Text()), 0);
        objectScale_ = TextToNumber(form_.txtObjectScale.Text());

        geometry_ = WorkOutGeometry(mainTile_, gridRes, tiles);
        if (form_.chkUseObjectScale.Checked()) {
            gridSize = RoundHalfEven((objectScale_ * geometry_.tile / Num(100)).value(), 0);
            form_.txtGridSize.SetText(NumberToText(gridSize.value()));
        } else {
            objectScale_ = gridSize * Num(100) / geometry_.tile;
            form_.txtObjectScale.SetText(
                FormatPattern(RoundHalfEven(objectScale_.value(), 6), "0.000000"));
        }

        verticalScale_ = TextToNumber(form_.txtVerticalScale.Text());
        verticalOffset_ = TextToNumber(form_.txtVerticalOffset.Text());
        const ScriptStyle style{form_.chkMax2008.Checked(),
                                form_.chkMax2008.Checked() && form_.chkInstances.Checked()};
        text_ = MakeScriptText(form_.List2, form_.txtMaxObjectName.Text(), style);

        text_->Head(GetFileName(app_.platform, app_.state.ScriptFileName), form_.txtMaxFile.Text());
        PlaceAll();
        TurnFirstObject();
        text_->End();
        if (app_.state.SaveToFile)
            WriteLinesCrLf(app_.state.ScriptFileName, form_.List2.Rows());
    }

private:
    bool Matches(const std::string& row)
    {
        return RowCounts(app_.platform, kind_.walk, row, selection_);
    }

    std::string SectionOf(const std::string& row)
    {
        return "Model" + IntegerToText(ModelNumberOfRow(app_.platform, kind_.walk, row).value());
    }

    bool FullSize() const { return objectScale_ == Num(100); }

    MaxPosition PositionOf(const std::string& section)
    {
        const std::string text =
            app_.profiles.GetINIString(section, "Position", app_.state.ScnFile);
        Num x = TextToNumber(ElementOrMessage(app_.platform, text, ",", 0));
        const Num y = TextToNumber(ElementOrMessage(app_.platform, text, ",", 1));
        Num z = TextToNumber(ElementOrMessage(app_.platform, text, ",", 2));
        if (!mainTile_) {
            x = Fold(x, geometry_);
            z = Fold(z, geometry_);
        }
        const MaxGround ground = ToMaxGround(x, z, geometry_.centre);
        Num maxX = ground.x;
        Num maxY = ground.y;
        Num maxZ = verticalScale_ * y + verticalOffset_;
        if (!FullSize()) {
            maxX = objectScale_ * maxX / Num(100);
            maxY = objectScale_ * maxY / Num(100);
            maxZ = objectScale_ * maxZ / Num(100);
        }
        return {maxX.value(), maxY.value(), maxZ.value()};
    }

    // The first matching row becomes the merged object, every later one a copy.
    // The counter is 16 bits wide, as the record list it counts: a list of 32,767
    // rows brings it to 32,767 at most. The script buffer takes every row.
    void PlaceAll()
    {
        bool first = true;
        Int16 count = 0;
        const Int16 rowCount = rows_.ListCount();
        for (Int16 i = 0; i < rowCount; ++i) {
            const std::string& row = rows_.List(i);
            if (!Matches(row))
                continue;
            const std::string section = SectionOf(row);
            const MaxPosition at = PositionOf(section);
            if (first) {
                std::optional<double> factor;
                if (!FullSize())
                    factor = RoundHalfEven((objectScale_ / Num(100)).value(), 8);
                text_->FirstObject(at, factor);
                first = false;
            } else {
                text_->CopyPlacement(count, at);
                CalculateAngles(app_, section);
                text_->CopyTurns(count, TurnsOf(app_.state));
            }
            ++count;
        }
    }

    // The merged object is turned last, so every copy was made from it unturned.
    void TurnFirstObject()
    {
        const Int16 rowCount = rows_.ListCount();
        for (Int16 i = 0; i < rowCount; ++i) {
            const std::string& row = rows_.List(i);
            if (!Matches(row))
                continue;
            CalculateAngles(app_, SectionOf(row));
            text_->GoBack(TurnsOf(app_.state));
            return;
        }
    }

    App& app_;
    const BuilderKind& kind_;
    MainForm& form_;
    const ListBox& rows_;
    std::string selection_;
    std::unique_ptr<ScriptText> text_;
    bool mainTile_ = true;
    TileGeometry geometry_;
    Num objectScale_;
    Num verticalScale_;
    Num verticalOffset_;
};

} // namespace

void RunBuilder(App& app, const BuilderKind& kind)
{
    if (auto failure = Trap([&] { Build(app, kind).Run(); }))
        app.Message(TrapMessageLines(kind.routine, *failure));
}

void BuildScript(App& app)
{
    static const BuilderKind kind{"BuildScript", kObjectRows, nullptr};
    RunBuilder(app, kind);
}

} // namespace tos
