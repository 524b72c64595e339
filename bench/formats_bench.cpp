// Pictures and films of a 640 x 480 screen, coded and decoded, beside a memcpy of the same pixels.
#include <benchmark/benchmark.h>

#include <cstring>
#include <filesystem>
#include <random>

#include "bench/peers.h"
#include "film/flic_film.h"
#include "inkstone/compressed_image.h"
#include "inkstone/flic.h"
#include "inkstone/pcx.h"
#if defined(HAS_FLIC_PEER)
#include "bench/flic_peer.h"
#include "bench/pcx_peer.h"
#endif

namespace {

namespace flic = ink::tool::flic;
using ink::tool::Bytes;
using ink::tool::IndexedPicture;

constexpr int kWidth = 640, kHeight = 480;
constexpr std::size_t kPixels = kWidth * kHeight;

// Three kinds of pictures, from what the code is made for to what it is not: flat areas with outlines, as
// drawn backgrounds have; shaded areas with dithering, as rendered ones have; noise.
enum Kind { kDrawn, kDithered, kNoise };

IndexedPicture picture(Kind kind, unsigned seed = 1) {
    IndexedPicture made{.width = kWidth, .height = kHeight};
    std::mt19937 random(seed);
    for (int y = 0; y < kHeight; ++y) {
        std::uint8_t colour = static_cast<std::uint8_t>(random());
        for (int x = 0; x < kWidth; ++x) {
            std::uint8_t &pixel = made.row(y)[x];
            switch (kind) {
                case kDrawn:
                    if (random() % 24 == 0) colour = static_cast<std::uint8_t>(random());
                    pixel = colour;
                    break;
                case kDithered:
                    pixel = static_cast<std::uint8_t>(64 + x / 10 + y / 16 + (random() % 3));
                    break;
                case kNoise: pixel = static_cast<std::uint8_t>(random()); break;
            }
        }
    }
    return made;
}

const char *name(Kind kind) {
    constexpr const char *kNames[] = {"drawn", "dithered", "noise"};
    return kNames[kind];
}

void count_pixels(benchmark::State &state, std::size_t pixels) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pixels));
}

