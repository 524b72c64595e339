// Looking things up by name: values in an INFO file, files in an archive, beside Allegro 4's config files and
// reading the same bytes out of a file of their own.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>

#include "bench/peers.h"
#include "bench/scratch_directory.h"
#include "inkstone/bind.h"
#include "inkstone/info.h"
#include "support/files.h"

namespace {

using bench::ScratchDirectory;

// Sections of ten keys each, so many lines in all.
std::string info_text(std::int64_t lines) {
    std::string text;
    for (std::int64_t i = 0; i < lines; ++i) {
        if (i % 11 == 0)
            text += "[Section" + std::to_string(i / 11) + "]\n";
        else
            text += "Key" + std::to_string(i % 11) + " = " + std::to_string(i) + "\n";
    }
    return text;
}

// One key after another, all over the file.
template <typename LookUp>
void look_up_all(benchmark::State &state, LookUp look_up) {
    const std::int64_t sections = state.range(0) / 11;
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < 97; ++i) names.push_back("section" + std::to_string(i * 7919 % sections));
    std::size_t next = 0;
    for (auto _ : state) {
        look_up(names[next].c_str());
        next = next + 1 < names.size() ? next + 1 : 0;
    }
}

void info_load(benchmark::State &state) {
    const ScratchDirectory place;
    test::write_text("a.inf", info_text(state.range(0)));
    for (auto _ : state) {
        INFO_open_file("a.inf");
        INFO_close_file();
    }
}
BENCHMARK(info_load)
    ->Name("Data/INFO_open_file of so many lines/inkstone")
    ->Arg(1000)
    ->Arg(100000)
    ->Unit(benchmark::kMicrosecond);

void info_look_up(benchmark::State &state) {
    const ScratchDirectory place;
    test::write_text("a.inf", info_text(state.range(0)));
    INFO_open_file("a.inf");
    char value[255];
    look_up_all(state, [&](const char *section) {
        benchmark::DoNotOptimize(INFO_read_config(section, "key5", value));
    });
    INFO_close_file();
}
BENCHMARK(info_look_up)->Name("Data/INFO_read_config among so many lines/inkstone")->Arg(1000)->Arg(100000);

#if defined(INKSTONE_BENCH_ALLEGRO)
void info_load_allegro(benchmark::State &state) {
    const ScratchDirectory place;
    const peers::AllegroBitmap started(1, 1);
    test::write_text("a.inf", info_text(state.range(0)));
    for (auto _ : state) set_config_file("a.inf");
}
BENCHMARK(info_load_allegro)
    ->Name("Data/INFO_open_file of so many lines/Allegro 4")
    ->Arg(1000)
    ->Arg(100000)
    ->Unit(benchmark::kMicrosecond);

void info_look_up_allegro(benchmark::State &state) {
    const peers::AllegroBitmap started(1, 1);
    const std::string text = info_text(state.range(0));
    set_config_data(text.data(), static_cast<int>(text.size()));
    look_up_all(
        state, [](const char *section) { benchmark::DoNotOptimize(get_config_string(section, "key5", "")); });
}
BENCHMARK(info_look_up_allegro)
    ->Name("Data/INFO_read_config among so many lines/Allegro 4")
    ->Arg(1000)
    ->Arg(100000);
#endif

// An archive of so many files of 100 bytes. The list may name one file again and again.
void make_archive(std::int64_t entries) {
    std::string list;
    for (std::int64_t i = 0; i < entries; ++i) {
        const std::string name = "N" + std::to_string(i % 1000);
        if (i < 1000) test::write_text(name, std::string(100, 'x'));
        list += name + "\n";
    }
    test::write_text("last", std::string(100, 'y'));
    test::write_text("list", list + "last\n");
    BIND_bind_file("a.bnd", "list");
}

// The same in a.bnd of the present directory; making it takes far longer than what is measured, so it is made once.
void put_archive(std::int64_t entries) {
    static std::map<std::int64_t, std::vector<std::uint8_t>> made;
    auto &bytes = made[entries];
    if (bytes.empty()) {
        const ScratchDirectory place;
        make_archive(entries);
        bytes = test::read_file("a.bnd");
    }
    test::write_file("a.bnd", bytes);
}

