// Any text as a source, and any bytes as a script file: what was built or read must come out as a source that
// builds to the same bytes, with and without declarations of commands and variables. The first byte chooses.
#include "mac/assembler.h"

#include <cstdio>
#include <cstdlib>

#include "mac/disassembler.h"

namespace {

const std::string kDeclarations =
    "var first\nvar second\nconst proc_1 = 3\ncommand 24 say string\ncommand 25 give number, variable, "
    "procedure\n"
    "command 26 at long, char\ncommand 255 nothing\n";

std::optional<std::string> read(const std::string &name) {
    return name == "commands" ? std::optional(kDeclarations) : std::nullopt;
}

void round_trip(const std::vector<std::uint8_t> &file, const ink::mac::Program &declarations,
                const char *include) {
    const std::string source = ink::mac::disassemble(file, declarations, include);
    try {
        if (ink::mac::assemble("source", source, read).file == file) return;
        std::fputs(source.c_str(), stderr);
    } catch (const ink::tool::SourceErrors &error) {
        std::fprintf(stderr, "%s\n%s\n", source.c_str(), error.what());
    }
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const ink::mac::Program declarations = ink::mac::assemble("commands", kDeclarations, read);
    if (size == 0) return 0;
    std::vector<std::uint8_t> file(data + 1, data + size);
    if (data[0] % 2 == 0) {
        try {
            file = ink::mac::assemble("source", std::string(file.begin(), file.end()), read).file;
        } catch (const ink::tool::SourceErrors &) {
            return 0;
        }
    }
    round_trip(file, {}, "");
    round_trip(file, declarations, "commands");
    return 0;
}
