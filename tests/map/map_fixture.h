#pragma once

#include <string>

#include "project/scene_fixture.h"

namespace tos::test {

// A scene around the main tile of 5 tiles at grid resolution 3.0 (window 1536 to
// 2304): each kind of model, models on the window's edges and just past it, and
// perimeter models that fold onto the first tile.
inline std::string MapScene()
{
    return SceneText({
        {.value = "Tree_KV_Oak.SLT", .position = "1920,4,2000"},    // 1 object, inside
        {.value = "Barn.SLT", .position = "768.5,0,1536"},          // 2 object, outside
        {.value = "Billboard_FOX.SLB", .position = "1600,0,1600"},  // 3 billboard, inside
        {.value = "Fox03.SLB", .position = "100,0,100"},            // 4 bale, outside
        {.value = "TripleBale01.SLB", .position = "2000,0,2000"},   // 5 triple bale, inside
        {.value = "50Gal.SLB", .position = "2304,0,2304"},          // 6 drum, on the far edge
        {.value = "Rock.xyz", .position = "2000,0,1900"},           // 7 other, never listed
        {.value = "Tree_KV_Pine.SLT", .position = "2304.5,0,2000"}, // 8 object, just past it
        {.value = "Tree_KV_Elm.SLT", .position = "1536,0,1536"},    // 9 object, on the near edge
    });
}

} // namespace tos::test
