#include "tables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>
#include <ostream>

#include "growth_plot.h"

namespace figures {

namespace {

// What every row should reach: twice the best peer, and this part of a limit that is a loop over memory or a table.
constexpr double kAhead = 2, kNear = 0.8;

std::string format(const char *how, double value) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), how, value);
    return text.data();
}

std::string time_text(double nanoseconds) {
    if (nanoseconds < 1e3) return format("%.3g ns", nanoseconds);
    if (nanoseconds < 1e6) return format("%.3g µs", nanoseconds / 1e3);
    return format("%.3g ms", nanoseconds / 1e6);
}

std::string ratio_text(double ratio) {
    return format(ratio < 10 ? "%.1f" : "%.0f", ratio);
}

struct Rival {
    std::string who;
    double ratio;  // its time in ours
};

// The fastest of the limits, or of the peers.
std::optional<Rival> best(const Row &row, bool limits) {
    std::optional<Rival> found;
    const double ours = row.times.at(kOurs);
    for (const auto &[who, time] : row.times)
        if (who != kOurs && !who.starts_with(kPlain) && who.starts_with(kLimit) == limits &&
            (!found || time / ours < found->ratio))
            found = Rival{who, time / ours};
    if (found && limits) found->who.erase(0, std::string(kLimit).size());
    return found;
}

// Stores in a list's order and other calls are limits to compare with, not to reach.
bool to_be_reached(const std::string &limit) {
    return limit.starts_with("mem") || limit.starts_with("read") || limit == "table";
}

const Row *find(const Run &run, const Section &section, const Row &row) {
    for (const Section &other : run.results.sections)
        if (other.name == section.name)
            for (const Row &same : other.rows)
                if (same.name == row.name) return &same;
    return nullptr;
}

struct Standing {
    int rows = 0, twice = 0, ahead = 0, limited = 0, near = 0;
};

void count(Standing &all, const Row &row) {
    if (const auto peer = best(row, false)) {
        ++all.rows;
        all.twice += peer->ratio >= kAhead;
        all.ahead += peer->ratio >= 1;
    }
    if (const auto limit = best(row, true); limit && to_be_reached(limit->who)) {
        ++all.limited;
        all.near += limit->ratio >= kNear;
    }
}

void write_standing(std::ostream &out, const std::vector<Run> &runs) {
    out << "| Instruction set | Rows with a peer | as fast | twice as fast | Rows with a loop as limit | 80 "
           "% of it |\n"
           "|---|---|---|---|---|---|\n";
    for (const Run &run : runs) {
        Standing all;
        for (const Section &section : run.results.sections)
            for (const Row &row : section.rows) count(all, row);
        out << "| " << run.set << " | " << all.rows << " | " << all.ahead << " | " << all.twice << " | "
            << all.limited << " | " << all.near << " |\n";
    }
    out << '\n';
}

// A ratio, bold where it falls short of what every row should reach.
std::string cell(const std::optional<Rival> &rival, bool limit) {
    if (!rival) return "";
    const bool short_of = limit ? to_be_reached(rival->who) && rival->ratio < kNear : rival->ratio < kAhead;
    const std::string text = limit ? format("%.0f", 100 * rival->ratio) : ratio_text(rival->ratio);
    return short_of ? "**" + text + "**" : text;
}

void write_row(std::ostream &out, const std::vector<Run> &runs, const Section &section, const Row &row) {
    const auto peer = best(row, false), limit = best(row, true);
    out << "| " << row.name << " | " << time_text(row.times.at(kOurs)) << " | " << (peer ? peer->who : "");
    for (const bool limits : {false, true}) {
        if (limits) out << " | " << (limit ? limit->who : "");
        for (const Run &run : runs) {
            const Row *same = find(run, section, row);
            out << " | " << (same != nullptr ? cell(best(*same, limits), limits) : "");
        }
    }
    out << " |\n";
}

}  // namespace

void write_tables(std::ostream &out, const std::vector<Run> &runs) {
    write_standing(out, runs);
    for (const Section &section : runs.back().results.sections) {
        out << "### " << section.name << "\n\n| Row | Time | Best peer";
        for (const Run &run : runs) out << " | x " << run.set;
        out << " | Limit";
        for (const Run &run : runs) out << " | % " << run.set;
        out << " |\n|---|---|---";
        for (std::size_t i = 0; i < 2 * runs.size() + 1; ++i) out << "|---";
        out << "|\n";
        for (const Row &row : section.rows) write_row(out, runs, section, row);
        out << '\n';
    }
}

void write_growths(std::ostream &out, const std::vector<Growth> &growths, const std::string &directory) {
    out << "| What, size | Line | Smallest | Largest | Time grows as size to the power "
           "|\n|---|---|---|---|---|\n";
    for (const Growth &growth : growths)
        for (const Growth::Line &line : growth.lines) {
            const Growth::Point &first = line.points.front(), &last = line.points.back();
            out << "| " << growth.title << ", " << growth.unit << " | " << line.who << " | "
                << format("%.0f: ", first.size) << time_text(first.time) << " | "
                << format("%.0f: ", last.size) << time_text(last.time) << " | "
                << format("%.2f", exponent(line)) << " |\n";
        }
    out << '\n';
    for (const Growth &growth : growths)
        out << "![" << growth.title << "](" << directory << '/' << plot_name(growth) << ")\n";
}

}  // namespace figures
