// ink info: what a file is, by its content.
#include <cstdio>
#include <memory>

#include "command_line.h"
#include "info/report.h"

namespace ink::tool {
namespace {

struct Arguments {
    std::vector<std::string> files;
    bool json = false;
};

// Of several files one that cannot be read is no reason to say nothing of the others.
Report report_of(const std::filesystem::path &name) {
    Bytes file;
    try {
        file = read_bytes(name);
    } catch (const FileError &error) {
        Report report("unreadable");
        report.faults.emplace_back(error.reason());
        return report;
    }
    if (auto report = describe(file, name)) return *report;
    Report report("unknown");
    report.faults.emplace_back(file.empty() ? "it is empty" : "it is of no format that is known here");
    return report;
}

void info(const Arguments &arguments) {
    std::vector<FileError> faulty;
    std::string text;
    const auto names = expand_patterns(arguments.files);
    for (const std::string &name : names) {
        Report report = report_of(path_of(name));
        if (!report.faults.empty()) faulty.emplace_back(path_of(name), report.faults.front());
        if (!text.empty()) text += arguments.json ? ",\n" : "\n";
        text += arguments.json ? json_of(name, report) : page_of(name, report);
    }
    write_text(kStream, arguments.json ? '[' + text + "]\n" : text);
    if (faulty.size() == 1) throw faulty[0];
    if (!faulty.empty())
        throw std::runtime_error(std::to_string(faulty.size()) + " of " + counted(names.size(), "file") +
                                 " are not as their formats want them");
}

}  // namespace

void add_info(CLI::App &app) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App *command = add_command(
        app, "info", "Say what files are, what is in them, and where they break their format",
        {"ink info *.can", "ink info --json old/disk.bnd"},
        "A file is known by its content: pictures, palettes, animations, films, archives, packed files, "
        "fonts, scripts and their saved states, settings, sounds, discs and records. The command fails when "
        "a file is of no known format or breaks it.");
    command->add_option("files", arguments->files, "Files, or patterns of names")->required();
    command->add_flag("--json", arguments->json, "For programs");
    command->callback([arguments] { info(*arguments); });
}

}  // namespace ink::tool
