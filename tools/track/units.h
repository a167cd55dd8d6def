// How a drawing counts: where a cell of the map is in it, and how long so many cells are.
#pragma once

#include <string>

namespace tarvik {

/// The units of a check's findings: by default the cells of the map, for a drawing its own units,
/// so that its author finds the place.
struct Units {
    double cells_a_unit = 1;
    double left = 0; ///< of the page in the drawing's units
    double top = 0;
    std::string name = "cells"; ///< or "units", "pixels"

    /// "24 cells"
    [[nodiscard]] std::string length(double cells) const;
    /// A number alone: how far from the left, or from the top, so many cells are.
    [[nodiscard]] std::string across(double cells) const;
    [[nodiscard]] std::string down(double cells) const;
    /// "(2400, 2480)"
    [[nodiscard]] std::string place(double x, double y) const;
};

} // namespace tarvik
