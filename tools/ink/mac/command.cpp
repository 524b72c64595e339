// ink mac: builds scripts, lists them, tries them out.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>

#include "commands.h"
#include "mac/assembler.h"
#include "mac/diagnostic.h"
#include "mac/disassembler.h"
#include "mac/runner.h"

namespace ink::tool {
namespace {
namespace fs = std::filesystem;

std::optional<std::string> read(const std::string &name) {
    std::ifstream file(name, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    if (!file.is_open() || fs::is_directory(name)) return std::nullopt;
    return text;
}

std::string read_or_fail(const std::string &name) {
    auto text = read(name);
    if (!text) throw std::runtime_error("cannot read " + name);
    return *std::move(text);
}

void write(const std::string &name, std::string_view bytes) {
    std::ofstream file(name, std::ios::binary);
    if (!file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush())
        throw std::runtime_error("cannot write " + name);
}

mac::Program assemble(const std::string &name) {
    return mac::assemble(name, read_or_fail(name), read);
}

std::string_view as_text(const std::vector<std::uint8_t> &bytes) {
    return {reinterpret_cast<const char *>(bytes.data()), bytes.size()};
}

struct Arguments {
    std::string input, output, declarations;
    mac::RunOptions run;
};

mac::Program declarations(const Arguments &arguments) {
    if (arguments.declarations.empty()) return {};
    mac::Program program = assemble(arguments.declarations);
    if (program.file.size() != mac::assemble("", "", read).file.size())
        throw std::runtime_error(arguments.declarations +
                                 " has procedures or instructions; it may only declare names");
    return program;
}

void build(const Arguments &arguments) {
    const mac::Program program = assemble(arguments.input);
    const std::string output = arguments.output.empty()
                                   ? fs::path(arguments.input).replace_extension(".mac").string()
                                   : arguments.output;
    if (output == arguments.input)
        throw std::runtime_error("the script would replace its source; name another with -o");
    write(output, as_text(program.file));
}

void dump(const Arguments &arguments) {
    const std::string file = read_or_fail(arguments.input);
    // Inclusions are relative to the file they stand in.
    const fs::path folder = fs::path(arguments.output).parent_path();
    const std::string include =
        arguments.declarations.empty()
            ? ""
            : fs::proximate(arguments.declarations, folder.empty() ? fs::path(".") : folder).generic_string();
    const std::string source = mac::disassemble(
        {reinterpret_cast<const std::uint8_t *>(file.data()), file.size()}, declarations(arguments), include);
    if (arguments.output.empty())
        std::cout << source;
    else
        write(arguments.output, source);
}

void run(const Arguments &arguments) {
    const std::string file = read_or_fail(arguments.input);
    mac::Program program;
    // A script's header has bytes of zero, a source has none.
    if (file.find('\0') == std::string::npos) {
        program = mac::assemble(arguments.input, file, read);
    } else {
        program = declarations(arguments);
        program.file.assign(file.begin(), file.end());
    }
    mac::run(program, arguments.run, std::cout);
}

// Errors in a source are told as compilers tell them, so that editors find the place.
template <class Action>
auto reporting(Action action, std::shared_ptr<Arguments> arguments) {
    return [action, arguments] {
        try {
            action(*arguments);
        } catch (const mac::SourceError &error) {
            std::cerr << error.what() << '\n';
            throw CLI::RuntimeError(1);
        }
    };
}

}  // namespace

void add_mac(CLI::App &app) {
    CLI::App &mac = *app.add_subcommand("mac", "Scripts: builds them, lists them, tries them out");
    mac.require_subcommand(1);
    const auto arguments = std::make_shared<Arguments>();

    CLI::App &builder = *mac.add_subcommand("build", "Makes a script file of a source");
    builder.add_option("source", arguments->input, "The source")->required();
    builder.add_option("-o,--output", arguments->output, "The script file (the source's name with .mac)");
    builder.callback(reporting(build, arguments));

    CLI::App &dumper =
        *mac.add_subcommand("dump", "Makes a source of a script file, which builds to the same bytes");
    dumper.add_option("script", arguments->input, "The script file")->required();
    dumper.add_option("-o,--output", arguments->output, "The source (standard output)");
    dumper.add_option("-d,--declarations", arguments->declarations,
                      "A source that declares the game's commands and variables");
    dumper.callback(reporting(dump, arguments));

    CLI::App &runner =
        *mac.add_subcommand("run", "Runs a procedure and shows the commands it gives the game");
    runner.add_option("script", arguments->input, "The script file or its source")->required();
    runner.add_option("-p,--procedure", arguments->run.procedure, "Number or name (0)");
    runner.add_option("-s,--set", arguments->run.settings, "A variable's value before, as NAME=VALUE");
    runner.add_option("-n,--variables", arguments->run.variables,
                      "How many variables there are at least (100)");
    runner.add_option("-l,--limit", arguments->run.limit,
                      "Instructions after which the run is broken off (10000000)");
    runner.add_option("-d,--declarations", arguments->declarations,
                      "For a script file: a source that declares the game's commands and variables");
    runner.callback(reporting(run, arguments));
}

}  // namespace ink::tool
