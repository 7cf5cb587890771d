#pragma once

#include <string>

namespace tos {

struct App;
class Platform;

// A vector in working axes, those of 3ds Max.
struct Vec3 {
    double x = 0, y = 0, z = 0;
};

// A scene vector given as text "x,y,z" in working axes: (x, y, z) becomes
// (z, -x, y), each element rounded to 6 decimals before the mapping.
Vec3 WorkingVector(Platform& platform, const std::string& text);

// Reads LookVector and UpVector of the model section of the scene and leaves the
// working vectors, the turns and their flags in the run state. It has no trap of
// its own: a failure here belongs to the builder that called it.
void CalculateAngles(App& app, const std::string& section);

// Heading under an up vector of (0, 0, 1) and of (0, 0, -1). The caller has set
// RotateZ already; the section only names the model in the failure boxes.
void CalculateAngleZ_Pos(App& app, const std::string& section);
void CalculateAngleZ_Neg(App& app, const std::string& section);

// A free orientation, for UpZ above 0 and for UpZ 0 or below.
void CalculateAngles_PosZ(App& app, const std::string& section);
void CalculateAngles_NegZ(App& app, const std::string& section);

} // namespace tos
