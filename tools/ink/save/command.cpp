// ink save: the saved state of scripts.
#include <iostream>
#include <memory>
#include <utility>

#include "charset/big5.h"
#include "command_line.h"
#include "info/report.h"
#include "mac/declarations.h"

namespace ink::tool {
namespace {

struct Arguments {
    std::string file, declarations;
    bool all = false;
};

void show(const Arguments &arguments) {
    const Bytes file = read_bytes(path_of(arguments.file));
    auto report = describe_saved_state(file);
    if (!report) throw FileError(path_of(arguments.file), "is no saved state of a script");
    const mac::Program program = mac::read_declarations(arguments.declarations);
    const auto variables = std::exchange(report->rows, {});
    std::cout << page_of(arguments.file, *report);
    for (const auto &row : variables) {
        const auto index = std::get<std::int64_t>(row[0]), value = std::get<std::int64_t>(row[1]);
        const std::string name = program.variable_name(index);
        if (value != 0 || arguments.all)
            std::cout << "    " << (name.empty() ? '#' + std::to_string(index) : name) << " = " << value
                      << '\n';
    }
}

}  // namespace

void add_save(CLI::App &app) {
    CLI::App *group = add_group(app, "save", "Saved states of scripts");
    const auto arguments = std::make_shared<Arguments>();
    CLI::App *command = add_command(*group, "show", "Print the script and the variables of a saved state",
                                    {"ink save show talk.sav -d commands.mas"});
    command->add_option("file", arguments->file, "The saved state")->required();
    command->add_option("-d,--declarations", arguments->declarations,
                        "A source that declares the game's variables");
    command->add_flag("-a,--all", arguments->all, "Print variables that are 0 too");
    command->callback([arguments] { show(*arguments); });
}

}  // namespace ink::tool
