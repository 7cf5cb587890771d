#include "project/scene_models.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "forms/app.h"
#include "project/catalogue.h"
#include "support/conversions.h"
#include "support/element_view.h"
#include "support/elements.h"
#include "support/failure.h"
#include "support/value_memo.h"

namespace tos {

namespace {

const std::string kModelPrefix = "Model";
const std::string kPositionKey = "Position";
const std::string kSltKey = "SLT";
// Rows shorter than this split at "|" without a message.
constexpr std::size_t kShortRow = 32000;

// Candidates for the object list: .SLT models and the user's misc stock objects.
bool IsCandidate(App& app, const std::string& modelValue)
{
    return GetFileExtension(app.platform, UpperCase(modelValue)) == "SLT" ||
           IsInternalMiscStockObject(app, modelValue);
}

// The object name shared by all placed copies: the base name up to "_KV_".
std::string Stem(App& app, const std::string& modelValue)
{
    return GetElement(app.platform, GetBaseName(app.platform, modelValue), "_KV_", Int16(0));
}

void FirstPass(App& app, MainForm& form, const TileWindow& window)
{
    ValueMemo<bool> candidate;
    ValueMemo<std::string> stem;
    ForEachModel(
        app, app.state.NumberOfStaticModels,
        [&](Int32 n, std::string_view value, std::uint32_t distinct) {
            if (candidate(value, distinct,
                          [&](const std::string& v) { return IsCandidate(app, v); }) &&
                IsInChosenTiles(app, window, n))
                form.lstSCNdata1.AddItem(RecordRow(
                    stem(value, distinct, [&](const std::string& v) { return Stem(app, v); }),
                    ModelNumberField(n)));
        });
}

// Rows of one stem lie side by side in the sorted list, so a look at the next
// row finds where each group ends; the copy counter restarts there.
void SecondPass(App& app, MainForm& form)
{
    form.lstSCNdata2.Clear();
    Int32 copy = 1;
    const Int32 count = Int32(form.lstSCNdata1.ListCount().value());
    // A row's stem was taken a step before, as the stem of the next row; a row this short
    // is split without a message, so taking its stem once shows what taking it twice would.
    std::string_view nextStem;
    for (Int32 i = 0; i <= count - 1; ++i) {
        const std::string& row = form.lstSCNdata1.List(Int16::From(i.value()));
        form.lstSCNdata2.AddItem(RecordRow(row, ThreeDigitField(copy)));
        const std::string& next = form.lstSCNdata1.List(Int16::From((i + 1).value()));
        const std::string_view stem = i > Int32(0) && row.size() < kShortRow
                                          ? nextStem
                                          : ElementOrMessage(app.platform, row, "|", 0);
        nextStem = ElementOrMessage(app.platform, next, "|", 0);
        if (EqualsIgnoringCase(stem, nextStem))
            ++copy;
        else
            copy = 1;
    }
}

void ThirdPass(App& app, MainForm& form)
{
    form.lstSCNdata3.Clear();
    const Int32 count = Int32(form.lstSCNdata2.ListCount().value());
    for (Int32 i = 0; i <= count - 1; ++i) {
        const std::string& row = form.lstSCNdata2.List(Int16::From(i.value()));
        if (ElementOrMessage(app.platform, row, "|", 2) == "001")
            form.lstSCNdata3.AddItem(std::string(ElementOrMessage(app.platform, row, "|", 0)));
    }
}

} // namespace

std::string RecordRow(std::string_view first, std::string_view second)
{
    std::string row;
    row.reserve(first.size() + 1 + second.size());
    row.append(first).append(1, '|').append(second);
    return row;
}

std::string ModelNumberField(Int32 n)
{
    return ThreeDigitField(n);
}

std::string ThreeDigitField(Int32 n)
{
    if (n < Int32(0))
        return FormatPattern(n.value(), "000");
    // What the pattern gives a whole number: its digits, led by zeros to three.
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, n.value()).ptr;
    std::string field(static_cast<std::size_t>(std::max<std::ptrdiff_t>(3 - (end - digits), 0)),
                      '0');
    field.append(digits, end);
    return field;
}

