#include "map/map_presentation.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>

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

namespace {

constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2, 1e3,  1e4,  1e5, 1e6,
                                   1e7, 1e8, 1e9, 1e10, 1e11, 1e12};

char* Put(char* at, std::string_view text)
{
    return std::copy(text.begin(), text.end(), at);
}

// Most coordinates are read from short decimals such as "1639.7": the eight-digit text
// of such a value is that decimal, found without working out the value's digits.
// Why it is exact: let the value be the double nearest D = W / 10^k, W whole and below
// 10^8. It lies within 2^-53 |D| of D, far less than half a step of the eight-digit
// grid around it (a step is at least 10^-8 |D|, and D is on the grid), so rounding the
// value to eight significant digits gives D, which %g writes plainly (from 10^-4 on,
// below 10^8) without trailing zeros. W comes from value * 10^k, whose error is far
// below a half; one correctly rounded division checks that W / 10^k is the value.
// Null, with nothing written, for any other value.
char* WriteShortDecimal(char* at, double value)
{
    const double magnitude = std::fabs(value);
    if (!(magnitude >= 1e-4 && magnitude < 1e8))
        return nullptr;
    // Decimals that leave eight digits: the binary exponent tells the decimal one of the
    // first digit, or one less.
    const int binary = static_cast<int>(std::bit_cast<std::uint64_t>(magnitude) >> 52) - 1023;
    int k = 7 - ((binary * 1233) >> 12);
    if (magnitude * kPowersOfTen[k] >= 1e8)
        --k;
    const auto whole = static_cast<std::uint32_t>(magnitude * kPowersOfTen[k] + 0.5);
    if (whole >= 100000000 || whole == 0 || whole / kPowersOfTen[k] != magnitude)
        return nullptr;
    char digits[8];
    int count = static_cast<int>(std::to_chars(digits, digits + 8, whole).ptr - digits);
    for (; k > 0 && digits[count - 1] == '0'; --k)
        --count;
    if (count - 1 - k < -4)
        return nullptr; // below 10^-4: the exponent form
    if (value < 0)
        *at++ = '-';
    if (count > k) {
        at = std::copy_n(digits, count - k, at);
        if (k > 0) {
            *at++ = '.';
            at = std::copy_n(digits + count - k, k, at);
        }
    } else {
        at = Put(at, "0.");
        at = std::fill_n(at, k - count, '0');
        at = std::copy_n(digits, count, at);
    }
    return at;
}

} // namespace

MapNumberText::MapNumberText(double value)
{
    // The longest text of eight digits is "-1.2345678e-308".
    static_assert(sizeof text_ >= 16);
    char* end = nullptr;
    if (std::abs(value) < 1e-9)
        end = Put(text_, "0");
    else if (!(end = WriteShortDecimal(text_, value)))
        end = Put(text_, GeneralText(value, 8));
    size_ = static_cast<std::size_t>(end - text_);
}

void AppendMapNumber(std::string& out, double value)
{
    out += MapNumberText(value).View();
}

std::string MapNumber(double value)
{
    std::string text;
    AppendMapNumber(text, value);
    return text;
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

void AppendInteger(std::string& out, long long value)
{
    char digits[24];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

void AppendModelLines(std::string& out, const MapModel& m, const PositionText& position)
{
    // The lines of every model of a large map: put together before few appends.
    char head[32];
    char* at = Put(head, "Model ");
    at = std::to_chars(at, head + sizeof head, m.number).ptr;
    *at++ = '\n';
    out.append(head, static_cast<std::size_t>(at - head));
    out += m.value;
    char line[16 + 3 * sizeof(MapNumberText)];
    at = Put(Put(line, "\nPosition "), position.x.View());
    at = Put(Put(at, ", "), position.y.View());
    at = Put(Put(at, ", "), position.z.View());
    out.append(line, static_cast<std::size_t>(at - line));
}

// A placement's model; a number the scene's models lack shows alone.
void AppendModelLines(std::string& out, const SceneMap& map, std::int32_t number)
{
    const auto it =
        std::lower_bound(map.models.begin(), map.models.end(), number,
                         [](const MapModel& m, std::int32_t n) { return m.number < n; });
    if (it != map.models.end() && it->number == number) {
        AppendModelLines(out, *it, PositionText(*it));
        return;
    }
    out += "Model ";
    AppendInteger(out, number);
}

} // namespace

void AppendModelDescription(std::string& out, const MapModel& model, const PositionText& position)
{
    AppendModelLines(out, model, position);
    if (!model.taken)
        out += "\nleft out of the lists by the load";
}

void AppendPlacementDescription(std::string& out, const SceneMap& map, std::size_t index,
                                bool folded)
{
    const MapPlacement& p = map.placements.at(index);
    AppendModelLines(out, map, p.number);
    if (p.first) {
        out += "\nfirst object, merged from the .max file";
    } else {
        out += "\ncopy ";
        AppendInteger(out, static_cast<long long>(index));
        out += " of ";
        AppendInteger(out, static_cast<long long>(map.placements.size() - 1));
    }
    if (folded && p.folded) {
        out += "\nfolded to ";
        AppendMapNumber(out, p.folded->x);
        out += ", ";
        AppendMapNumber(out, p.folded->z);
    }
    out += "\nin 3ds Max at ";
    AppendMapNumber(out, p.maxX);
    out += ", ";
    AppendMapNumber(out, p.maxY);
    out += " (before the object scale)";
}

std::string DescribeModel(const SceneMap&, const MapModel& model)
{
    std::string text;
    AppendModelDescription(text, model, PositionText(model));
    return text;
}

std::string DescribePlacement(const SceneMap& map, std::size_t index, bool folded)
{
    std::string text;
    AppendPlacementDescription(text, map, index, folded);
    return text;
}

} // namespace tos
