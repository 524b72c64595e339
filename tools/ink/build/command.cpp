// ink build: makes what is out of date in a content folder.
#include <algorithm>
#include <iostream>
#include <memory>

#include "build/recipe.h"
#include "command_line.h"
#include "program.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

constexpr const char *kDescription = "content.ink", *kState = ".ink-build";

struct Arguments {
    std::string folder = ".", description;
    bool all = false, quiet = false;
};

// The current directory for as long as this lives.
class Inside {
  public:
    explicit Inside(const fs::path &folder) : before_(fs::current_path()) {
        std::error_code error;
        fs::current_path(folder, error);
        if (error) throw FileError(folder, error.message());
    }
    ~Inside() {
        std::error_code ignored;
        fs::current_path(before_, ignored);
    }
    Inside(const Inside &) = delete;
    Inside &operator=(const Inside &) = delete;

  private:
    const fs::path before_;
};

std::vector<Stamp> stamps_of(const std::vector<fs::path> &names) {
    std::vector<Stamp> stamps;
    for (const fs::path &name : names) stamps.push_back(stamp_of(name));
    std::ranges::sort(stamps, {}, &Stamp::name);
    stamps.erase(std::unique(stamps.begin(), stamps.end()), stamps.end());
    return stamps;
}

std::string text_of(const Recipe &recipe) {
    std::string text;
    for (const std::string &word : recipe.words) text += (text.empty() ? "" : " ") + word;
    return text;
}

void run(const Recipe &recipe, const std::vector<std::string> &words) {
    try {
        run_program(words);
    } catch (const Misused &) {
        throw SourceError(recipe.place, "this is no command line of ink's");
    } catch (const SourceError &) {
        throw;
    } catch (const SourceErrors &) {
        throw;
    } catch (const std::exception &error) {
        throw SourceError(recipe.place, error.what());
    }
}

void build(const Arguments &arguments) {
    const fs::path description =
        arguments.description.empty() ? fs::path() : fs::absolute(path_of(arguments.description));
    const Inside inside(path_of(arguments.folder));
    const std::vector<Recipe> recipes =
        description.empty()
            ? read_recipes(kDescription,
                           name_of((path_of(arguments.folder) / kDescription).lexically_normal()))
            : read_recipes(description, arguments.description);
    std::vector<Made> before = arguments.all ? std::vector<Made>() : read_made(kState), after;
    std::size_t count = 0;
    for (const Recipe &recipe : recipes) {
        if (const std::string &first = recipe.words.front();
            first == "build" || first == "new" || first == "view")
            throw SourceError(recipe.place, "ink " + first + " makes nothing of a content folder");
        const std::vector<std::string> words = expand_patterns(recipe.words);
        const auto known = std::ranges::find(before, words, &Made::words);
        if (known != before.end() && known->holds()) {
            after.push_back(*known);
            continue;
        }
        if (!arguments.quiet) std::cout << "ink " << text_of(recipe) << std::endl;
        take_touched();
        try {
            run(recipe, words);
        } catch (...) {
            // What was made stays known.
            std::ranges::copy(before, std::back_inserter(after));
            write_made(kState, after);
            throw;
        }
        const Touched touched = take_touched();
        after.push_back({words, stamps_of(touched.read), stamps_of(touched.written)});
        ++count;
    }
    write_made(kState, after);
    if (!arguments.quiet && count == 0) std::cout << "everything is up to date\n";
}

}  // namespace

void add_build(CLI::App &app) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App *command =
        add_command(app, "build", "Make everything in a content folder that is out of date",
                    {"ink build content", "ink build --description demo/content.ink build/content"},
                    "The folder's content.ink has a line for each thing to be made, a command of this "
                    "program without its name: "
                    "picture art/title.png -o title.pcx --palette game.pal. A command is run again when a "
                    "file that it read or "
                    "wrote has changed, when its line has, or when its patterns of names match other files. "
                    "Words with blanks "
                    "stand in quotes, a ; begins a comment, and @/ before a name stands for the "
                    "description's own folder.");
    command->add_option("folder", arguments->folder, "The content folder (the current one)");
    command->add_option("--description", arguments->description,
                        "The description (the folder's content.ink)");
    command->add_flag("--all", arguments->all, "Make everything, out of date or not");
    command->add_flag("-q,--quiet", arguments->quiet, "Do not tell which commands are run");
    command->callback([arguments] { build(*arguments); });
}

}  // namespace ink::tool
