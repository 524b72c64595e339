// What font files are, for ink info.
#include <algorithm>

#include "core/reader.h"
#include "info/report.h"
#include "text/font_layout.h"

namespace ink::tool {
namespace {

void add_font(Report &report, const text::FontLayout &layout, std::span<const std::uint8_t> bitmaps) {
    std::int64_t inked = 0;
    for (std::size_t i = 0; i < layout.glyphs; ++i)
        inked += std::ranges::any_of(bitmaps.subspan(i * layout.glyph_bytes(), layout.glyph_bytes()),
                                     [](std::uint8_t row) { return row != 0; });
    report.rows.push_back(
        {layout.file_name,
         size_text(static_cast<std::int64_t>(layout.width), static_cast<std::int64_t>(layout.height)),
         number(static_cast<std::int64_t>(layout.glyphs)), number(inked)});
}

bool is_pack(const Bytes &file) {
    if (file.size() < text::kPackDataOffset || get_u32(&file[text::kPackCountOffset]) != text::kFontCount)
        return false;
    std::size_t size = text::kPackDataOffset;
    for (std::size_t font = 0; font < text::kFontCount; ++font) {
        if (get_u32(&file[text::kPackHeaderBytes + font * text::kPackEntryBytes + text::kPackSizeOffset]) !=
            text::kFontLayouts[font].bytes())
            return false;
        size += text::kFontLayouts[font].bytes();
    }
    return size == file.size();
}

}  // namespace

std::optional<Report> describe_font(const Bytes &file, const std::filesystem::path &name) {
    Report report;
    report.items = "fonts";
    report.columns = {"font", "cell", "codes", "with ink"};
    if (is_pack(file)) {
        report.format = "pack of fonts";
        std::size_t at = text::kPackDataOffset;
        for (const text::FontLayout &layout : text::kFontLayouts) {
            add_font(report, layout, std::span(file).subspan(at, layout.bytes()));
            at += layout.bytes();
        }
        return report;
    }
    // A font is nothing but its bitmaps: its size says which one it is, where its name says that it is one.
    for (const text::FontLayout &layout : text::kFontLayouts) {
        if (ending_of(name) != "fon" || file.size() != layout.bytes()) continue;
        report.format = "font";
        add_font(report, layout, file);
        return report;
    }
    return std::nullopt;
}

}  // namespace ink::tool