void copy_pixels(benchmark::State &state) {
    const IndexedPicture from = picture(kNoise);
    Bytes to(kPixels);
    for (auto _ : state) {
        std::memcpy(to.data(), from.pixels.data(), kPixels);
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    count_pixels(state, kPixels);
}
BENCHMARK(copy_pixels)->Name("Pictures and films/memcpy");

struct Compressed {
    explicit Compressed(Kind kind) : block(16 + 2 * kPixels) {
        const Bytes pixels = picture(kind).pixels;
        image.insert(image.end(), pixels.begin(), pixels.end());
        fnCompressImage(image.data(), block.data(), 0);
    }
    Bytes image{kWidth & 0xFF, kWidth >> 8, kHeight & 0xFF, kHeight >> 8}, block;
};

void compress(benchmark::State &state) {
    Compressed picture(static_cast<Kind>(state.range(0)));
    for (auto _ : state) fnCompressImage(picture.image.data(), picture.block.data(), 0);
    state.SetLabel(name(static_cast<Kind>(state.range(0))));
    count_pixels(state, kPixels);
}
BENCHMARK(compress)
    ->Name("Pictures and films/fnCompressImage 640 x 480/inkstone")
    ->DenseRange(kDrawn, kNoise);

void expand(benchmark::State &state) {
    Compressed picture(static_cast<Kind>(state.range(0)));
    for (auto _ : state) fnUncompressImage(picture.block.data(), picture.image.data());
    state.SetLabel(name(static_cast<Kind>(state.range(0))));
    count_pixels(state, kPixels);
}
BENCHMARK(expand)
    ->Name("Pictures and films/fnUncompressImage 640 x 480/inkstone")
    ->DenseRange(kDrawn, kNoise);

// The same expansion one byte at a time, as the code is usually read.
void expand_by_the_byte(benchmark::State &state) {
    Compressed picture(static_cast<Kind>(state.range(0)));
    const std::uint8_t *const end = picture.block.data() + fnGetCompressImageSize(picture.block.data());
    for (auto _ : state) {
        std::uint8_t *to = &picture.image[4];
        for (const std::uint8_t *from = &picture.block[16]; from < end;) {
            int count = 1;
            if (*from >= 0xC0) count = *from++ & 0x3F;
            for (const std::uint8_t pixel = *from++; count > 0; --count) *to++ = pixel;
        }
        benchmark::ClobberMemory();
    }
    state.SetLabel(name(static_cast<Kind>(state.range(0))));
    count_pixels(state, kPixels);
}
BENCHMARK(expand_by_the_byte)
    ->Name("Pictures and films/fnUncompressImage 640 x 480/plain byte by byte")
    ->DenseRange(kDrawn, kNoise);

// A picture of the size of a character of a game, 200 x 150, cut out of the larger one.
struct Figure {
    static constexpr int kColumns = 200, kRows = 150;
    explicit Figure(Kind kind) : block(16 + 2 * kColumns * kRows) {
        const IndexedPicture whole = picture(kind);
        for (int y = 0; y < kRows; ++y) image.insert(image.end(), whole.row(y), whole.row(y) + kColumns);
        fnCompressImage(image.data(), block.data(), 0);
    }
    Bytes image{kColumns, 0, kRows, 0}, block;
};

template <typename Operation>
void with_figure(benchmark::State &state, Operation operation) {
    const Kind kind = static_cast<Kind>(state.range(0));
    Figure figure(kind);
    operation(figure);
    state.SetLabel(name(kind));
    count_pixels(state, Figure::kColumns * Figure::kRows);
}

void compress_figure(benchmark::State &state) {
    with_figure(state, [&](Figure &figure) {
        for (auto _ : state) fnCompressImage(figure.image.data(), figure.block.data(), 0);
    });
}
BENCHMARK(compress_figure)
    ->Name("Pictures and films/fnCompressImage 200 x 150/inkstone")
    ->DenseRange(kDrawn, kNoise);

void expand_figure(benchmark::State &state) {
    with_figure(state, [&](Figure &figure) {
        for (auto _ : state) fnUncompressImage(figure.block.data(), figure.image.data());
    });
}
BENCHMARK(expand_figure)
    ->Name("Pictures and films/fnUncompressImage 200 x 150/inkstone")
    ->DenseRange(kDrawn, kNoise);

#if defined(HAS_FLIC_PEER)
void compress_figure_libavcodec(benchmark::State &state) {
    with_figure(state, [&](Figure &figure) {
        bench::PcxPeer peer(&figure.image[4], Figure::kColumns, Figure::kRows);
        for (auto _ : state)
            if (!peer.encode()) state.SkipWithError("refused");
    });
}
BENCHMARK(compress_figure_libavcodec)
    ->Name("Pictures and films/fnCompressImage 200 x 150/libavcodec PCX")
    ->DenseRange(kDrawn, kNoise);

void expand_figure_libavcodec(benchmark::State &state) {
    with_figure(state, [&](Figure &figure) {
        bench::PcxPeer peer(&figure.image[4], Figure::kColumns, Figure::kRows);
        if (!peer.encode()) state.SkipWithError("refused");
        for (auto _ : state)
            if (!peer.decode()) state.SkipWithError("refused");
    });
}
BENCHMARK(expand_figure_libavcodec)
    ->Name("Pictures and films/fnUncompressImage 200 x 150/libavcodec PCX")
    ->DenseRange(kDrawn, kNoise);
#endif

#if defined(INKSTONE_BENCH_ALLEGRO)
// Run-length coded sprites have runs of nothing and pixels one by one: colour 0 is nothing.
void draw_figure_allegro(benchmark::State &state) {
    with_figure(state, [&](Figure &figure) {
        peers::AllegroBitmap from(Figure::kColumns, Figure::kRows), to(Figure::kColumns, Figure::kRows);
        from.load(&figure.image[4]);
        RLE_SPRITE *const sprite = get_rle_sprite(from);
        for (auto _ : state) draw_rle_sprite(to, sprite, 0, 0);
        destroy_rle_sprite(sprite);
    });
}
BENCHMARK(draw_figure_allegro)
    ->Name("Pictures and films/fnUncompressImage 200 x 150/Allegro 4 RLE sprite")
    ->DenseRange(kDrawn, kNoise);
#endif

void write_pcx(benchmark::State &state) {
    const IndexedPicture shown = picture(static_cast<Kind>(state.range(0)));
    const std::string file = std::filesystem::temp_directory_path() / "ink-bench.pcx";
    for (auto _ : state) PCX_save_file(file.c_str(), 0, 0, kWidth, kHeight, shown.pixels.data(), kWidth, 0);
    std::filesystem::remove(file);
    state.SetLabel(name(static_cast<Kind>(state.range(0))));
    count_pixels(state, kPixels);
}
BENCHMARK(write_pcx)->Name("Pictures and films/PCX_save_file 640 x 480/inkstone")->DenseRange(kDrawn, kNoise);

#if defined(HAS_FLIC_PEER)
void write_pcx_libavcodec(benchmark::State &state) {
    const IndexedPicture shown = picture(static_cast<Kind>(state.range(0)));
    const std::string name_of_file = std::filesystem::temp_directory_path() / "ink-bench.pcx";
    bench::PcxPeer peer(shown.pixels.data(), kWidth, kHeight);
    for (auto _ : state) {
        if (!peer.encode()) state.SkipWithError("refused");
        std::FILE *file = std::fopen(name_of_file.c_str(), "wb");
        std::fwrite(peer.packet().data, 1, static_cast<std::size_t>(peer.packet().size), file);
        std::fclose(file);
    }
    std::filesystem::remove(name_of_file);
    state.SetLabel(name(static_cast<Kind>(state.range(0))));
    count_pixels(state, kPixels);
}
BENCHMARK(write_pcx_libavcodec)
    ->Name("Pictures and films/PCX_save_file 640 x 480/libavcodec")
    ->DenseRange(kDrawn, kNoise);
#endif

void read_pcx(benchmark::State &state) {
    IndexedPicture shown = picture(static_cast<Kind>(state.range(0)));
    const std::string file = std::filesystem::temp_directory_path() / "ink-bench.pcx";
    PCX_save_file(file.c_str(), 0, 0, kWidth, kHeight, shown.pixels.data(), kWidth, 0);
    for (auto _ : state) PCX_read_file(file.c_str(), shown.pixels.data());
    std::filesystem::remove(file);
    state.SetLabel(name(static_cast<Kind>(state.range(0))));
    count_pixels(state, kPixels);
}
BENCHMARK(read_pcx)->Name("Pictures and films/PCX_read_file 640 x 480/inkstone")->DenseRange(kDrawn, kNoise);

// A picture of which every other eighth row band is new: what a film changes from frame to frame.
IndexedPicture changed(const IndexedPicture &before) {
    IndexedPicture now = before;
    const IndexedPicture other = picture(kDrawn, 2);
    for (int y = 0; y < kHeight; ++y)
        if (y / 60 % 2 == 0) std::copy(other.row(y) + 100, other.row(y) + 500, now.row(y) + 100);
    return now;
}

Bytes film_frame(int type) {
    const IndexedPicture before = picture(kDrawn), now = changed(before);
    switch (type) {
        case flic::BYTE_RUN: return flic::frame({flic::chunk(type, *flic::byte_run(now))});
        case flic::DELTA_FLI: return flic::frame({flic::chunk(type, *flic::delta_fli(now, before))});
        case flic::DELTA_FLC: return flic::frame({flic::chunk(type, flic::delta_flc(now, before))});
        default: return flic::frame({flic::chunk(type, flic::copy(now))});
    }
}

// How many pixels a frame of this kind paints, all but a few of them.
std::size_t painted(int type) {
    return type == flic::DELTA_FLI || type == flic::DELTA_FLC ? 240 * 400 : kPixels;
}

const char *chunk_name(int type) {
    switch (type) {
        case flic::BYTE_RUN: return "BYTE_RUN";
        case flic::DELTA_FLI: return "DELTA_FLI";
        case flic::DELTA_FLC: return "DELTA_FLC";
        default: return "FLI_COPY";
    }
}

void play_frame(benchmark::State &state) {
    const int type = static_cast<int>(state.range(0));
    Bytes film = flic::file_header(1, kWidth, kHeight), screen(kPixels);
    const Bytes frame = film_frame(type);
    film.insert(film.end(), frame.begin(), frame.end());
    const std::string file = std::filesystem::temp_directory_path() / "ink-bench.flc";
    ink::tool::write_bytes(file, film);
    FLIC_open_flic_file(file.c_str(), 0, screen.data());
    if (FLIC_read_flic_data() != 0) state.SkipWithError("the film cannot be read");
    for (auto _ : state) FLIC_play_flic_frame();
    FLIC_close_flic_file();
    std::filesystem::remove(file);
    state.SetLabel(chunk_name(type));
    count_pixels(state, painted(type));
}
BENCHMARK(play_frame)
    ->Name("Pictures and films/FLIC_play_flic_frame 640 x 480/inkstone")
    ->Arg(flic::BYTE_RUN)
    ->Arg(flic::DELTA_FLI)
    ->Arg(flic::DELTA_FLC)
    ->Arg(flic::FLI_COPY);

#if defined(HAS_FLIC_PEER)
void play_frame_libavcodec(benchmark::State &state) {
    const int type = static_cast<int>(state.range(0));
    const Bytes frame = film_frame(type);
    bench::FlicPeer peer(flic::file_header(1, kWidth, kHeight), kWidth, kHeight);
    for (auto _ : state)
        if (!peer.decode(frame)) state.SkipWithError("the frame is refused");
    state.SetLabel(chunk_name(type));
    count_pixels(state, painted(type));
}
BENCHMARK(play_frame_libavcodec)
    ->Name("Pictures and films/FLIC_play_flic_frame 640 x 480/libavcodec")
    ->Arg(flic::BYTE_RUN)
    ->Arg(flic::DELTA_FLI)
    ->Arg(flic::DELTA_FLC)
    ->Arg(flic::FLI_COPY);
#endif

// A film from its opening to its last frame.
std::vector<IndexedPicture> film_pictures() {
    std::vector<IndexedPicture> pictures{picture(kDrawn)};
    while (pictures.size() < 60) {
        IndexedPicture now = pictures.back();
        const IndexedPicture other = picture(kDrawn, static_cast<unsigned>(pictures.size()) + 1);
        for (int y = 0; y < kHeight; ++y)
            if ((y / 60 + static_cast<int>(pictures.size())) % 4 == 0)
                std::copy(other.row(y) + 100, other.row(y) + 500, now.row(y) + 100);
        pictures.push_back(now);
    }
    return pictures;
}

const Bytes &whole_film() {
    static const Bytes film = flic::film(film_pictures(), 70);
    return film;
}

void play_film(benchmark::State &state) {
    const std::string file = std::filesystem::temp_directory_path() / "ink-bench.flc";
    ink::tool::write_bytes(file, whole_film());
    Bytes screen(kPixels), palette(768);
    for (auto _ : state) {
        for (int left = FLIC_open_flic_file(file.c_str(), 0, screen.data()); left > 0; --left) {
            if (FLIC_read_flic_data() != 0) state.SkipWithError("the film cannot be read");
            FLIC_play_flic_frame();
            FLIC_export_palette(palette.data());
        }
        FLIC_close_flic_file();
    }
    std::filesystem::remove(file);
}
BENCHMARK(play_film)
    ->Name("Pictures and films/FLIC film of 60 frames 640 x 480/inkstone")
    ->Unit(benchmark::kMicrosecond);

#if defined(HAS_FLIC_PEER)
// Its frames out of memory, the file already taken apart.
void play_film_libavcodec(benchmark::State &state) {
    const Bytes &film = whole_film();
    std::vector<Bytes> frames;
    for (std::size_t at = 128; at < film.size();) {
        const std::size_t size =
            film[at] + 256u * film[at + 1] + 65536u * film[at + 2] + (std::size_t{film[at + 3]} << 24);
        frames.emplace_back(&film[at], &film[at] + size);
        at += size;
    }
    frames.pop_back();
    for (auto _ : state) {
        bench::FlicPeer peer(Bytes(film.begin(), film.begin() + 128), kWidth, kHeight);
        for (const Bytes &frame : frames)
            if (!peer.decode(frame)) state.SkipWithError("the frame is refused");
    }
}
BENCHMARK(play_film_libavcodec)
    ->Name("Pictures and films/FLIC film of 60 frames 640 x 480/libavcodec")
    ->Unit(benchmark::kMicrosecond);
#endif

}  // namespace
