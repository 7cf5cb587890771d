#pragma once

#include "forms/main_form.h"

namespace tos {

// A place on the main form as designed: pixels of 15 twips (one pixel at 96 dots
// per inch) from the top left of the form's inner area.
struct DesignedPlace {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// Where a control of the main form stands at the designed size; both front ends
// place their controls from here. A label has the height of a text line and sits
// centred beside its box; a combo box has the height of its closed box. A control
// the form does not place has an empty place.
DesignedPlace DesignedPlaceOf(const MainForm& form, const Control& control);

} // namespace tos
