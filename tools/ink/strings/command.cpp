// `ink strings`: texts are written in UTF-8 in a table and compiled into a game as Big5.
#include "strings/table.h"

#include <memory>
#include <utility>

#include "command_line.h"
#include "files/file.h"

namespace ink::tool {

void add_strings(CLI::App &app) {
    const auto names = std::make_shared<std::pair<std::string, std::string>>();
    CLI::App *strings = add_command(
        app, "strings",
        "Make a C header of Big5 strings out of a table in UTF-8: lines NAME = text, comments begin with ;",
        {"ink strings texts.txt texts.h"});
    strings->add_option("source", names->first, "The table")->required();
    strings->add_option("header", names->second, "The header to write")->required();
    strings->callback([names] { write_text(path_of(names->second), header_of_table(names->first)); });
}

}  // namespace ink::tool
