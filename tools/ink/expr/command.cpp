// ink expr: the value of an arithmetic text.
#include <cstdio>
#include <iostream>
#include <memory>

#include "command_line.h"
#include "files/workshop.h"
#include "inkstone/expression.h"

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace ink::tool {
namespace {

#if defined(_WIN32)
const auto duplicate = _dup;
const auto close_handle = _close;
const auto redirect = _dup2;
const auto handle_of = _fileno;
#else
const auto duplicate = dup;
const auto close_handle = close;
const auto redirect = dup2;
const auto handle_of = fileno;
#endif

// What the library prints, on the standard output of the process, in place of a result.
std::pair<std::int32_t, std::string> evaluate(const std::string &text) {
    const Workshop workshop;
    std::fflush(stdout);
    const int before = duplicate(handle_of(stdout));
    std::FILE *const printed = std::fopen("printed", "wb");
    if (before < 0 || printed == nullptr) throw std::runtime_error("there is no room for a temporary file");
    redirect(handle_of(printed), handle_of(stdout));
    const std::int32_t value = string_2_number(text.c_str());
    std::fflush(stdout);
    redirect(before, handle_of(stdout));
    close_handle(before);
    std::fclose(printed);
    const Bytes message = workshop.take("printed");
    return {value, std::string(as_text(message))};
}

void calculate(const std::string &text) {
    auto [value, message] = evaluate(text);
    if (!message.empty()) {
        // The first of its lines says what is wrong, the second one only repeats the text.
        message = message.substr(0, message.find('\n'));
        message.erase(message.find_last_not_of(' ') + 1);
        throw std::runtime_error("\"" + text + "\": " + message);
    }
    std::cout << value << '\n';
}

}  // namespace

void add_expr(CLI::App &app) {
    const auto text = std::make_shared<std::string>();
    CLI::App *command = add_command(app, "expr", "Print the value of an arithmetic text, as games compute it",
                                    {"ink expr \"12*(3+4)-5\""});
    command->add_option("text", *text, "Numbers, + - * / and parentheses, without blanks")->required();
    command->callback([text] { calculate(*text); });
}

}  // namespace ink::tool
