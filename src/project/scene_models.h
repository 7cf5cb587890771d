#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "orientation/tile_grid.h"
#include "support/checked.h"
#include "support/profile.h"

namespace tos {

struct App;
struct MainForm;

// Reads the grid values of the form, works out the window and brings the grid
// size and object scale into line: whichever box chkUseObjectScale says rules
// sets the other. Division by a zero tile is failure 11 (6 for a zero size).
TileWindow ReadTileWindowAndLinkScale(App& app);

// Reads the SLT value of Model1..Model<count> and calls visit(n, value, distinct)
// (distinct as ProfileFiles::ForEachNumberedValue gives it),
// with the outcome of a 32-bit counted loop over every number: numbers whose
// section the scene lacks are skipped unread (visit must take nothing from a ""
// value), and a count of 2,147,483,647 ends in failure 6 when the counter steps
// past it. A scene that cannot be read is read number by number, so its
// reader's message comes at every read.
void ForEachModel(App& app, Int32 count,
                  const ProfileFiles::NumberedVisit& visit);

// The section of model n: "Model" and the number.
std::string ModelSection(Int32 n);

// Reads the Position of model n and answers whether the load takes the model:
// inside the window with chkMainTile checked, outside it otherwise.
bool IsInChosenTiles(App& app, const TileWindow& window, Int32 n);

// A record row of two fields: first, "|", second.
std::string RecordRow(std::string_view first, std::string_view second);

// Model number as it stands in a record row: three digits at least.
std::string ModelNumberField(Int32 n);

// A number as the pattern "000" writes it: led by zeros to three digits.
std::string ThreeDigitField(Int32 n);

// Reads NumberOfStaticModels and counts the models whose file is an .SLT.
void GetSLTcount(App& app);

// Fills lstSCNdata1..3 of the form with the models of the chosen tiles: the
// placed models (stem|number), their copy numbers (stem|number|copy) and one
// row for each distinct stem.
void ProcessSCNmodels(App& app, MainForm& form);

} // namespace tos
