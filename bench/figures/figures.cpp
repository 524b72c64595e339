// figures PAGE PLOTS SET=RESULTS,...: puts the tables of what the benchmarks wrote for each instruction set into a
// page (of several results for a set the later replace the earlier), between the two lines that mark their place, and draws the plots of the last set into a directory beside it.
// What was measured where, when and how is read from the standard input and stands before the tables.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

#include "growth_plot.h"
#include "tables.h"

namespace {

using namespace figures;

constexpr const char *kStart = "<!-- figures: scripts/figures writes what follows -->\n";
constexpr const char *kEnd = "<!-- end of figures -->\n";

std::string read_all(std::istream &in) {
    return {std::istreambuf_iterator<char>(in), {}};
}

int fail(const std::string &why) {
    std::cerr << "figures: " << why << '\n';
    return 1;
}

}  // namespace

int main(int argc, char **argv) {
    if (argc < 4) return fail("usage: figures PAGE PLOTS SET=RESULTS,...");
    const std::filesystem::path page_name = argv[1], plots = argv[2];
    std::vector<Run> runs;
    for (int i = 3; i < argc; ++i) {
        const std::string argument = argv[i];
        const std::size_t equals = argument.find('=');
        if (equals == std::string::npos) return fail(argument + " is no SET=RESULTS");
        runs.push_back({argument.substr(0, equals), {}});
        std::istringstream names(argument.substr(equals + 1));
        for (std::string name; std::getline(names, name, ',');) {
            std::ifstream json(name);
            read_results(runs.back().results, json);
        }
        if (runs.back().results.sections.empty()) return fail(argument + " holds no figures");
    }

    std::ifstream in(page_name);
    const std::string page = read_all(in);
    const std::size_t start = page.find(kStart), end = page.find(kEnd);
    if (start == std::string::npos || end == std::string::npos || end < start)
        return fail(page_name.string() + " does not mark the place of the figures");
    std::ostringstream tables;
    tables << kStart << '\n' << read_all(std::cin) << '\n';
    write_tables(tables, runs);
    tables << "### How cost grows\n\n";
    write_growths(tables, runs.back().results.growths, plots.filename().string());
    tables << '\n';
    std::ofstream out(page_name);
    out << page.substr(0, start) << tables.str() << page.substr(end);

    std::filesystem::create_directories(plots);
    for (const Growth &growth : runs.back().results.growths) {
        std::ofstream svg(plots / plot_name(growth));
        write_plot(svg, growth);
        if (!svg.flush()) return fail("a plot cannot be written");
    }
    return out.flush() ? 0 : fail(page_name.string() + " cannot be written");
}
