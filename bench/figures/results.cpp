#include "results.h"

#include <algorithm>
#include <cstdlib>
#include <istream>
#include <map>
#include <optional>
#include <utility>

namespace figures {

namespace {

// The value of a field that stands on a line of its own, as the benchmarks write them; no name has a quotation mark.
std::optional<std::string> field(const std::string &line, const std::string &name) {
    const std::string start = "\"" + name + "\": ";
    const std::size_t at = line.find(start);
    if (at == std::string::npos) return std::nullopt;
    std::string value = line.substr(at + start.size());
    while (!value.empty() && (value.back() == ',' || value.back() == '"')) value.pop_back();
    return value.substr(!value.empty() && value.front() == '"');
}

double nanoseconds(const std::string &unit) {
    return unit == "ns" ? 1 : unit == "us" ? 1e3 : unit == "ms" ? 1e6 : 1e9;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

struct Measured {
    std::string name, label;
    int family = 0, instance = 0;  // the order in which they were registered; they are run in any
    std::vector<double> times;
};

// Every repetition; what the benchmarks themselves make of them is passed over.
std::vector<Measured> read_times(std::istream &json) {
    std::map<std::string, Measured> all;
    Measured now;
    bool repetition = false;
    double time = 0;
    for (std::string line; std::getline(json, line);) {
        if (const auto value = field(line, "run_name")) now.name = *value;
        if (const auto value = field(line, "family_index")) now.family = std::atoi(value->c_str());
        if (const auto value = field(line, "per_family_instance_index"))
            now.instance = std::atoi(value->c_str());
        if (const auto value = field(line, "run_type")) repetition = *value == "iteration";
        if (const auto value = field(line, "cpu_time")) time = std::strtod(value->c_str(), nullptr);
        if (const auto value = field(line, "time_unit"); value && repetition)
            all.try_emplace(now.name, now).first->second.times.push_back(time * nanoseconds(*value));
        if (const auto value = field(line, "label"); value && repetition) all[now.name].label = *value;
    }
    std::vector<Measured> sorted;
    for (auto &[name, measured] : all) sorted.push_back(std::move(measured));
    std::sort(sorted.begin(), sorted.end(), [](const Measured &a, const Measured &b) {
        return std::pair(a.family, a.instance) < std::pair(b.family, b.instance);
    });
    return sorted;
}

std::vector<std::string> split(const std::string &name) {
    std::vector<std::string> parts(1);
    for (const char c : name) {
        if (c == '/')
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

// The element of that name, added where there is none yet.
template <class Named>
Named &named(std::vector<Named> &all, std::string Named::*key, const std::string &name) {
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Named &one) { return one.*key == name; });
    if (found != all.end()) return *found;
    all.emplace_back().*key = name;
    return all.back();
}

void set_point(std::vector<Growth> &growths, const std::vector<std::string> &parts, double time) {
    const std::size_t comma = parts[1].rfind(", ");
    Growth &growth = named(growths, &Growth::title, parts[1].substr(0, comma));
    growth.unit = parts[1].substr(comma + 2);
    std::vector<Growth::Point> &points = named(growth.lines, &Growth::Line::who, parts[2]).points;
    const double size = std::strtod(parts.back().c_str(), nullptr);
    const auto found = std::find_if(points.begin(), points.end(),
                                    [&](const Growth::Point &point) { return point.size == size; });
    if (found != points.end())
        found->time = time;
    else
        points.push_back({size, time});
}

}  // namespace

void read_results(Results &results, std::istream &json) {
    for (const Measured &measured : read_times(json)) {
        const std::vector<std::string> parts = split(measured.name);
        if (parts.size() < 3) continue;
        const double time = median(measured.times);
        if (parts[0] == "Growth") {
            set_point(results.growths, parts, time);
            continue;
        }
        std::string which = measured.label;
        for (std::size_t i = 3; i < parts.size() && measured.label.empty(); ++i)
            which += (which.empty() ? "" : " ") + parts[i];
        Section &section = named(results.sections, &Section::name, parts[0]);
        named(section.rows, &Row::name, parts[1] + (which.empty() ? "" : ": " + which)).times[parts[2]] =
            time;
    }
    for (Section &section : results.sections)
        std::erase_if(section.rows, [](const Row &row) { return !row.measured(kOurs); });
    std::sort(results.sections.begin(), results.sections.end(),
              [](const Section &a, const Section &b) { return a.name < b.name; });
}

}  // namespace figures
