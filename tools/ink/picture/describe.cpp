// What pictures and palettes are, for ink info.
#include "core/reader.h"
#include "info/report.h"
#include "picture/palette_file.h"
#include "picture/picture_file.h"
#include "png/png_file.h"

namespace ink::tool {
namespace {

Report describe_png(const Bytes &file) {
    Report report("PNG picture");
    try {
        const PngPicture png = decode_png(file);
        report.add("size", size_text(png.width, png.height));
        if (png.indices.empty())
            report.add("colours", "of every pixel");
        else
            report.add("colours", png.palette.size());
    } catch (const std::runtime_error &error) {
        report.faults.emplace_back(error.what());
    }
    return report;
}

Report describe_compressed(const Bytes &file) {
    Report report("compressed image");
    Reader reader(file);
    reader.seek(4);
    const std::uint32_t type = reader.u32();
    const int width = reader.u16(), height = reader.u16();
    const std::uint32_t length = reader.u32();
    report.add("size", size_text(width, height));
    report.add("type", type);
    report.add("code bytes", length);
    if (length > reader.left())
        report.fault(12,
                     "the code ends " + std::to_string(length - reader.left()) + " bytes behind the file");
    else if (length < reader.left())
        report.fault(16 + length, std::to_string(reader.left() - length) + " bytes follow the code");
    if (type == 0) check_code(report, 16, reader.take(length), std::int64_t{width} * height);
    return report;
}

Report describe_pcx(const Bytes &file) {
    Report report("PCX picture");
    Reader reader(file);
    reader.seek(1);
    const int version = reader.u8(), encoding = reader.u8(), bits = reader.u8();
    const int x = reader.i16(), y = reader.i16(), right = reader.i16(), bottom = reader.i16();
    reader.seek(65);
    const int planes = reader.u8();
    const std::int64_t stride = reader.u16(), width = std::int64_t{right} - x + 1,
                       height = std::int64_t{bottom} - y + 1;
    report.add("version", version);
    report.add("size", size_text(width, height));
    report.add("place", place_text(x, y));
    report.add("bits", bits);
    report.add("planes", planes);
    if (encoding != 1) report.fault(2, "it is not run-length coded");
    if (bits != 8 || planes != 1) report.fault(3, "it is not of 256 colours, which alone are read");
    if (width < 1 || height < 1) report.fault(4, "it has no pixel");
    if (file.size() < 128 + 769 || file[file.size() - 769] != 12) {
        report.fault(file.size() < 769 ? 0 : file.size() - 769,
                     "there is no palette of 256 colours at the end");
    } else if (report.faults.empty()) {
        const auto code = std::span(file).subspan(128, file.size() - 128 - 769);
        check_code(report, 128, code, std::max(stride, width) * height);
    }
    return report;
}

}  // namespace

void check_code(Report &report, std::size_t offset, std::span<const std::uint8_t> code, std::int64_t pixels) {
    std::int64_t written = 0;
    for (std::size_t at = 0; at < code.size(); ++at) {
        if (written >= pixels) {
            report.fault(offset + at,
                         std::to_string(code.size() - at) + " bytes of code follow the last pixel");
            return;
        }
        if (code[at] < 0xC0) {
            ++written;
            continue;
        }
        written += code[at] & 0x3F;
        if (++at == code.size()) report.fault(offset + at, "a run ends before its colour");
    }
    if (written < pixels)
        report.fault(offset + code.size(),
                     "the code ends " + std::to_string(pixels - written) + " pixels too soon");
}

std::optional<Report> describe_picture(const Bytes &file) {
    const auto kind = recognise_picture(file);
    if (!kind) return std::nullopt;
    switch (*kind) {
        case PictureKind::png: return describe_png(file);
        case PictureKind::pcx: return describe_pcx(file);
        case PictureKind::compressed_image: return describe_compressed(file);
        case PictureKind::image_block: break;
    }
    Report report("image block");
    report.add("size", size_text(get_u16(&file[0]), get_u16(&file[2])));
    return report;
}

std::optional<Report> describe_palette(const Bytes &file) {
    if (!is_palette_file(file)) return std::nullopt;
    Report report("palette");
    report.items = "colours";
    report.columns = {"entry", "red", "green", "blue"};
    Reader reader(file);
    const int first = reader.i16(), end = reader.i16();
    report.add("entries", std::to_string(first) + " to " + std::to_string(end - 1));
    for (int entry = first; entry < end; ++entry) {
        std::vector<Value> row{number(entry)};
        for (int component = 0; component < 3; ++component) row.push_back(number(reader.u8()));
        report.rows.push_back(row);
    }
    return report;
}

}  // namespace ink::tool
