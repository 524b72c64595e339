// ink bind: archives packed, listed, taken apart and checked.
#include <algorithm>
#include <iostream>
#include <memory>
#include <set>

#include "bind/archive.h"
#include "charset/big5.h"
#include "command_line.h"
#include "files/source.h"
#include "files/workshop.h"
#include "info/report.h"
#include "inkstone/bind.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

// Files of an archive may share bytes, as in the library's limit on taking one apart.
constexpr std::uint64_t kMostSharing = 64;

struct Arguments {
    std::string archive, source, output = ".";
};

// A file, the name it has in the archive, in Big5 as games write it, and what it holds.
struct Element {
    std::string name;
    fs::path file;
    Bytes contents;
};

bool leads_out(const fs::path &name) {
    return name.empty() || name.is_absolute() || name.has_root_name() || name.has_root_directory() ||
           std::ranges::find(name, fs::path("..")) != name.end();
}

Element read_element(const std::string &name, const fs::path &file) {
    if (leads_out(path_of(name))) throw FileError(file, "lies outside the folder that is packed");
    std::string big5;
    try {
        big5 = to_big5(name);
    } catch (const std::runtime_error &error) {
        throw FileError(file, error.what());
    }
    if (big5.size() > kLongestBindName)
        throw FileError(file, "an archive holds names of at most 15 bytes, and \"" + name + "\" has " +
                                  std::to_string(big5.size()));
    return {big5, file, read_bytes(file)};
}

std::vector<Element> elements_of_folder(const fs::path &folder) {
    std::vector<std::pair<std::string, fs::path>> names;
    for (const auto &entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file()) {
            const std::u8string name = entry.path().lexically_relative(folder).generic_u8string();
            names.emplace_back(std::string(name.begin(), name.end()), entry.path());
        }
    std::ranges::sort(names);
    Progress progress("packing", names.size());
    std::vector<Element> elements;
    for (const auto &[name, file] : names) {
        elements.push_back(read_element(name, file));
        progress.done(elements.size());
    }
    return elements;
}

// A list has a name a line, relative to the folder it stands in; a ";" begins a comment.
std::vector<Element> elements_of_list(const fs::path &list) {
    std::vector<Element> elements;
    const std::vector<Place> lines = lines_of(name_of(list), read_text(list));
    require_utf8(lines);
    for (const Place &line : lines) try {
            if (!line.line.empty() && line.line[0] != ';')
                elements.push_back(read_element(line.line, list.parent_path() / path_of(line.line)));
        } catch (const FileError &error) {
            throw SourceError(line, error.what());
        }
    return elements;
}

void check_names(const std::vector<Element> &elements) {
    std::set<std::string> names;
    for (const Element &element : elements) {
        std::string capitals = element.name;
        std::ranges::transform(capitals, capitals.begin(), [](char letter) {
            return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter;
        });
        if (!names.insert(capitals).second)
            throw FileError(element.file, "two files have one name: archives take no heed of capitals");
    }
}

// The library binds what lies under these names in its own directory, which are then put right: systems do not
// agree on names that are not plain.
void pack(const Arguments &arguments) {
    const fs::path source = path_of(arguments.source);
    const auto elements = fs::is_directory(source) ? elements_of_folder(source) : elements_of_list(source);
    check_names(elements);
    Bytes archive;
    {
        const Workshop workshop;
        std::string list;
        for (std::size_t i = 0; i < elements.size(); ++i) {
            workshop.put("file" + std::to_string(i), elements[i].contents);
            list += "file" + std::to_string(i) + "\r\n";
        }
        workshop.put("list", {reinterpret_cast<const std::uint8_t *>(list.data()), list.size()});
        if (BIND_bind_file("archive", "list") != 0)
            throw FileError(path_of(arguments.archive), "cannot be packed: " + workshop.log());
        archive = workshop.take("archive");
    }
    for (std::size_t i = 0; i < elements.size(); ++i) name_bind_entry(archive, i, elements[i].name);
    write_bytes(path_of(arguments.archive), archive);
    tell(arguments.archive, counted(elements.size(), "file") + ", " + counted(archive.size(), "byte"));
}

Bytes read_archive(const std::string &name) {
    Bytes file = read_bytes(path_of(name));
    if (!is_bind(file)) throw FileError(path_of(name), "is no BIND archive");
    return file;
}

void list(const Arguments &arguments) {
    const auto report = describe_bind(read_archive(arguments.archive));
    std::cout << page_of(arguments.archive, *report);
    if (!report->faults.empty()) throw FileError(path_of(arguments.archive), "breaks its format");
}

void check(const Arguments &arguments) {
    const auto report = describe_bind(read_archive(arguments.archive));
    for (const std::string &fault : report->faults) std::cout << arguments.archive << ": " << fault << '\n';
    if (!report->faults.empty()) throw FileError(path_of(arguments.archive), "breaks its format");
}

void extract(const Arguments &arguments) {
    const Bytes file = read_archive(arguments.archive);
    const fs::path archive = path_of(arguments.archive), folder = path_of(arguments.output);
    std::vector<std::pair<fs::path, BindEntry>> files;
    std::set<std::string> names;
    std::uint64_t size = 0;
    for (const BindEntry &entry : bind_entries(file)) {
        const std::string name = file_name_of_entry(entry.name);
        if (leads_out(path_of(name))) throw FileError(archive, '"' + name + "\" leads out of the folder");
        if (entry.offset > file.size() || entry.size > file.size() - entry.offset)
            throw FileError(archive, '"' + name + "\" ends behind the archive");
        // Of several of one name games find the first.
        if (names.insert(name).second) files.emplace_back(folder / path_of(name), entry);
        size += entry.size;
    }
    if (size > kMostSharing * file.size()) throw FileError(archive, "has the same bytes in too many files");
    std::vector<Bytes> contents;
    {
        const Workshop workshop;
        workshop.put("archive", file);
        for (const auto &[place, entry] : files) {
            contents.emplace_back(entry.size);
            BIND_read("archive", static_cast<std::int32_t>(entry.offset),
                      static_cast<std::int32_t>(entry.size), contents.back().data());
        }
    }
    NewFiles made;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const fs::path &place = files[i].first;
        if (place.has_parent_path()) fs::create_directories(place.parent_path());
        made.add(place, contents[i]);
    }
    made.commit();
    tell(arguments.output, counted(files.size(), "file"));
}

}  // namespace

void add_bind(CLI::App &app) {
    CLI::App *group = add_group(app, "bind", "Archives of many files (BIND)");
    const auto arguments = std::make_shared<Arguments>();
    const auto add_archive = [arguments](CLI::App *command) {
        command->add_option("archive", arguments->archive, "The archive")->required();
        return command;
    };

    CLI::App *packer = add_archive(
        add_command(*group, "pack", "Pack the files of a folder, or those that a list names",
                    {"ink bind pack game.bnd content", "ink bind pack game.bnd files.lst"},
                    "Names are relative to the folder, or to the list's, with / between "
                    "their parts; an archive holds names of at most 15 bytes, in Big5. A list has "
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
