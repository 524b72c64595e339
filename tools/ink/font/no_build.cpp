// `ink font build` of a tool that was built without FreeType.
#include <stdexcept>

#include "font/commands.h"

namespace ink::tool {

void build_fonts(const FontBuild &) {
    throw std::runtime_error(
        "this ink was built without FreeType and reads no fonts; make them with the ink of another system: "
        "the files are "
        "the same everywhere");
}

}  // namespace ink::tool