void bind_fetch(benchmark::State &state) {
    const ScratchDirectory place;
    put_archive(state.range(0));
    std::uint8_t bytes[100];
    for (auto _ : state) {
        char name[] = "last";
        std::int32_t offset = 0, size = 0;
        if (BIND_open("a.bnd", name, &offset, &size) != 0) state.SkipWithError("not found");
        BIND_read("a.bnd", offset, size, bytes);
    }
}
BENCHMARK(bind_fetch)
    ->Name("Data/BIND_open, BIND_read among so many entries/inkstone")
    ->Arg(1000)
    ->Arg(60000)
    ->Unit(benchmark::kMicrosecond);

// What any stateless look-up costs: the file opened twice, its directory read, its contents read.
void bind_limit(benchmark::State &state) {
    const ScratchDirectory place;
    put_archive(state.range(0));
    const auto size = static_cast<std::size_t>(24 + 24 * (state.range(0) + 1));
    std::vector<std::uint8_t> directory(size);
    for (auto _ : state) {
        for (const std::size_t part : {size, std::size_t{100}}) {
            std::FILE *file = std::fopen("a.bnd", "rb");
            if (std::fread(directory.data(), 1, part, file) != part) state.SkipWithError("too short");
            std::fclose(file);
        }
    }
}
BENCHMARK(bind_limit)
    ->Name("Data/BIND_open, BIND_read among so many entries/limit fread")
    ->Arg(1000)
    ->Arg(60000)
    ->Unit(benchmark::kMicrosecond);

#if defined(INKSTONE_BENCH_ALLEGRO)
// A datafile of the same entries: the object's type and size, its name as a property, its bytes.
void write_datafile(std::int64_t entries) {
    PACKFILE *file = pack_fopen("a.dat", "w");
    pack_mputl(F_NOPACK_MAGIC, file);
    pack_mputl(DAT_MAGIC, file);
    pack_mputl(static_cast<long>(entries + 1), file);
    for (std::int64_t i = 0; i <= entries; ++i) {
        const std::string name = i < entries ? "N" + std::to_string(i) : "LAST";
        const std::string bytes(100, 'x');
        pack_mputl(DAT_PROPERTY, file);
        pack_mputl(DAT_NAME, file);
        pack_mputl(static_cast<long>(name.size()), file);
        pack_fwrite(name.data(), static_cast<long>(name.size()), file);
        pack_mputl(DAT_ID('B', 'I', 'N', ' '), file);
        pack_mputl(100, file);
        pack_mputl(100, file);
        pack_fwrite(bytes.data(), 100, file);
    }
    pack_fclose(file);
}

void bind_fetch_allegro(benchmark::State &state) {
    const ScratchDirectory place;
    const peers::AllegroBitmap started(1, 1);
    write_datafile(state.range(0));
    for (auto _ : state) {
        DATAFILE *object = load_datafile_object("a.dat", "LAST");
        if (object == nullptr) state.SkipWithError("not found");
        unload_datafile_object(object);
    }
}
BENCHMARK(bind_fetch_allegro)
    ->Name("Data/BIND_open, BIND_read among so many entries/Allegro 4")
    ->Arg(1000)
    ->Arg(60000)
    ->Unit(benchmark::kMicrosecond);
#endif

// How cost grows with lines and entries.
BENCHMARK(info_load)
    ->Name("Growth/INFO files, lines/INFO_open_file")
    ->RangeMultiplier(10)
    ->Range(100, 100000);
BENCHMARK(info_look_up)
    ->Name("Growth/INFO files, lines/INFO_read_config")
    ->RangeMultiplier(10)
    ->Range(100, 100000);
BENCHMARK(bind_fetch)
    ->Name("Growth/archives, entries/BIND_open, BIND_read")
    ->RangeMultiplier(10)
    ->Range(10, 60000);
BENCHMARK(bind_limit)
    ->Name("Growth/archives, entries/fread of the directory")
    ->RangeMultiplier(10)
    ->Range(10, 60000);
#if defined(INKSTONE_BENCH_ALLEGRO)
BENCHMARK(info_look_up_allegro)
    ->Name("Growth/INFO files, lines/get_config_string of Allegro 4")
    ->RangeMultiplier(10)
    ->Range(100, 10000);
#endif

}  // namespace
