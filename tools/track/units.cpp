// Numbers in the units of a drawing, as short as possible.
#include "tools/track/units.h"

#include <cmath>
#include <cstdio>

namespace tarvik {
namespace {

// Whole where a unit is a cell or less; else as fine as a cell or so, without needless zeros.
std::string number(double value, double cells_a_unit) {
    const int decimals =
        cells_a_unit > 1 ? static_cast<int>(std::ceil(std::log10(cells_a_unit))) : 0;
    const double scale = std::pow(10, decimals);
    char text[32];
    std::snprintf(text, sizeof text, "%.10g", std::round(value * scale) / scale + 0.0);
    return text;
}

} // namespace

std::string Units::length(double cells) const {
    return number(cells / cells_a_unit, cells_a_unit).append(" ").append(name);
}

std::string Units::across(double cells) const {
    return number(left + cells / cells_a_unit, cells_a_unit);
}

std::string Units::down(double cells) const {
    return number(top + cells / cells_a_unit, cells_a_unit);
}

std::string Units::place(double x, double y) const {
    std::string text = "(";
    return text.append(across(x)).append(", ").append(down(y)).append(")");
}

} // namespace tarvik
