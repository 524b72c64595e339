// The description of what is made in a content folder, and what is known of when it was made last.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "files/file.h"
#include "files/source.h"

namespace ink::tool {

// One command of a description, with its words and where they stand.
struct Recipe {
    Place place;
    std::vector<std::string> words;
};

// The commands of a description, one a line; words with blanks stand in quotes, a ; begins a comment, and a
// word that begins with @/ is a name beside the description. shown is what messages call it. Throws
// SourceError.
std::vector<Recipe> read_recipes(const std::filesystem::path &name, const std::string &shown);

// A file as it was: when it was changed last, and its size.
struct Stamp {
    std::string name;
    long long time = 0, size = -1;  // -1: not there

    bool operator==(const Stamp &) const = default;
};
Stamp stamp_of(const std::filesystem::path &name);

// What a command read and wrote, and the words it was given with their patterns resolved.
struct Made {
    std::vector<std::string> words;
    std::vector<Stamp> inputs, outputs;

    // Whether all of it is still as it was.
    bool holds() const;
};

// Kept in a file of the content folder; one that cannot be read is as good as none.
std::vector<Made> read_made(const std::filesystem::path &name);
void write_made(const std::filesystem::path &name, const std::vector<Made> &made);

}  // namespace ink::tool
