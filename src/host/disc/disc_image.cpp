#include "host/disc/disc_image.h"

#include <algorithm>
#include <optional>
#include <string>

namespace ink::host {
namespace {

constexpr std::size_t kLongestSheet = 1 << 20;
// Positions and lengths carry their minutes in a byte.
constexpr std::uint64_t kLongestDisc = 256ULL * 60 * kSectorsPerSecond;

std::optional<std::string> read_text(const char *name) {
    const File file = open_file(name, "rb");
    if (!file) return std::nullopt;
    std::string text(kLongestSheet + 1, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), file.get()));
    return text.size() <= kLongestSheet ? std::optional(std::move(text)) : std::nullopt;
}

bool seek(std::FILE *file, std::uint64_t offset, int origin = SEEK_SET) {
#if defined(_WIN32)
    return _fseeki64(file, static_cast<long long>(offset), origin) == 0;
#else
    return fseeko(file, static_cast<off_t>(offset), origin) == 0;
#endif
}

std::uint64_t size_of(std::FILE *file) {
    if (!seek(file, 0, SEEK_END)) return 0;
#if defined(_WIN32)
    return static_cast<std::uint64_t>(std::max(_ftelli64(file), 0LL));
#else
    return static_cast<std::uint64_t>(std::max(ftello(file), off_t{0}));
#endif
}

// The image lies beside the sheet, unless the sheet names the whole way to it: then it is looked for where it
// says, and then beside the sheet, where it went with it.
File open_image(const std::string &sheet, const std::string &image) {
    const auto after_separator = [](const std::string &name) { return name.find_last_of("/\\") + 1; };
    const std::string beside = sheet.substr(0, after_separator(sheet));
    const bool whole =
        image.starts_with('/') || image.starts_with('\\') || image.find(':') != std::string::npos;
    File file = open_file((whole ? image : beside + image).c_str(), "rb");
    if (!file && whole) file = open_file((beside + image.substr(after_separator(image))).c_str(), "rb");
    return file;
}

}  // namespace

std::unique_ptr<DiscContents> DiscImage::open(const char *cue_sheet) {
    const auto text = read_text(cue_sheet);
    const auto sheet = text ? parse_cue_sheet(*text) : std::nullopt;
    if (!sheet) return nullptr;
    File file = open_image(cue_sheet, sheet->image);
    if (!file) return nullptr;
    std::unique_ptr<DiscImage> disc(new DiscImage(std::move(file)));
    if (!disc->lay_out(sheet->tracks)) return nullptr;
    return disc;
}

bool DiscImage::lay_out(const std::vector<CueTrack> &tracks) {
    const std::uint64_t size = size_of(file_.get());
    std::uint64_t sector = 0, offset = std::uint64_t{*tracks.front().index1} * tracks.front().sector_size;
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        const CueTrack &track = tracks[i];
        if (offset > size) return false;
        // A disc begins where its first track does, whatever the image holds before that.
        const std::uint32_t first = i == 0 ? *track.index1 : track.first();
        if (i > 0) sector += track.pregap;
        const std::uint64_t length =
            i + 1 < tracks.size() ? tracks[i + 1].first() - first : (size - offset) / track.sector_size;
        const std::uint64_t start = sector + (*track.index1 - first);
        stretches_.push_back({sector, length, offset, track.audio});
        sector += length + track.postgap;
        if (start > sector || sector > kLongestDisc) return false;
        if (i > 0) tracks_.back().length = static_cast<std::uint32_t>(start) - tracks_.back().start;
        tracks_.push_back({static_cast<std::uint32_t>(start), 0});
        offset += length * track.sector_size;
    }
    tracks_.back().length = static_cast<std::uint32_t>(sector) - tracks_.back().start;
    return true;
}

void DiscImage::read(std::uint32_t sector, Sector &sound) {
    sound.fill(0);
    const auto after =
        std::upper_bound(stretches_.begin(), stretches_.end(), sector,
                         [](std::uint32_t at, const Stretch &stretch) { return at < stretch.start; });
    if (after == stretches_.begin()) return;
    const Stretch &stretch = *(after - 1);
    const std::uint64_t within = sector - stretch.start;
    if (stretch.audio && within < stretch.length && seek(file_.get(), stretch.offset + within * sound.size()))
        // Of a sector that cannot be read whole, the rest stays silent.
        static_cast<void>(std::fread(sound.data(), 1, sound.size(), file_.get()) == sound.size());
}

}  // namespace ink::host
