// What assistive technology hears of a grid.

#pragma once

namespace tessera {

class GridView;

// From then on every TesseraWidget is a table of its accessible name, and its client area, which has the
// keyboard, the cell of the focus: its name is what the cell shows. Called again it does nothing.
void installGridAccessibility();

// The focus has moved to another cell.
void announceCell(GridView& view);

}  // namespace tessera
