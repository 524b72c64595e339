// Fonts of a tool that was built without FreeType.
#include <stdexcept>

#include "font/font_file.h"

namespace ink::tool {

bool Drawn::blank() const {
    return true;
}

FontFile::FontFile(const std::string &source, int, int) {
    throw std::runtime_error(
        source +
        ": this ink was built without FreeType and reads no fonts; make them with the ink of "
        "another system: the files are the same everywhere");
}

std::optional<Drawn> FontFile::draw(const Character &) const {
    return std::nullopt;
}

void FontFile::Release::operator()(FT_LibraryRec_ *) const {}
void FontFile::Release::operator()(FT_FaceRec_ *) const {}

}  // namespace ink::tool
