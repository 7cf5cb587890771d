#include "orientation/tile_grid.h"

#include "support/conversions.h"

namespace tos {

TileWindow MainTileWindow(Num gridRes, Num tiles)
{
    TileWindow w;
    if (tiles == Num(6)) {
        w.tile = gridRes * Num(512);
        w.start = gridRes * Num(512);
        w.end = gridRes * Num(512) + w.start;
    } else {
        w.tile = gridRes * Num(256);
        w.start = gridRes * Num(256) * (tiles - Num(1)) / Num(2);
        w.end = gridRes * Num(256) + w.start;
    }
    return w;
}

TileGeometry WorkOutGeometry(bool mainTile, Num gridRes, double tiles)
{
    if (mainTile && tiles == 6.0) {
        return {gridRes * Num(512), gridRes * Num(512) * Num(3) / Num(2), Num(0)};
    }
    if (mainTile) {
        return {gridRes * Num(256), gridRes * Num(256) * Num(tiles) / Num(2), Num(0)};
    }
    return {gridRes * Num(256), gridRes * Num(256) / Num(2), gridRes * Num(256)};
}

Num Fold(Num v, const TileGeometry& g)
{
    if (!(v > g.limit))
        return v;
    const Int16 m = ToInt16((Num(FloorNumber(((v - g.limit) / g.tile).value())) + Num(1)).value());
    return v - Num(m.value()) * g.tile;
}

MaxGround ToMaxGround(Num x, Num z, Num centre)
{
    // The order of operations is the builder's; it decides the last digits.
    return {z - centre, centre + centre - x - centre};
}

} // namespace tos
