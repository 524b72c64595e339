// ink conf: configuration files (INFO) read, changed and listed.
#include <algorithm>
#include <iostream>
#include <memory>

#include "charset/big5.h"
#include "command_line.h"
#include "conf/lines.h"
#include "files/workshop.h"
#include "inkstone/info.h"

namespace ink::tool {
namespace {

struct Arguments {
    std::string file, section, key, value;
};

Bytes read_settings(const std::filesystem::path &name) {
    Bytes file = read_bytes(name);
    if (!is_text(file)) throw FileError(name, "is no text, so no configuration file");
    return file;
}

// As a game reads it.
std::string value_of(const Bytes &file, const std::string &section, const std::string &key) {
    const Workshop workshop;
    workshop.put("input", file);
    char value[256] = {};
    if (INFO_open_file("input") != 0) throw std::runtime_error("cannot be read: " + workshop.log());
    INFO_read_config(section.c_str(), key.c_str(), value);
    INFO_close_file();
    return value;
}

void get(const Arguments &arguments) {
    const auto path = path_of(arguments.file);
    const std::string value =
        value_of(read_settings(path), to_big5(arguments.section), to_big5(arguments.key));
    if (value.empty()) throw FileError(path, "has no [" + arguments.section + "] " + arguments.key);
    std::cout << from_big5(value) << '\n';
}

void set(const Arguments &arguments) {
    const auto path = path_of(arguments.file);
    const std::string section = to_big5(arguments.section), key = to_big5(arguments.key),
                      value = to_big5(arguments.value);
    const Bytes before = std::filesystem::exists(path) ? read_settings(path) : Bytes();
    const Bytes after = with_value(before, section, key, value);
    // Names with separators in them, and values that are too long, would not be found again.
    if (value_of(after, section, key) != value)
        throw FileError(path,
                        "cannot hold [" + arguments.section + "] " + arguments.key + " = " + arguments.value);
    write_bytes(path, after, true);
}

void list(const Arguments &arguments) {
    std::string section;
    for (const ConfLine &line : conf_lines(read_settings(path_of(arguments.file)))) {
        if (line.kind == ConfLine::Kind::section) std::cout << '[' << from_big5(line.key) << "]\n";
        if (line.kind == ConfLine::Kind::value)
            std::cout << from_big5(line.key) << " = " << from_big5(line.value) << '\n';
    }
}

}  // namespace

void add_conf(CLI::App &app) {
    CLI::App *group = add_group(app, "conf", "Configuration files of sections, keys and values (INFO)");
    const auto arguments = std::make_shared<Arguments>();
    const auto add_names = [arguments](CLI::App *command, bool of_key) {
        command
            ->add_option("file", arguments->file,
                         "The file; its text is Big5, what is shown and typed here UTF-8")
            ->required();
        if (!of_key) return command;
        command->add_option("section", arguments->section, "The section, without brackets")->required();
        command->add_option("key", arguments->key, "The key")->required();
        return command;
    };
    add_names(add_command(*group, "get", "Print a value as a game reads it",
                          {"ink conf get game.inf Sound Volume"}),
              true)
        ->callback([arguments] { get(*arguments); });
    CLI::App *setter =
        add_names(add_command(*group, "set", "Set a value; the rest of the file stays as it is",
                              {"ink conf set game.inf Sound Volume 80"}),
                  true);
    setter->add_option("value", arguments->value, "The value")->required();
    setter->callback([arguments] { set(*arguments); });
    add_names(add_command(*group, "list", "Print all sections, keys and values", {"ink conf list game.inf"}),
              false)
        ->callback([arguments] { list(*arguments); });
}

}  // namespace ink::tool
