// The manual page and the completions, made of what the commands say of themselves.
#include <algorithm>

#include "command_line.h"

namespace ink::tool {
namespace {

// The commands that do something, below a program or a format, in the order in which they were added.
std::vector<const CLI::App *> commands_of(const CLI::App &app) {
    std::vector<const CLI::App *> found;
    for (const CLI::App *below : app.get_subcommands([](const CLI::App *) { return true; })) {
        const auto deeper = commands_of(*below);
        if (deeper.empty())
            found.push_back(below);
        else
            found.insert(found.end(), deeper.begin(), deeper.end());
    }
    return found;
}

std::string full_name(const CLI::App &command) {
    const CLI::App *parent = command.get_parent();
    return (parent != nullptr ? full_name(*parent) + " " : "") + command.get_name();
}

// As troff takes text: a line may not begin with a control character, and a backslash is one everywhere.
std::string troff(const std::string &text) {
    std::string made;
    for (const char letter : text) {
        if ((made.empty() || made.back() == '\n') && (letter == '.' || letter == '\'')) made += "\\&";
        if (letter == '\\')
            made += "\\e";
        else if (letter == '-')
            made += "\\-";
        else
            made += letter;
    }
    return made;
}

std::string option_names(const CLI::Option &option) {
    std::string names = option.get_name(option.get_positional(), true);
    if (const std::string type = option.get_type_name(); !option.get_positional() && !type.empty())
        names += ' ' + type;
    return names;
}

std::vector<const CLI::Option *> options_of(const CLI::App &command) {
    std::vector<const CLI::Option *> options = command.get_options();
    std::erase_if(options, [](const CLI::Option *option) { return option->get_name() == "--help"; });
    return options;
}

std::string manual_page(const CLI::App &app) {
    std::string page = ".TH INK 1\n.SH NAME\nink \\- " + troff(app.get_description()) +
                       "\n.SH SYNOPSIS\n.B ink\n.I format command\n[options] arguments\n.SH COMMANDS\n";
    for (const CLI::App *command : commands_of(app)) {
        page += ".SS " + troff(full_name(*command)) + "\n" + troff(command->get_description()) + "\n";
        for (const CLI::Option *option : options_of(*command))
            page +=
                ".TP\n.B " + troff(option_names(*option)) + "\n" + troff(option->get_description()) + "\n";
        const std::string footer = command->get_footer();
        const std::size_t examples = footer.find("Example");
        page += ".PP\n" + troff(footer.substr(0, examples)) + ".PP\n.nf\n" + troff(footer.substr(examples)) +
                "\n.fi\n";
    }
    return page +
           ".SH EXIT STATUS\n0 when all was done, 1 when a command failed, 2 when it was called wrongly. A "
           "file "
           "is written whole or not at all.\n";
}

std::string bash_completion(const CLI::App &app) {
    // Below each name that leads on, the words that may follow it; elsewhere files.
    std::string script =
        "_ink() {\n    local path=\"${COMP_WORDS[1]} ${COMP_WORDS[2]}\" words=\"\"\n"
        "    [ \"$COMP_CWORD\" -lt 2 ] && path=\"\"\n"
        "    [ \"$COMP_CWORD\" -lt 3 ] && path=\"${path%% *}\"\n    case \"$path\" in\n";
    std::string first;
    for (const CLI::App *below : app.get_subcommands([](const CLI::App *) { return true; })) {
        first += (first.empty() ? "" : " ") + below->get_name();
        std::string names;
        for (const CLI::App *command : below->get_subcommands([](const CLI::App *) { return true; }))
            names += (names.empty() ? "" : " ") + command->get_name();
        if (!names.empty()) script += "    \"" + below->get_name() + "\") words=\"" + names + "\" ;;\n";
    }
    for (const CLI::App *command : commands_of(app)) {
        std::string names;
        for (const CLI::Option *option : options_of(*command))
            for (const std::string &name : option->get_lnames()) names += " --" + name;
        const std::string path = full_name(*command).substr(app.get_name().size() + 1);
        const std::string pattern =
            path.find(' ') == std::string::npos ? "\"" + path + "\"*" : "\"" + path + "\"";
        script += "    " + pattern + ") words=\"--help" + names + "\" ;;\n";
    }
    return script + "    \"\") words=\"" + first +
           "\" ;;\n    esac\n    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$2\")\n"
           "    [ \"${#COMPREPLY[@]}\" -gt 0 ] || mapfile -t COMPREPLY < <(compgen -f -- \"$2\")\n}\n"
           "complete -o filenames -F _ink ink\n";
}

}  // namespace

void add_manual(CLI::App &app) {
    CLI::App *command =
        add_command(app, "manual", "Print this program's manual page, or completions for the shell",
                    {"ink manual | man -l -", "eval \"$(ink manual --bash)\""});
    const auto bash = std::make_shared<bool>();
    const auto output = std::make_shared<std::string>(kStream);
    command->add_flag("--bash", *bash, "Print what makes bash complete commands and options");
    command->add_option("-o,--output", *output, "The file to write (standard output)");
    command->callback([&app, bash, output] {
        write_text(path_of(*output), *bash ? bash_completion(app) : manual_page(app));
    });
}

}  // namespace ink::tool
