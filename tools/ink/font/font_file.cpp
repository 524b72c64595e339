#include "font/font_file.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_BDF_H
#include FT_OUTLINE_H
#include <zlib.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <stdexcept>
#include <utility>

#include "files/file.h"

namespace ink::tool {
namespace {

[[noreturn]] void refuse(const std::string &name, const std::string &why) {
    throw std::runtime_error(name + ": " + why);
}

std::string size_text(std::int64_t width, std::int64_t height) {
    return std::to_string(width) + " x " + std::to_string(height);
}

// The whole file, expanded when it is compressed.
std::vector<unsigned char> read_whole(const std::string &name) {
    constexpr std::size_t kMost = 256U << 20;
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(name, ignored)) refuse(name, "no such file");
    const std::unique_ptr<gzFile_s, decltype(&gzclose)> file(gzopen(name.c_str(), "rb"), gzclose);
    if (!file) refuse(name, "cannot be opened");
    note_read(path_of(name));
    std::vector<unsigned char> bytes;
    for (;;) {
        constexpr unsigned kPiece = 1U << 20;
        const std::size_t before = bytes.size();
        bytes.resize(before + kPiece);
        const int read = gzread(file.get(), bytes.data() + before, kPiece);
        if (read < 0) refuse(name, "is damaged");
        bytes.resize(before + static_cast<std::size_t>(read));
        if (read == 0) return bytes;
        if (bytes.size() > kMost) refuse(name, "is too large for a font");
    }
}

// Takes a number after mark off the end of source; nothing when there is none.
std::optional<int> take_number(std::string &source, char mark) {
    const std::size_t at = source.rfind(mark);
    if (at == std::string::npos || at + 1 == source.size()) return std::nullopt;
    int number = 0;
    const auto [end, error] = std::from_chars(source.data() + at + 1, source.data() + source.size(), number);
    if (error != std::errc() || end != source.data() + source.size() || number < 0) return std::nullopt;
    source.resize(at);
    return number;
}

// The character set that a bitmap font says it is for, such as "Big5.ETen-0", from its own properties or the
// end of its full name.
std::string character_set(FT_Face face) {
    const char *encoding = nullptr, *registry = nullptr;
    if (FT_Get_BDF_Charset_ID(face, &encoding, &registry) == 0 && registry) return registry;
    BDF_PropertyRec full_name{};
    if (FT_Get_BDF_Property(face, "FONT", &full_name) != 0 || full_name.type != BDF_PROPERTY_TYPE_ATOM ||
        full_name.u.atom == nullptr)
        return {};
    std::string_view name = full_name.u.atom;
    const std::size_t last = name.rfind('-');
    if (last == std::string_view::npos || last == 0) return {};
    return std::string(name.substr(name.rfind('-', last - 1) + 1));
}

bool starts_with_big5(const std::string &set) {
    constexpr std::string_view kBig5 = "big5";
    return set.size() >= kBig5.size() &&
           std::equal(kBig5.begin(), kBig5.end(), set.begin(), [](char lower, char letter) {
               return lower == std::tolower(static_cast<unsigned char>(letter));
           });
}

// Distances in FreeType are in 64ths of a pixel.
int pixels(FT_Pos distance) {
    return static_cast<int>((distance + 32) >> 6);
}

// How many pixels wide and high a glyph is that was loaded and need not be drawn yet.
std::pair<std::int64_t, std::int64_t> size_of(FT_GlyphSlot slot) {
    if (slot->format != FT_GLYPH_FORMAT_OUTLINE) return {slot->bitmap.width, slot->bitmap.rows};
    FT_BBox box;
    FT_Outline_Get_CBox(&slot->outline, &box);
    return {std::int64_t{(box.xMax + 63) >> 6} - (box.xMin >> 6),
            std::int64_t{(box.yMax + 63) >> 6} - (box.yMin >> 6)};
}

}  // namespace

bool Drawn::blank() const {
    return std::find(ink.begin(), ink.end(), true) == ink.end();
}

void FontFile::Release::operator()(FT_LibraryRec_ *library) const {
    FT_Done_FreeType(library);
}
void FontFile::Release::operator()(FT_FaceRec_ *face) const {
    FT_Done_Face(face);
}

FontFile::FontFile(const std::string &source, int width, int height)
    : file_(source), width_(width), height_(height) {
    size_ = take_number(file_, '@').value_or(height);
    std::string file = file_;
    const int index = take_number(file, '#').value_or(0);
    name_ = name_of(path_of(file).filename());
    bytes_ = read_whole(file);
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0) refuse(name_, "FreeType cannot be started");
    library_.reset(library);
    FT_Face face = nullptr;
    if (FT_New_Memory_Face(library, bytes_.data(), static_cast<FT_Long>(bytes_.size()), index, &face) != 0)
        refuse(name_, "is not a font, or has no face " + std::to_string(index));
    face_.reset(face);
    choose_characters();
    choose_size();
}

