// The page's tables in Markdown.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "results.h"

namespace figures {

struct Run {
    std::string set;  // the instruction set of the kernels
    Results results;
};

// How many rows are ahead of their peers and near their limits, which are not, and all rows with their ratios in each
// run. Times are those of the last run.
void write_tables(std::ostream &out, const std::vector<Run> &runs);

// The exponent with which each line of the plots grows, with the plots themselves; they lie in the directory.
void write_growths(std::ostream &out, const std::vector<Growth> &growths, const std::string &directory);

}  // namespace figures
