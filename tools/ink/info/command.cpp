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

void info(const Arguments &arguments) {
    bool faulty = false;
    std::string text;
    for (const std::string &name : expand_patterns(arguments.files)) {
        const std::filesystem::path path = path_of(name);
        auto report = describe(read_bytes(path), path);
        if (!report) {
            report.emplace();
            report->format = "unknown";
            report->faults.emplace_back("it is of no format that is known here");
        }
        faulty = faulty || !report->faults.empty();
        if (!text.empty()) text += arguments.json ? ",\n" : "\n";
        text += arguments.json ? json_of(name, *report) : page_of(name, *report);
    }
    write_text(kStream, arguments.json ? '[' + text + "]\n" : text);
    if (faulty) throw std::runtime_error("not every file is as its format wants it");
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
