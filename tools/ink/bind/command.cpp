// ink bind: archives packed, listed, taken apart and checked.
#include <algorithm>
#include <iostream>
#include <memory>
#include <set>

#include "bind/archive.h"
#include "command_line.h"
#include "files/source.h"
#include "files/workshop.h"
#include "info/report.h"
#include "inkstone/bind.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

struct Arguments {
    std::string archive, source, output = ".";
};

// A file, and the name it has in the archive.
using Element = std::pair<std::string, fs::path>;

std::vector<Element> elements_of_folder(const fs::path &folder) {
    std::vector<Element> elements;
    for (const auto &entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file()) {
            const std::u8string name = entry.path().lexically_relative(folder).generic_u8string();
            elements.emplace_back(std::string(name.begin(), name.end()), entry.path());
        }
    std::ranges::sort(elements);
    return elements;
}

// A list has a name a line, relative to the folder it stands in; a ";" begins a comment.
std::vector<Element> elements_of_list(const fs::path &list) {
    std::vector<Element> elements;
    for (const Place &line : lines_of(name_of(list), read_text(list)))
        if (!line.line.empty() && line.line[0] != ';')
            elements.emplace_back(line.line, list.parent_path() / path_of(line.line));
    return elements;
}

void check_names(const std::vector<Element> &elements) {
    std::set<std::string> names;
    for (const auto &[name, file] : elements) {
        if (name.size() > kLongestBindName)
            throw FileError(file, "an archive holds names of at most 15 bytes, and \"" + name + "\" has " +
                                      std::to_string(name.size()));
        std::string capitals = name;
        std::ranges::transform(capitals, capitals.begin(), [](char letter) {
            return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter;
        });
        if (!names.insert(capitals).second)
            throw FileError(file, "two files have one name: archives take no heed of capitals");
    }
}

bool leads_out(const fs::path &name) {
    return name.empty() || name.is_absolute() || name.has_root_name() || name.has_root_directory() ||
           std::ranges::find(name, fs::path("..")) != name.end();
}

// The library binds what lies under these names in its own directory.
void pack(const Arguments &arguments) {
    const fs::path source = path_of(arguments.source);
    const auto elements = fs::is_directory(source) ? elements_of_folder(source) : elements_of_list(source);
    check_names(elements);
    Progress progress("packing", elements.size());
    std::vector<std::pair<std::string, Bytes>> contents;
    for (const auto &[name, file] : elements) {
        if (leads_out(path_of(name))) throw FileError(file, "lies outside the folder that is packed");
        contents.emplace_back(name, read_bytes(file));
        progress.done(contents.size());
    }
    Bytes archive;
    {
        const Workshop workshop;
        const std::string box = "files";
        fs::create_directory(box);
        fs::current_path(workshop.path() / box);
        std::string list;
        for (const auto &[name, bytes] : contents) {
            fs::create_directories((workshop.path() / box / path_of(name)).parent_path());
            workshop.put(box + '/' + name, bytes);
            list += name + "\r\n";
        }
        workshop.put("list", {reinterpret_cast<const std::uint8_t *>(list.data()), list.size()});
        const int result = BIND_bind_file("../archive", "../list");
        const Bytes log = workshop.take(box + "/ERROR.MSG");
        if (result != 0)
            throw FileError(path_of(arguments.archive), "cannot be packed: " + std::string(as_text(log)));
        archive = workshop.take("archive");
    }
    write_bytes(path_of(arguments.archive), archive);
    std::cout << arguments.archive << ": " << elements.size() << " files, " << archive.size() << " bytes\n";
}

Bytes read_archive(const std::string &name) {
    Bytes file = read_bytes(path_of(name));
    if (!is_bind(file)) throw FileError(path_of(name), "is no BIND archive");
    return file;
}

void list(const Arguments &arguments) {
    std::cout << page_of(arguments.archive, *describe_bind(read_archive(arguments.archive)));
}

void check(const Arguments &arguments) {
    const auto report = describe_bind(read_archive(arguments.archive));
    for (const std::string &fault : report->faults) std::cerr << arguments.archive << ": " << fault << '\n';
    if (!report->faults.empty()) throw FileError(path_of(arguments.archive), "breaks its format");
}

void extract(const Arguments &arguments) {
    const Bytes file = read_archive(arguments.archive);
    const auto entries = bind_entries(file);
    const fs::path folder = path_of(arguments.output);
    std::vector<Bytes> contents;
    {
        const Workshop workshop;
        workshop.put("archive", file);
        for (const BindEntry &entry : entries) {
            if (entry.offset > file.size() || entry.size > file.size() - entry.offset)
                throw FileError(path_of(arguments.archive), '"' + entry.name + "\" ends behind the archive");
            contents.emplace_back(entry.size);
            BIND_read("archive", static_cast<std::int32_t>(entry.offset),
                      static_cast<std::int32_t>(entry.size), contents.back().data());
        }
    }
    std::vector<fs::path> places;
    for (const BindEntry &entry : entries) {
        std::string name = entry.name;
        std::ranges::replace(name, '\\', '/');
        if (leads_out(path_of(name)))
            throw FileError(path_of(arguments.archive), '"' + entry.name + "\" leads out of the folder");
        places.push_back(folder / path_of(name));
    }
    NewFiles files;
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i].has_parent_path()) fs::create_directories(places[i].parent_path());
        files.add(places[i], contents[i]);
    }
    files.commit();
    std::cout << entries.size() << " files in " << arguments.output << '\n';
}

}  // namespace

void add_bind(CLI::App &app) {
    CLI::App *group = add_group(app, "bind", "Archives of many files (BIND)");
    const auto arguments = std::make_shared<Arguments>();
    const auto add_archive = [arguments](CLI::App *command) {
        command->add_option("archive", arguments->archive, "The archive")->required();
        return command;
    };

    CLI::App *packer =
        add_archive(add_command(*group, "pack", "Pack the files of a folder, or those that a list names",
                                {"ink bind pack game.bnd content", "ink bind pack game.bnd files.lst"},
                                "Names are relative to the folder, or to the list's, with / between "
                                "their parts; an archive holds names of at most 15 bytes. A list has "
                                "a name a line; a ; begins a comment."));
    packer->add_option("source", arguments->source, "The folder, or the list")->required();
    packer->callback([arguments] { pack(*arguments); });

    add_archive(add_command(*group, "list", "List what is in an archive", {"ink bind list game.bnd"}))
        ->callback([arguments] { list(*arguments); });

    CLI::App *extractor = add_archive(
        add_command(*group, "extract", "Take an archive apart", {"ink bind extract game.bnd -o content"}));
    extractor->add_option("-o,--output", arguments->output, "The folder to write to (the current one)");
    extractor->callback([arguments] { extract(*arguments); });

    add_archive(add_command(*group, "check",
                            "Say where an archive breaks its format; nothing when it does not",
                            {"ink bind check game.bnd"}))
        ->callback([arguments] { check(*arguments); });
}

}  // namespace ink::tool
