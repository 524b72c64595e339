// How time grows with size, as a picture: both axes logarithmic, so that what grows in proportion is a straight line
// that climbs one decade for each.
#pragma once

#include <iosfwd>
#include <string>

#include "results.h"

namespace figures {

// The power of the size that the time grows with, over the larger half of the sizes.
double exponent(const Growth::Line &line);

// The plot's file name.
std::string plot_name(const Growth &growth);

// Writes it as SVG.
void write_plot(std::ostream &out, const Growth &growth);

}  // namespace figures
