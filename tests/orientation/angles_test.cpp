#include "orientation/angles.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "shell/app.h"

namespace tos {
namespace {

const double kPi = 4 * std::atan(1.0);

struct Fixture {
    test::FakePlatform platform;
    test::ScratchDir dir;
    App app{platform};

    Fixture() { app.state.Pi = kPi; }

    // One model section per call of Model(), written as the scene file.
    void Scene(const std::string& sections)
    {
        app.state.ScnFile =
            dir.Write("scene.scn", "[StaticModels]\r\nNumberOfStaticModels=1\r\n" + sections);
    }
    void Model(const std::string& look, const std::string& up)
    {
        std::string text = "[Model1]\r\nSLT=Tree.SLT\r\nPosition=0,0,0\r\n";
        if (!look.empty())
            text += "LookVector=" + look + "\r\n";
        if (!up.empty())
            text += "UpVector=" + up + "\r\n";
        Scene(text);
    }
};

std::string Six(double v)
{
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.6f", v + 0.0); // -0 reads as 0
    return buf;
}

// The turns as "Z=..;Y=..;X=..", with only the axes whose flag is set.
std::string Flags(const RunState& s)
{
    std::string out;
    if (s.RotateZ)
        out += "Z=" + Six(s.AngleZ) + ";";
    if (s.RotateY)
        out += "Y=" + Six(s.AngleY) + ";";
    if (s.RotateX)
        out += "X=" + Six(s.AngleX) + ";";
    return out;
}

TEST(CalculateAngles, GivesTheTurnsOfEachOrientation)
{
    struct Row {
        const char* look;
        const char* up;
        const char* turns;
    };
    // clang-format off
    const Row rows[] = {
        {"-1,0,0",          "0,1,0",          ""},
        {"0,0,1",           "0,1,0",          "Z=-90.000000;"},
        {"-0.6,0,0.8",      "0,1,0",          "Z=-53.130102;"},
        {"0.6,0,-0.8",      "0,1,0",          "Z=-233.130102;"},
        {"-0.8,-0.6,0",     "-0.6,0.8,0",     "X=-36.869898;"},
        {"-0.64,-0.6,0.48", "-0.48,0.8,0.36", "Z=-30.963757;Y=21.100196;X=-30.963757;"},
        {"-0.64,0.6,0.48",  "-0.48,-0.8,0.36","Z=-149.036243;Y=21.100196;X=-149.036243;"},
        {"0,0,1",           "-0.6,-0.8,0",    "Z=-90.000000;X=-143.130102;"},
        // The look tables, one look of each up row.
        {"0,0,-1",          "0,1,0",          "Z=90.000000;"},
        {"1,0,0",           "0,1,0",          "Z=180.000000;"},
        {"-1,0,0",          "0,-1,0",         "Z=-180.000000;X=180.000000;"},
        {"0,0,-1",          "0,-1,0",         "Z=90.000000;X=180.000000;"},
        {"0,-1,0",          "0,0,1",          "Z=-90.000000;Y=90.000000;"},
        {"-1,0,0",          "0,0,-1",         "Y=-90.000000;"},
        {"1,0,0",           "0,0,-1",         "Z=180.000000;Y=-90.000000;"},
        {"0,0,1",           "-1,0,0",         "Z=-90.000000;X=-90.000000;"},
        {"0,-1,0",          "-1,0,0",         "X=-90.000000;"},
        {"0,-1,0",          "1,0,0",          "Z=180.000000;X=90.000000;"},
        // A look off the table under an up along X or Y: the base turn alone.
        {"0.6,0.8,0",       "0,0,1",          "Y=90.000000;"},
        // Heading routines under an up along Z.
        {"0,0,1",           "0.0000001,1,0",  "Z=-90.000000;"},
        {"0,0,0",           "0,1,0",          "Z=-90.000000;"},
        {"0.5,0,0",         "0,1,-0",         "Z=-180.000000;"},
        {"-0.5,0,0",        "0,1,0",          "Z=0.000000;"},
        {"-0.6,0,0.8",      "0,-1,0",         "Z=-126.869898;X=180.000000;"},
        {"0.6,0,-0.8",      "0,-1,0",         "Z=53.130102;X=180.000000;"},
        // Zero heading in the general routines.
        {"0,0,0",           "-0.6,0.8,0",     "Z=90.000000;X=-36.869898;"},
    };
    // clang-format on
    for (const Row& row : rows) {
        Fixture f;
        f.Model(row.look, row.up);
        f.app.state.AngleX = 7; // a former model's angles must not leak into flags
        f.app.state.RotateY = true;
        CalculateAngles(f.app, "Model1");
        EXPECT_EQ(Flags(f.app.state), row.turns) << row.look << " / " << row.up;
        EXPECT_TRUE(f.platform.messages.empty()) << row.look << " / " << row.up;
    }
}

TEST(CalculateAngles, FailuresShowTwoBoxesAndKeepWhatWasSet)
{
    struct Row {
        const char* look;
        const char* up;
        double pi;
        const char* first;
        const char* second;
        const char* turns;
    };
    // clang-format off
    const Row rows[] = {
        {"",             "",              kPi, "Unexpected error in CalculateAngles_NegZ for Model1:  Overflow ( 6)",
                                               "LookX = 0  LookY = 0  LookZ = 0", ""},
        {"0,0,1",        "-0.8,0,0.6",    kPi, "Unexpected error in CalculateAngles_NegZ for Model1:  Division by zero ( 11)",
                                               "LookX = 1  LookY = 0  LookZ = 0", ""},
        {"-1,0,0",       "-0.5,0.5,1.5",  kPi, "Unexpected error in CalculateAngles_PosZ for Model1:  Invalid procedure call or argument ( 5)",
                                               "LookX = 0  LookY = 1  LookZ = 0", "X=-45.000000;"},
        {"-1,0,0",       "0,0.5,1",       kPi, "Unexpected error in CalculateAngles_PosZ for Model1:  Division by zero ( 11)",
                                               "LookX = 0  LookY = 1  LookZ = 0", ""},
        {"-1,0,0",       "0.25,-0.5,-1",  kPi, "Unexpected error in CalculateAngles_NegZ for Model1:  Division by zero ( 11)",
                                               "LookX = 0  LookY = 1  LookZ = 0", "X=-206.565051;"},
        // Without Pi the division by it fails inside the heading routines.
        {"-0.6,0,0.8",   "0,1,0",         0,   "Unexpected error in CalculateAngleZ_Pos for Model1:  Division by zero ( 11)",
                                               "LookX = 0.8  LookY = 0.6  LookZ = 0", "Z=7.000000;"},
        {"-0.6,0,0.8",   "0,-1,0",        0,   "Unexpected error in CalculateAngleZ_Neg for Model1:  Division by zero ( 11)",
                                               "LookX = 0.8  LookY = 0.6  LookZ = 0", "Z=7.000000;X=180.000000;"},
    };
    // clang-format on
    for (const Row& row : rows) {
        Fixture f;
        f.Model(row.look, row.up);
        f.app.state.Pi = row.pi;
        f.app.state.AngleZ = 7;
        CalculateAngles(f.app, "Model1");
        ASSERT_EQ(f.platform.messages.size(), 2u) << row.first;
        EXPECT_EQ(f.platform.messages[0].text, row.first);
        EXPECT_EQ(f.platform.messages[0].title, kDefaultMessageTitle);
        EXPECT_EQ(f.platform.messages[1].text, row.second);
        EXPECT_EQ(Flags(f.app.state), row.turns) << row.first;
    }
}

using V3 = std::array<double, 3>;

V3 Turn(const V3& v, int axis, double degrees)
{
    const double r = degrees * kPi / 180, c = std::cos(r), s = std::sin(r);
    const int a = (axis + 1) % 3, b = (axis + 2) % 3;
    V3 out = v;
    out[a] = c * v[a] - s * v[b];
    out[b] = s * v[a] + c * v[b];
    return out;
}

// Turns Z, Y, X about the fixed axes, as the script applies them.
V3 Apply(const RunState& s, V3 v)
{
    v = Turn(v, 2, s.RotateZ ? s.AngleZ : 0);
    v = Turn(v, 1, s.RotateY ? s.AngleY : 0);
    return Turn(v, 0, s.RotateX ? s.AngleX : 0);
}

TEST(CalculateAngles, GeneralTurnsGiveBackLookAndUp)
{
    std::mt19937 rng(20261122);
    std::uniform_real_distribution<double> any(-180, 180), tilt(-85, 85);
    for (int i = 0; i < 500; ++i) {
        RunState pose;
        pose.RotateX = pose.RotateY = pose.RotateZ = true;
        pose.AngleX = any(rng);
        pose.AngleY = tilt(rng);
        pose.AngleZ = any(rng);
        const V3 look = Apply(pose, {0, 1, 0});
        const V3 up = Apply(pose, {0, 0, 1});
        char text[2][128];
        // Scene axes: working (X, Y, Z) is scene (-Y, Z, X).
        std::snprintf(text[0], sizeof text[0], "%.9f,%.9f,%.9f", -look[1], look[2], look[0]);
        std::snprintf(text[1], sizeof text[1], "%.9f,%.9f,%.9f", -up[1], up[2], up[0]);

        Fixture f;
        f.Model(text[0], text[1]);
        CalculateAngles(f.app, "Model1");
        const RunState& s = f.app.state;
        const V3 gotLook = Apply(s, {0, 1, 0});
        const V3 gotUp = Apply(s, {0, 0, 1});
        const V3 wantLook{s.LookX, s.LookY, s.LookZ}, wantUp{s.UpX, s.UpY, s.UpZ};
        for (int k = 0; k < 3; ++k) {
            EXPECT_NEAR(gotLook[k], wantLook[k], 1e-5) << text[0] << " / " << text[1];
            EXPECT_NEAR(gotUp[k], wantUp[k], 1e-5) << text[0] << " / " << text[1];
        }
        EXPECT_TRUE(f.platform.messages.empty());
    }
}

} // namespace
} // namespace tos
