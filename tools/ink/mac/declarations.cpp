#include "mac/declarations.h"

#include <iostream>
#include <optional>

#include "files/file.h"
#include "files/source.h"
#include "mac/assembler.h"

namespace ink::mac {
namespace {

std::optional<std::string> read(const std::string &name) {
    try {
        return tool::read_text(tool::path_of(name));
    } catch (const tool::FileError &) {
        return std::nullopt;
    }
}

}  // namespace

Program assemble_file(const std::string &name) {
    Program program = assemble(name, tool::read_text(tool::path_of(name)), read);
    for (const tool::SourceError &warning : program.warnings) std::cerr << warning.what() << '\n';
    return program;
}

Program read_declarations(const std::string &name) {
    if (name.empty()) return {};
    Program program = assemble_file(name);
    if (program.file.size() != assemble("", "", read).file.size())
        throw tool::FileError(tool::path_of(name),
                              "has procedures or instructions; it may only declare names");
    return program;
}

}  // namespace ink::mac
