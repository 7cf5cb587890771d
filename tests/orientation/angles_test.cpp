#include "orientation/angles.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <tuple>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"

namespace tos {
namespace {

const double kPi = 4 * std::atan(1.0);

// CalculateAngles on a model whose earlier neighbour left every flag set and every
// angle at 7. Gives the state, and "Z=..;Y=..;X=..;" for the flags set followed by
// "|" and the text of each message box.
std::pair<RunState, std::string> Angles(const std::string& look, const std::string& up, double pi)
{
    test::FakePlatform platform;
    test::ScratchDir dir;
    App app{platform};
    RunState& s = app.state;
    s.Pi = pi;
    s.AngleX = s.AngleY = s.AngleZ = 7;
    s.RotateX = s.RotateY = s.RotateZ = true;
    s.ScnFile = dir.Write("scene.scn", "[Model1]\r\nLookVector=" + look + "\r\nUpVector=" + up);
    CalculateAngles(app, "Model1");
    std::string out;
    for (const auto& [on, axis, angle] : {std::tuple{s.RotateZ, "Z", s.AngleZ},
                                          {s.RotateY, "Y", s.AngleY},
                                          {s.RotateX, "X", s.AngleX}}) {
        char text[64];
        std::snprintf(text, sizeof text, "%s=%.6f;", axis, angle + 0.0); // -0 reads as 0
        out += on ? text : "";
    }
    for (const MessageBox& box : platform.messages)
        out += "|" + (box.title == kDefaultMessageTitle ? box.text : "wrong title");
    return {s, out};
}

TEST(CalculateAngles, GivesTheTurnsOfEachOrientationAndItsFailures)
{
    // clang-format off
    // Scene look and up, the outcome as Angles gives it, and Pi.
    const std::tuple<const char*, const char*, std::string, double> rows[] = {
        {"-1,0,0",          "0,1,0",          "", kPi},
        {"0,0,1",           "0,1,0",          "Z=-90.000000;", kPi},
        {"-0.6,0,0.8",      "0,1,0",          "Z=-53.130102;", kPi},
        {"0.6,0,-0.8",      "0,1,0",          "Z=-233.130102;", kPi},
        {"-0.8,-0.6,0",     "-0.6,0.8,0",     "X=-36.869898;", kPi},
        {"-0.64,-0.6,0.48", "-0.48,0.8,0.36", "Z=-30.963757;Y=21.100196;X=-30.963757;", kPi},
        {"-0.64,0.6,0.48",  "-0.48,-0.8,0.36","Z=-149.036243;Y=21.100196;X=-149.036243;", kPi},
        {"0,0,1",           "-0.6,-0.8,0",    "Z=-90.000000;X=-143.130102;", kPi},
        // The look tables, one look of each up row, and a look off the table.
        {"0,0,-1",          "0,1,0",          "Z=90.000000;", kPi},
        {"1,0,0",           "0,1,0",          "Z=180.000000;", kPi},
        {"-1,0,0",          "0,-1,0",         "Z=-180.000000;X=180.000000;", kPi},
        {"0,0,-1",          "0,-1,0",         "Z=90.000000;X=180.000000;", kPi},
        {"0,-1,0",          "0,0,1",          "Z=-90.000000;Y=90.000000;", kPi},
        {"-1,0,0",          "0,0,-1",         "Y=-90.000000;", kPi},
        {"1,0,0",           "0,0,-1",         "Z=180.000000;Y=-90.000000;", kPi},
        {"0,0,1",           "-1,0,0",         "Z=-90.000000;X=-90.000000;", kPi},
        {"0,-1,0",          "-1,0,0",         "X=-90.000000;", kPi},
        {"0,-1,0",          "1,0,0",          "Z=180.000000;X=90.000000;", kPi},
        {"0.6,0.8,0",       "0,0,1",          "Y=90.000000;", kPi},
        // Heading routines under an up along Z, and a zero heading in the general ones.
        {"0,0,1",           "0.0000001,1,0",  "Z=-90.000000;", kPi},
        {"0,0,0",           "0,1,0",          "Z=-90.000000;", kPi},
        {"0.5,0,0",         "0,1,-0",         "Z=-180.000000;", kPi},
        {"-0.5,0,0",        "0,1,0",          "Z=0.000000;", kPi},
        {"-0.6,0,0.8",      "0,-1,0",         "Z=-126.869898;X=180.000000;", kPi},
        {"0.6,0,-0.8",      "0,-1,0",         "Z=53.130102;X=180.000000;", kPi},
        {"0,0,0",           "-0.6,0.8,0",     "Z=90.000000;X=-36.869898;", kPi},
        // Failures: two boxes, and the turns set until then.
        {"",                "",               "|Unexpected error in CalculateAngles_NegZ for Model1:  Overflow ( 6)|LookX = 0  LookY = 0  LookZ = 0", kPi},
        {"0,0,1",           "-0.8,0,0.6",     "|Unexpected error in CalculateAngles_NegZ for Model1:  Division by zero ( 11)|LookX = 1  LookY = 0  LookZ = 0", kPi},
        {"-1,0,0",          "-0.5,0.5,1.5",   "X=-45.000000;|Unexpected error in CalculateAngles_PosZ for Model1:  Invalid procedure call or argument ( 5)|LookX = 0  LookY = 1  LookZ = 0", kPi},
        {"-1,0,0",          "0,0.5,1",        "|Unexpected error in CalculateAngles_PosZ for Model1:  Division by zero ( 11)|LookX = 0  LookY = 1  LookZ = 0", kPi},
        {"-1,0,0",          "0.25,-0.5,-1",   "X=-206.565051;|Unexpected error in CalculateAngles_NegZ for Model1:  Division by zero ( 11)|LookX = 0  LookY = 1  LookZ = 0", kPi},
        // Without Pi the division by it fails inside the heading routines.
        {"-0.6,0,0.8",      "0,1,0",          "Z=7.000000;|Unexpected error in CalculateAngleZ_Pos for Model1:  Division by zero ( 11)|LookX = 0.8  LookY = 0.6  LookZ = 0", 0},
        {"-0.6,0,0.8",      "0,-1,0",         "Z=7.000000;X=180.000000;|Unexpected error in CalculateAngleZ_Neg for Model1:  Division by zero ( 11)|LookX = 0.8  LookY = 0.6  LookZ = 0", 0},
    };
    // clang-format on
    for (const auto& [look, up, outcome, pi] : rows)
        EXPECT_EQ(Angles(look, up, pi).second, outcome) << look << " / " << up;
}

using V3 = std::array<double, 3>;

// The default look (0, 1, 0) and up (0, 0, 1) turned Z, Y, X about the fixed
// axes, as the script turns them.
std::array<double, 6> Pose(double z, double y, double x)
{
    std::array<double, 6> v{0, 1, 0, 0, 0, 1};
    for (const auto& [axis, degrees] : {std::pair{2, z}, {1, y}, {0, x}}) {
        const double c = std::cos(degrees * kPi / 180), s = std::sin(degrees * kPi / 180);
        for (const int a : {(axis + 1) % 3, (axis + 1) % 3 + 3}) {
            const int b = a - a % 3 + (axis + 2) % 3;
            std::tie(v[a], v[b]) = std::pair{c * v[a] - s * v[b], s * v[a] + c * v[b]};
        }
    }
    return v;
}

TEST(CalculateAngles, GeneralTurnsGiveBackLookAndUp)
{
    std::mt19937 rng(20261122);
    std::uniform_real_distribution<double> any(-180, 180), tilt(-85, 85);
    for (int i = 0; i < 300; ++i) {
        const auto w = Pose(any(rng), tilt(rng), any(rng));
        // Scene axes: working (X, Y, Z) is scene (-Y, Z, X).
        char text[2][128];
        std::snprintf(text[0], sizeof text[0], "%.9f,%.9f,%.9f", -w[1], w[2], w[0]);
        std::snprintf(text[1], sizeof text[1], "%.9f,%.9f,%.9f", -w[4], w[5], w[3]);
        const auto [s, outcome] = Angles(text[0], text[1], kPi);
        const auto got =
            Pose(s.RotateZ ? s.AngleZ : 0, s.RotateY ? s.AngleY : 0, s.RotateX ? s.AngleX : 0);
        const double read[] = {s.LookX, s.LookY, s.LookZ, s.UpX, s.UpY, s.UpZ};
        for (int k = 0; k < 6; ++k)
            EXPECT_NEAR(got[k], read[k], 1e-5) << text[0] << " / " << text[1];
        EXPECT_EQ(outcome.find('|'), std::string::npos);
    }
}

} // namespace
} // namespace tos
