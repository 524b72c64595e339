#include "host/disc/disc_image.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "host/sound/playback.h"
#include "host/sound/wave_file.h"

namespace ink::host {
namespace {

constexpr std::uint64_t kLongestSheet = 1 << 20;
// Positions and lengths carry their minutes in a byte.
constexpr std::uint64_t kLongestDisc = 256ULL * 60 * kSectorsPerSecond;

std::optional<std::string> read_text(const char *name) {
    InputFile file(name);
    if (!file.is_open() || file.size() > kLongestSheet) return std::nullopt;
    std::string text(static_cast<std::size_t>(file.size()), '\0');
    text.resize(file.read(0, {reinterpret_cast<std::uint8_t *>(text.data()), text.size()}));
    return text;
}

// A file lies beside the sheet, unless the sheet names the whole way to it: then it is looked for where it
// says, and then beside the sheet, where it went with it.
InputFile open_beside(const std::string &sheet, const std::string &name) {
    const auto after_separator = [](const std::string &path) { return path.find_last_of("/\\") + 1; };
    const std::string beside = sheet.substr(0, after_separator(sheet));
    const bool whole = name.starts_with('/') || name.starts_with('\\') || name.find(':') != std::string::npos;
    InputFile file((whole ? name : beside + name).c_str());
    if (!file.is_open() && whole) file = InputFile((beside + name.substr(after_separator(name))).c_str());
    return file;
}

bool is_disc_format(const WaveFormat &format) {
    return format.channels == 2 && format.samples_per_second == kMixRate && format.bits_per_sample == 16;
}

}  // namespace

std::unique_ptr<DiscContents> DiscImage::open(const char *cue_sheet) {
    const auto text = read_text(cue_sheet);
    const auto sheet = text ? parse_cue_sheet(*text) : std::nullopt;
    auto disc = std::make_unique<DiscImage>();
    if (!sheet || !disc->open_sources(cue_sheet, sheet->files) || !disc->lay_out(sheet->tracks))
        return nullptr;
    return disc;
}

bool DiscImage::open_sources(const std::string &sheet, const std::vector<CueFile> &files) {
    for (const CueFile &file : files) {
        InputFile opened = open_beside(sheet, file.name);
        if (!opened.is_open()) return false;
        std::uint64_t begin = 0, end = opened.size();
        if (file.wave) {
            WaveFile wave;
            if (wave.open(std::move(opened)) || !is_disc_format(wave.format())) return false;
            begin = wave.begin();
            opened = wave.take();
            end = begin + opened.present(begin, wave.size());
        }
        sources_.push_back({std::move(opened), begin, end, file.wave});
    }
    return true;
}

bool DiscImage::lay_out(const std::vector<CueTrack> &tracks) {
    // The places of the sheet in their order: each begins a stretch that reaches to the next one of its file
    // or to the file's end. A disc begins where its first track does, whatever the file holds before that.
    struct Mark {
        CuePlace place;
        std::size_t track;
        bool begins;  // the track itself, not the gap before it
    };
    std::vector<Mark> marks;
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        if (i > 0 && tracks[i].index0) marks.push_back({*tracks[i].index0, i, false});
        marks.push_back({*tracks[i].index1, i, true});
    }
    std::uint64_t sector = 0, offset = 0;
    std::size_t source = sources_.size();
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const auto &[place, number, begins] = marks[i];
        const CueTrack &track = tracks[number];
        const bool new_track = i > 0 && marks[i - 1].track != number;
        if (new_track) sector += tracks[number - 1].postgap + track.pregap;
        const Source &file = sources_[place.file];
        if (std::exchange(source, place.file) != place.file)
            offset = file.begin + std::uint64_t{place.sector} * track.sector_size;
        if (offset > file.end) return false;
        const bool last_of_file = i + 1 == marks.size() || marks[i + 1].place.file != place.file;
        // A sector that a binary file does not hold whole is none; what a wave file ends with belongs to it.
        const std::uint64_t left = file.end - offset + (file.wave ? track.sector_size - 1 : 0);
        const std::uint64_t length =
            last_of_file ? left / track.sector_size : marks[i + 1].place.sector - place.sector;
        if (begins) {
            if (!tracks_.empty())
                tracks_.back().length = static_cast<std::uint32_t>(sector) - tracks_.back().start;
            tracks_.push_back({static_cast<std::uint32_t>(sector), 0});
        }
        stretches_.push_back({sector, length, place.file, offset, track.audio});
        sector += length;
        offset += length * track.sector_size;
        if (sector > kLongestDisc) return false;
    }
    sector += tracks.back().postgap;
    tracks_.back().length = static_cast<std::uint32_t>(sector) - tracks_.back().start;
    return sector <= kLongestDisc;
}

bool DiscImage::read(std::uint32_t sector, Sector &sound) {
    sound.fill(0);
    const auto after =
        std::upper_bound(stretches_.begin(), stretches_.end(), sector,
                         [](std::uint32_t at, const Stretch &stretch) { return at < stretch.start; });
    if (after == stretches_.begin()) return true;
    const Stretch &stretch = *(after - 1);
    const std::uint64_t within = sector - stretch.start;
    if (!stretch.audio || within >= stretch.length) return true;
    Source &source = sources_[stretch.source];
    const std::uint64_t offset = stretch.offset + within * sound.size();
    // Of a sector that cannot be read whole, the rest stays silent.
    source.file.read(offset, std::span(sound).first(static_cast<std::size_t>(
                                 std::min<std::uint64_t>(sound.size(), source.end - offset))));
    return true;
}

}  // namespace ink::host