void FontFile::choose_characters() {
    FT_Face face = face_.get();
    big5_ = starts_with_big5(character_set(face)) && face->num_charmaps > 0 &&
            FT_Set_Charmap(face, face->charmaps[0]) == 0;
    if (big5_ || FT_Select_Charmap(face, FT_ENCODING_UNICODE) == 0) return;
    big5_ = FT_Select_Charmap(face, FT_ENCODING_BIG5) == 0;
    if (!big5_) refuse(name_, "its characters are numbered neither as in Unicode nor as in Big5");
}

void FontFile::choose_size() {
    FT_Face face = face_.get();
    const auto measure = [&] {
        ascent_ = pixels(face->size->metrics.ascender);
        descent_ = -pixels(face->size->metrics.descender);
    };
    if (FT_IS_SCALABLE(face)) {
        if (size_ < 1 || FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(size_)) != 0)
            refuse(name_, "cannot be drawn " + std::to_string(size_) + " pixels high");
        measure();
        return;
    }
    for (int i = 0; i < face->num_fixed_sizes; ++i) {
        if (FT_Select_Size(face, i) != 0) continue;
        measure();
        if (ascent_ + descent_ <= height_) return;
    }
    refuse(name_, "its characters are " +
                      size_text(pixels(face->size->metrics.max_advance), ascent_ + descent_) +
                      " pixels large and do not fit into cells of " + size_text(width_, height_));
}

void FontFile::refuse_character(const Character &character, std::int64_t width, std::int64_t height) const {
    char code[8];
    std::snprintf(code, sizeof code, "0x%02X", unsigned{character.code});
    std::string why = std::string("its character ") + code + " is " + size_text(width, height) +
                      " pixels and does not fit into cells of " + size_text(width_, height_);
    if (FT_IS_SCALABLE(face_.get())) {
        // A line has no height, or no width.
        const std::int64_t size = size_,
                           fitting = std::min(size * width_ / std::max<std::int64_t>(width, 1),
                                              size * height_ / std::max<std::int64_t>(height, 1));
        why +=
            "; it is drawn smaller with " + file_ + "@" + std::to_string(std::max<std::int64_t>(fitting, 1));
    }
    refuse(name_, why);
}

std::optional<Drawn> FontFile::draw(const Character &character) const {
    FT_Face face = face_.get();
    FT_UInt glyph = 0;
    if (big5_) {
        glyph = FT_Get_Char_Index(face, character.code);
    } else {
        for (const char32_t unicode : character.unicode)
            if (glyph == 0) glyph = FT_Get_Char_Index(face, unicode);
    }
    if (glyph == 0 || FT_Load_Glyph(face, glyph, FT_LOAD_TARGET_MONO) != 0) return std::nullopt;
    const FT_GlyphSlot slot = face->glyph;
    const auto [width, height] = size_of(slot);
    constexpr int kManyCells = 16;
    if (width > kManyCells * width_ || height > kManyCells * height_) {
        if (character.standard) refuse_character(character, width, height);
        return std::nullopt;
    }
    if (FT_Render_Glyph(slot, FT_RENDER_MODE_MONO) != 0) return std::nullopt;
    const FT_Bitmap &bitmap = slot->bitmap;
    // A BDF font may state a character's box and leave out its bitmap.
    const bool has_ink = bitmap.pixel_mode == FT_PIXEL_MODE_MONO && bitmap.buffer != nullptr;
    if (!has_ink && bitmap.rows != 0) return std::nullopt;
    Drawn drawn{slot->bitmap_left,
                slot->bitmap_top,
                static_cast<int>(bitmap.width),
                static_cast<int>(bitmap.rows),
                pixels(slot->advance.x),
                {}};
    drawn.ink.reserve(std::size_t{bitmap.width} * bitmap.rows);
    for (unsigned row = 0; row < bitmap.rows; ++row)
        for (unsigned column = 0; column < bitmap.width; ++column)
            drawn.ink.push_back(
                (bitmap.buffer[static_cast<std::ptrdiff_t>(row) * bitmap.pitch + column / 8] >>
                 (7 - column % 8)) &
                1);
    if (character.standard && (drawn.width > width_ || drawn.height > height_) && !drawn.blank())
        refuse_character(character, drawn.width, drawn.height);
    return drawn;
}

}  // namespace ink::tool
