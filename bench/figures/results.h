// What a run of the benchmarks measured, told apart by the names SECTION/ROW/WHO[/CASE].
#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace figures {

// One line of a table, for each who it was measured with the median of its times in nanoseconds.
struct Row {
    std::string name;
    std::map<std::string, double> times;

    bool measured(const std::string &who) const { return times.contains(who); }
};

struct Section {
    std::string name;
    std::vector<Row> rows;
};

// Time against size, a line for each who.
struct Growth {
    std::string title, unit;
    struct Point {
        double size, time;
    };
    struct Line {
        std::string who;
        std::vector<Point> points;
    };
    std::vector<Line> lines;
};

struct Results {
    std::vector<Section> sections;  // in the order of their names; no rows this library has no part in
    std::vector<Growth> growths;    // those of the section of that name: Growth/TITLE, UNIT/WHO/SIZE
};

// Reads what --benchmark_format=json writes, over what an earlier run gave.
void read_results(Results &results, std::istream &json);

// Us; and who stands beside: a limit's name begins with that word, that of plain code of our own, which is measured
// to know what clever code is worth, with the other. All others are peers.
inline constexpr const char *kOurs = "inkstone";
inline constexpr const char *kLimit = "limit ", *kPlain = "plain ";

}  // namespace figures