TileWindow ReadTileWindowAndLinkScale(App& app)
{
    MainForm& f = app.main;
    const Num gridRes = TextToNumber(f.txtGridRes.Text());
    const Num tiles = RoundHalfEven(TextToNumber(f.txtNumberOfTiles.Text()), 0);
    Num gridSize = RoundHalfEven(TextToNumber(f.txtGridSize.Text()), 0);
    Num objectScale = TextToNumber(f.txtObjectScale.Text());

    const TileWindow w = MainTileWindow(gridRes, tiles);

    if (f.chkUseObjectScale.Value() == 1) {
        gridSize = RoundHalfEven((objectScale * w.tile / Num(100)).value(), 0);
        f.txtGridSize.SetText(NumberToText(gridSize.value()));
    } else {
        objectScale = gridSize * Num(100) / w.tile;
        f.txtObjectScale.SetText(FormatPattern(RoundHalfEven(objectScale.value(), 6), "0.000000"));
    }
    return w;
}

std::string ModelSection(Int32 n)
{
    return kModelPrefix + IntegerToText(n.value());
}

void ForEachModel(App& app, Int32 count,
                  const ProfileFiles::NumberedVisit& visit)
{
    const std::string& scn = app.state.ScnFile;
    if (count < Int32(1))
        return;
    const bool read =
        app.profiles.ForEachNumberedValue(scn, kModelPrefix, count.value(), kSltKey, visit);
    if (!read) {
        for (Int32 n = 1; n <= count; ++n)
            visit(n.value(), app.profiles.GetINIString(ModelSection(n), kSltKey, scn),
                  ProfileFiles::kNoDistinct);
        return;
    }
    // The counted loop steps its counter once past the last value.
    if (count.value() == std::numeric_limits<std::int32_t>::max())
        Fail(err::Overflow);
}

bool IsInChosenTiles(App& app, const TileWindow& window, Int32 n)
{
    std::string spare;
    const std::string_view position = app.profiles.GetVisitedValue(
        kModelPrefix, n.value(), kPositionKey, app.state.ScnFile, spare);
    const Num x = TextToNumber(ElementOrMessage(app.platform, position, ",", 0));
    const Num z = TextToNumber(ElementOrMessage(app.platform, position, ",", 2));
    return window.Contains(x, z) == (app.main.chkMainTile.Value() == 1);
}

void GetSLTcount(App& app)
{
    RunState& s = app.state;
    if (auto f = Trap([&] {
            s.SLTcount = 0;
            const std::string value =
                app.profiles.GetINIString("StaticModels", "NumberOfStaticModels", s.ScnFile);
            if (value.empty()) {
                app.platform.ShowMessage({"Error reading NumberOfStaticModels in SCN file.",
                                          s.AppName, MessageIcon::Exclamation});
                return;
            }
            s.NumberOfStaticModels = ToInt32(TextToNumber(value));
            ValueMemo<bool> isSlt;
            ForEachModel(app, s.NumberOfStaticModels,
                         [&](Int32, std::string_view value, std::uint32_t distinct) {
                             if (isSlt(value, distinct, [&](const std::string& v) {
                                     return GetFileExtension(app.platform, UpperCase(v)) == "SLT";
                                 }))
                                 ++s.SLTcount;
                         });
            app.main.lblSLTcount.SetCaption(IntegerToText(s.SLTcount.value()));
        }))
        app.Message(TrapMessageColon("GetSLTcount", *f));
}

void ProcessSCNmodels(App& app, MainForm& form)
{
    if (auto f = Trap([&] {
            form.lstSCNdata1.Clear();
            const TileWindow window = ReadTileWindowAndLinkScale(app);
            if (app.state.NumberOfStaticModels < Int32(1)) {
                form.lstSCNdata2.Clear();
                form.lstSCNdata3.Clear();
                return;
            }
            FirstPass(app, form, window);
            SecondPass(app, form);
            ThirdPass(app, form);
        }))
        app.Message(TrapMessageColon("ProcessSCNmodels", *f));
}

} // namespace tos
