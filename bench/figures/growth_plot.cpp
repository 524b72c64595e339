#include "growth_plot.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ostream>

namespace figures {

namespace {

constexpr int kWidth = 420, kHeight = 300, kLeft = 62, kTop = 30, kRight = 30, kBottom = 42;
const char *const kColours[] = {"#1b62a5", "#c1440e", "#2a7d3f", "#7a4a9c"};

// One axis: whole decades from first to last, laid over pixels from start to end.
struct Axis {
    int first, last, start, end;

    double at(double value) const {
        return start + (end - start) * (std::log10(value) - first) / std::max(1, last - first);
    }
};

Axis axis(double least, double greatest, int start, int end) {
    return {static_cast<int>(std::floor(std::log10(least))),
            static_cast<int>(std::ceil(std::log10(greatest))), start, end};
}

std::string size_text(int decade) {
    constexpr const char *kNames[] = {"1", "10", "100", "1,000", "10,000", "100,000", "1 M", "10 M"};
    return kNames[std::clamp(decade, 0, 7)];
}

std::string time_text(int decade) {
    constexpr const char *kUnits[] = {"ns", "µs", "ms", "s"};
    constexpr const char *kNumbers[] = {"1", "10", "100"};
    if (decade < 0) return "0.1 ns";
    return std::string(kNumbers[decade % 3]) + " " + kUnits[std::min(decade / 3, 3)];
}

void write_text(std::ostream &out, double x, double y, const char *anchor, const std::string &text,
                const char *colour = "#333") {
    out << "<text x=\"" << x << "\" y=\"" << y << "\" text-anchor=\"" << anchor << "\" fill=\"" << colour
        << "\">" << text << "</text>\n";
}

void write_line(std::ostream &out, double x1, double y1, double x2, double y2) {
    out << "<line x1=\"" << x1 << "\" y1=\"" << y1 << "\" x2=\"" << x2 << "\" y2=\"" << y2
        << "\" stroke=\"#ddd\"/>\n";
}

}  // namespace

double exponent(const Growth::Line &line) {
    const Growth::Point &last = line.points.back(), &middle = line.points[(line.points.size() - 1) / 2];
    return std::log(last.time / middle.time) / std::log(last.size / middle.size);
}

std::string plot_name(const Growth &growth) {
    return growth.title.substr(0, growth.title.find(' ')) + ".svg";
}

void write_plot(std::ostream &out, const Growth &growth) {
    double small = 1e300, large = 0, quick = 1e300, slow = 0;
    for (const Growth::Line &line : growth.lines)
        for (const Growth::Point &point : line.points) {
            small = std::min(small, point.size), large = std::max(large, point.size);
            quick = std::min(quick, point.time), slow = std::max(slow, point.time);
        }
    const Axis sizes = axis(small, large, kLeft, kWidth - kRight),
               times = axis(quick, slow, kHeight - kBottom, kTop);
    out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << kWidth << "\" height=\"" << kHeight
        << "\" font-family=\"sans-serif\" font-size=\"11\">\n<rect width=\"100%\" height=\"100%\" "
           "fill=\"white\"/>\n";
    write_text(out, kLeft, 18, "start", growth.title);
    for (int decade = sizes.first; decade <= sizes.last; ++decade) {
        const double x = sizes.at(std::pow(10, decade));
        write_line(out, x, kTop, x, kHeight - kBottom);
        write_text(out, x, kHeight - kBottom + 15, "middle", size_text(decade));
    }
    for (int decade = times.first; decade <= times.last; ++decade) {
        const double y = times.at(std::pow(10, decade));
        write_line(out, kLeft, y, kWidth - kRight, y);
        write_text(out, kLeft - 6, y + 4, "end", time_text(decade));
    }
    write_text(out, (kLeft + kWidth - kRight) / 2.0, kHeight - 10, "middle", growth.unit);
    double legend = kTop + 14;
    for (std::size_t i = 0; i < growth.lines.size(); ++i, legend += 14) {
        const char *colour = kColours[i % std::size(kColours)];
        out << "<polyline fill=\"none\" stroke-width=\"1.8\" stroke=\"" << colour << "\" points=\"";
        for (const Growth::Point &point : growth.lines[i].points)
            out << sizes.at(point.size) << ',' << times.at(point.time) << ' ';
        out << "\"/>\n";
        write_text(out, kLeft + 8, legend, "start", growth.lines[i].who, colour);
    }
    out << "</svg>\n";
}

}  // namespace figures
