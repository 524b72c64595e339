// Fonts as they are found on a system: outline fonts, and bitmap fonts (PCF or BDF, also compressed by gzip).
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct FT_LibraryRec_;
struct FT_FaceRec_;

namespace ink::tool {

// Which characters a cell of the game's font is for: the code in the game's font and what it stands for.
struct Character {
    std::uint16_t code = 0;         // Big5, or of code page 437
    std::vector<char32_t> unicode;  // what it may be in Unicode, the most likely first
    bool standard = false;          // must fit its cell whole; others are cut off at its edges
};

// One character drawn as black and white pixels, placed relative to the start of the base line.
struct Drawn {
    int left = 0, top = 0;  // of the first column and row; top counts upwards from the base line
    int width = 0, height = 0;
    int advance = 0;
    std::vector<bool> ink;  // width x height, row by row

    bool blank() const;
};

class FontFile {
  public:
    // source is a file's name, with #FACE behind it for a face of a collection, and with @PIXELS for the size
    // of an outline font, which otherwise is drawn as high as the cells of width x height. Throws std::runtime_error
    // when the file is no font that can be used, or its cells are larger.
    FontFile(const std::string &source, int width, int height);

    // The character, if the font has it. Throws std::runtime_error when it must fit a cell and does not. One that need
    // not and is many cells large is not had: to draw it would take memory and time without measure.
    std::optional<Drawn> draw(const Character &character) const;

    // How many rows above and below the base line its lines take. Outline fonts may take more than the cell.
    int ascent() const { return ascent_; }
    int descent() const { return descent_; }

  private:
    struct Release {
        void operator()(FT_LibraryRec_ *library) const;
        void operator()(FT_FaceRec_ *face) const;
    };

    void choose_characters();
    void choose_size();
    [[noreturn]] void refuse_character(const Character &character, std::int64_t width,
                                       std::int64_t height) const;

    std::string file_, name_;  // the file, and what it is called in messages
    int width_, height_;       // of a cell
    int size_ = 0;             // at which an outline font is drawn
    std::vector<unsigned char> bytes_;
    std::unique_ptr<FT_LibraryRec_, Release> library_;
    std::unique_ptr<FT_FaceRec_, Release> face_;
    bool big5_ = false;  // its characters are numbered as in Big5, not as in Unicode
    int ascent_ = 0, descent_ = 0;
};

}  // namespace ink::tool
