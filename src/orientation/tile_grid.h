#pragma once

#include "support/checked.h"

namespace tos {

// The square of the main tile in the scene's ground axes (x and z), with the
// side of one tile that the scale and grid size are worked out from.
struct TileWindow {
    Num tile;
    Num start;
    Num end;

    // Both ends count as inside.
    bool Contains(Num x, Num z) const { return start <= x && x <= end && start <= z && z <= end; }
};

// The window of the main tile. tiles is already rounded to a whole number; 6
// tiles have a main tile twice as wide.
TileWindow MainTileWindow(Num gridRes, Num tiles);

// Where a builder puts the origin of 3ds Max, and how perimeter models fold.
struct TileGeometry {
    Num tile;
    Num centre; // scene coordinate that becomes 0 in 3ds Max, in both ground axes
    Num limit;  // perimeter mode only: highest coordinate that stays unfolded
};

// tiles is compared unrounded here, unlike the window's.
TileGeometry WorkOutGeometry(bool mainTile, Num gridRes, double tiles);

// Brings a coordinate beyond the first tile back by whole tiles (perimeter mode).
// A zero tile is failure 11, a fold of more than 32,767 tiles failure 6.
Num Fold(Num v, const TileGeometry& g);

// A scene ground position (x, z) in 3ds Max's x and y, before any scaling:
// scene z runs along Max x, scene x against Max y.
struct MaxGround {
    Num x;
    Num y;
};
MaxGround ToMaxGround(Num x, Num z, Num centre);

} // namespace tos
