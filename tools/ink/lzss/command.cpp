// ink lzss: files compressed and expanded.
#include <limits>
#include <memory>

#include "command_line.h"
#include "files/workshop.h"
#include "info/report.h"
#include "inkstone/lzss.h"
#include "lzss/stream.h"

namespace ink::tool {
namespace {

struct Arguments {
    std::string input, output;
    bool memory = false;
    std::int64_t length = -1;
};

Bytes compressed(const Bytes &data, bool memory) {
    if (memory) {
        Bytes made(data.size() + (data.size() + 7) / 8);
        const auto length = static_cast<std::uint32_t>(data.size());
        std::uint32_t made_length = 0;
        LZSS_compress_data(data.data(), made.data(), &length, &made_length);
        made.resize(made_length);
        return made;
    }
    const Workshop workshop;
    workshop.put("input", data);
    if (LZSS_compress_file("input", "output") != 0)
        throw std::runtime_error("cannot be compressed: " + workshop.log());
    return workshop.take("output");
}

Bytes expanded(const Bytes &data, const Arguments &arguments) {
    if (!arguments.memory) {
        if (!lzss_stream_length(data))
            throw std::runtime_error("is not LZSS data in the form of files, or is damaged");
        return expand_lzss(data);
    }
    if (arguments.length < 0) throw CLI::RequiredError("--length");
    const std::int64_t has = lzss_memory_length(data);
    if (arguments.length > has)
        throw std::runtime_error("expands to " + std::to_string(has) + " bytes, not to " +
                                 std::to_string(arguments.length));
    Bytes made(static_cast<std::size_t>(arguments.length));
    const auto length = static_cast<std::uint32_t>(data.size());
    auto made_length = static_cast<std::uint32_t>(made.size());
    LZSS_expand_data(data.data(), made.data(), &length, &made_length);
    return made;
}

template <class Action>
void convert(const Arguments &arguments, Action action) {
    const Bytes data = read_bytes(path_of(arguments.input));
    if (data.size() > std::numeric_limits<std::int32_t>::max() / 2)
        throw FileError(path_of(arguments.input), "is too large");
    try {
        write_bytes(path_of(arguments.output), action(data));
    } catch (const FileError &) {
        throw;
    } catch (const CLI::Error &) {
        throw;
    } catch (const std::runtime_error &error) {
        throw FileError(path_of(arguments.input), error.what());
    }
}

}  // namespace

void add_lzss(CLI::App &app) {
    CLI::App *group = add_group(app, "lzss", "Files compressed with LZSS");
    const auto arguments = std::make_shared<Arguments>();
    const auto add_names = [arguments](CLI::App *command) {
        command->add_option("input", arguments->input, "The file to read, - for standard input")->required();
        command->add_option("output", arguments->output, "The file to write, - for standard output")
            ->required();
        command->add_flag("-m,--memory", arguments->memory,
                          "The form that games keep in memory, instead of that of files");
        return command;
    };
    add_names(
        add_command(*group, "compress", "Compress a file",
                    {"ink lzss compress level.dat level.lz", "ink lzss compress -m level.dat level.lzm"}))
        ->callback([arguments] {
            convert(*arguments, [&](const Bytes &data) { return compressed(data, arguments->memory); });
        });
    CLI::App *expander = add_names(add_command(
        *group, "expand", "Expand a file",
        {"ink lzss expand level.lz level.dat", "ink lzss expand -m --length 64000 level.lzm level.dat"}));
    expander
        ->add_option("--length", arguments->length,
                     "The bytes it expands to, which the form of memory does not hold")
        ->check(CLI::Range(std::int64_t{0}, std::int64_t{std::numeric_limits<std::int32_t>::max()}));
    expander->callback(
        [arguments] { convert(*arguments, [&](const Bytes &data) { return expanded(data, *arguments); }); });
}

}  // namespace ink::tool
