// ink mac: builds scripts, lists them, tries them out.
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "command_line.h"
#include "core/reader.h"
#include "files/file.h"
#include "mac/declarations.h"
#include "mac/disassembler.h"
#include "mac/runner.h"
#include "script/instruction_set.h"

namespace ink::tool {
namespace {
namespace fs = std::filesystem;

struct Arguments {
    std::string input, output, declarations;
    bool damaged = false;
    mac::RunOptions run;
};

void build(const Arguments &arguments) {
    const mac::Program program = mac::assemble_file(arguments.input);
    const fs::path output = arguments.output.empty() ? path_of(arguments.input).replace_extension(".mac")
                                                     : path_of(arguments.output);
    write_bytes(output, program.file);
}

Bytes read_script(const std::string &name) {
    Bytes file = read_bytes(path_of(name));
    Reader reader(file);
    reader.seek(script::kCodeSizeAt);
    const std::uint32_t code_size = reader.u32();
    reader.seek(script::kProcedureCountAt);
    const std::uint32_t procedures = reader.u32();
    // Old scripts may have more behind their code.
    if (!reader.ok() || procedures > reader.left() / 4 ||
        reader.left() - 4 * std::size_t{procedures} < code_size)
        throw FileError(path_of(name), "is no script, or is damaged");
    return file;
}

void dump(const Arguments &arguments) {
    const Bytes file =
        arguments.damaged ? read_bytes(path_of(arguments.input)) : read_script(arguments.input);
    // Inclusions are relative to the file they stand in.
    const fs::path folder = path_of(arguments.output).parent_path();
    std::u8string include;
    if (!arguments.declarations.empty())
        include = fs::proximate(path_of(arguments.declarations), folder.empty() ? fs::path(".") : folder)
                      .generic_u8string();
    const std::string source = mac::disassemble(file, mac::read_declarations(arguments.declarations),
                                                {include.begin(), include.end()});
    write_text(arguments.output.empty() ? kStream : path_of(arguments.output), source);
}

void run(const Arguments &arguments) {
    const Bytes file = read_bytes(path_of(arguments.input));
    mac::Program program;
    // A script's header has bytes of zero, a source has none.
    if (std::ranges::find(file, 0) == file.end()) {
        program = mac::assemble_file(arguments.input);
    } else {
        program = mac::read_declarations(arguments.declarations);
        program.file = read_script(arguments.input);
    }
    try {
        mac::run(program, arguments.run, std::cout);
    } catch (const std::runtime_error &error) {
        throw FileError(path_of(arguments.input), error.what());
    }
}

}  // namespace

void add_mac(CLI::App &app) {
    CLI::App &mac = *add_group(app, "mac", "Scripts: builds them, lists them, tries them out");
    const auto arguments = std::make_shared<Arguments>();
    const char *const declarations = "A source that declares the game's commands and variables";

    CLI::App &builder =
        *add_command(mac, "build", "Make a script file of a source", {"ink mac build gate.mas"});
    builder.add_option("source", arguments->input, "The source")->required();
    builder.add_option("-o,--output", arguments->output, "The script file (the source's name with .mac)");
    builder.callback([arguments] { build(*arguments); });

    CLI::App &dumper =
        *add_command(mac, "dump", "Make a source of a script file, which builds to the same bytes",
                     {"ink mac dump gate.mac -d commands.mas -o gate.mas"});
    dumper.add_option("script", arguments->input, "The script file")->required();
    dumper.add_option("-o,--output", arguments->output, "The source (standard output)");
    dumper.add_option("-d,--declarations", arguments->declarations, declarations);
    dumper.add_flag("--damaged", arguments->damaged, "List what is there of a damaged script, too");
    dumper.callback([arguments] { dump(*arguments); });

    CLI::App &runner = *add_command(mac, "run", "Run a procedure and show the commands it gives the game",
                                    {"ink mac run gate.mas -p main -s gold=20"});
    runner.add_option("script", arguments->input, "The script file or its source")->required();
    runner.add_option("-p,--procedure", arguments->run.procedure, "Number or name (0)");
    runner.add_option("-s,--set", arguments->run.settings, "A variable's value before, as NAME=VALUE");
    runner.add_option("-n,--variables", arguments->run.variables,
                      "How many variables there are at least (100)");
    runner.add_option("-l,--limit", arguments->run.limit,
                      "Instructions after which the run is broken off (10000000)");
    runner.add_option("-d,--declarations", arguments->declarations, declarations);
    runner.callback([arguments] { run(*arguments); });
}

}  // namespace ink::tool
