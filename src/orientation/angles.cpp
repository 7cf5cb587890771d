#include "orientation/angles.h"

#include <array>

#include "forms/app.h"
#include "support/checked.h"
#include "support/conversions.h"
#include "support/element_view.h"
#include "support/elements.h"
#include "support/failure.h"

namespace tos {

namespace {

// Exact comparison: the rounding to 6 decimals is the only tolerance, and -0 equals 0.
bool Same(const Vec3& a, const Vec3& b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

enum class Axis { None, X, Y };

// A look vector of a look table and its heading; no heading means no Z turn.
struct LookCase {
    Vec3 look;
    bool turns;
    double angleZ;
};

// A row of the up table: its base turn, its four looks, and what any other look gets.
struct UpCase {
    Vec3 up;
    Axis baseAxis;
    double baseAngle;
    std::array<LookCase, 4> looks;
    void (*otherLook)(App&, const std::string&); // nullptr: the base turn stands alone
};

const std::array<UpCase, 6>& UpTable()
{
    // clang-format off
    static const std::array<UpCase, 6> table{{
        {{0, 0, 1},  Axis::None, 0,    {{{{0, 1, 0}, false, 0},    {{0, -1, 0}, true, 180}, {{-1, 0, 0}, true, 90}, {{1, 0, 0}, true, -90}}},  CalculateAngleZ_Pos},
        {{0, 0, -1}, Axis::X,    180,  {{{{0, 1, 0}, true, -180},  {{0, -1, 0}, false, 0},  {{-1, 0, 0}, true, 90}, {{1, 0, 0}, true, -90}}},  CalculateAngleZ_Neg},
        {{1, 0, 0},  Axis::Y,    90,   {{{{0, 1, 0}, false, 0},    {{0, -1, 0}, true, 180}, {{0, 0, 1}, true, 90},   {{0, 0, -1}, true, -90}}}, nullptr},
        {{-1, 0, 0}, Axis::Y,    -90,  {{{{0, 1, 0}, false, 0},    {{0, -1, 0}, true, 180}, {{0, 0, 1}, true, -90},  {{0, 0, -1}, true, 90}}},  nullptr},
        {{0, 1, 0},  Axis::X,    -90,  {{{{0, 0, -1}, false, 0},   {{0, 0, 1}, true, 180},  {{-1, 0, 0}, true, 90}, {{1, 0, 0}, true, -90}}},  nullptr},
        {{0, -1, 0}, Axis::X,    90,   {{{{0, 0, -1}, true, 180},  {{0, 0, 1}, false, 0},   {{-1, 0, 0}, true, 90}, {{1, 0, 0}, true, -90}}},  nullptr},
    }};
    // clang-format on
    return table;
}

// The trap of the four angle routines: two boxes, then the routine ends with
// whatever it had set.
template <class Body>
void WithAngleTrap(App& app, const char* routine, const std::string& section, Body&& body)
{
    auto failure = Trap(body);
    if (!failure)
        return;
    const RunState& s = app.state;
    app.Message(std::string("Unexpected error in ") + routine + " for " + section + ":  " +
                failure->Description() + " (" + SignedIntegerText(failure->Number()) + ")");
    app.Message("LookX = " + NumberToText(s.LookX) + "  LookY = " + NumberToText(s.LookY) +
                "  LookZ = " + NumberToText(s.LookZ));
}

// Heading for an up vector along Z; positive selects the sense of (0, 0, 1).
void HeadingAlongZ(RunState& s, bool positive)
{
    const Num lookX = s.LookX;
    const Num lookY = s.LookY;
    const Num pi = s.Pi;
    if (lookY == Num(0)) {
        s.AngleZ = lookX < Num(0) ? 90 : -90;
        return;
    }
    Num d = Atan(lookX / lookY) * Num(180) / pi;
    if (positive)
        d = d * Num(-1);
    if (lookY > Num(0))
        s.AngleZ = (positive ? d : d - Num(180)).value();
    else
        s.AngleZ = (positive ? d - Num(180) : d).value();
}

bool NonZeroAt6(Num value)
{
    return RoundHalfEven(value.value(), 6) != 0.0;
}

// Both general routines; they differ only in how AngleX comes from the up vector.
void FreeOrientation(RunState& s, bool upZPositive)
{
    const Num pi = s.Pi;
    s.AngleX = 0;
    s.AngleY = 0;
    s.AngleZ = 0;

    const Num a = Atan(Num(s.UpY) / Num(s.UpZ));
    const Num angleX =
        upZPositive ? a * Num(-1) * Num(180) / pi : (a * Num(180) / pi + Num(180)) * Num(-1);
    s.AngleX = angleX.value();
    if (NonZeroAt6(angleX))
        s.RotateX = true;

    const Num upX = s.UpX;
    const Num root = Sqrt(Num(1) - upX * upX);

    // The look vector taken back through the X turn.
    const Num t = angleX * Num(-1) * pi / Num(180);
    const Num n = Num(s.LookZ) * Num(-1);
    const Num lookY = s.LookY;
    const Num p = Cos(t) * n - Sin(t) * lookY;
    const Num y1 = Sin(t) * n + Cos(t) * lookY;
    const Num z1 = p * Num(-1);

    const Num angleY = Atan(upX / root) * Num(180) / pi;
    s.AngleY = angleY.value();
    if (NonZeroAt6(angleY))
        s.RotateY = true;

    // And through the Y turn: what is left is the heading.
    const Num u = pi * angleY / Num(180);
    const Num x2 = Cos(u) * Num(s.LookX) - Sin(u) * z1;

    Num angleZ;
    if (!NonZeroAt6(y1)) {
        angleZ = x2 > Num(0) ? -90 : 90;
    } else {
        const Num d = Atan(x2 / y1) * Num(180) / pi * Num(-1);
        angleZ = y1 > Num(0) ? d : d - Num(180);
    }
    s.AngleZ = angleZ.value();
    if (NonZeroAt6(angleZ))
        s.RotateZ = true;
}

} // namespace

Vec3 WorkingVector(Platform& platform, const std::string& text)
{
    double e[3];
    for (int i = 0; i < 3; ++i)
        e[i] = RoundHalfEven(TextToNumber(ElementOrMessage(platform, text, ",", i)), 6);
    return {e[2], (Num(e[0]) * Num(-1)).value(), e[1]};
}

void CalculateAngles(App& app, const std::string& section)
{
    RunState& s = app.state;
    s.RotateX = false;
    s.RotateY = false;
    s.RotateZ = false;

    const std::string lookText = app.profiles.GetINIString(section, "LookVector", s.ScnFile);
    const std::string upText = app.profiles.GetINIString(section, "UpVector", s.ScnFile);
    const Vec3 look = WorkingVector(app.platform, lookText);
    s.LookX = look.x;
    s.LookY = look.y;
    s.LookZ = look.z;
    const Vec3 up = WorkingVector(app.platform, upText);
    s.UpX = up.x;
    s.UpY = up.y;
    s.UpZ = up.z;

    for (const UpCase& row : UpTable()) {
        if (!Same(up, row.up))
            continue;
        if (row.baseAxis == Axis::X) {
            s.RotateX = true;
            s.AngleX = row.baseAngle;
        } else if (row.baseAxis == Axis::Y) {
            s.RotateY = true;
            s.AngleY = row.baseAngle;
        }
        for (const LookCase& lc : row.looks) {
            if (!Same(look, lc.look))
                continue;
            if (lc.turns) {
                s.RotateZ = true;
                s.AngleZ = lc.angleZ;
            }
            return;
        }
        if (row.otherLook) {
            s.RotateZ = true;
            row.otherLook(app, section);
        }
        return;
    }
    if (up.z > 0)
        CalculateAngles_PosZ(app, section);
    else
        CalculateAngles_NegZ(app, section);
}

void CalculateAngleZ_Pos(App& app, const std::string& section)
{
    WithAngleTrap(app, "CalculateAngleZ_Pos", section, [&] { HeadingAlongZ(app.state, true); });
}

void CalculateAngleZ_Neg(App& app, const std::string& section)
{
    WithAngleTrap(app, "CalculateAngleZ_Neg", section, [&] { HeadingAlongZ(app.state, false); });
}

void CalculateAngles_PosZ(App& app, const std::string& section)
{
    WithAngleTrap(app, "CalculateAngles_PosZ", section, [&] { FreeOrientation(app.state, true); });
}

void CalculateAngles_NegZ(App& app, const std::string& section)
{
    WithAngleTrap(app, "CalculateAngles_NegZ", section, [&] { FreeOrientation(app.state, false); });
}

} // namespace tos
