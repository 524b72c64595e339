#include "flic/reader.h"

#include <algorithm>
#include <stdexcept>

#include "core/reader.h"
#include "draw/surface.h"
#include "files/workshop.h"
#include "info/report.h"
#include "inkstone/flic.h"

namespace ink::tool {

Animation read_flic(const Bytes &file) {
    const auto report = describe_flic(file);
    if (!report) throw std::runtime_error("is no FLIC film");
    if (!report->faults.empty()) throw std::runtime_error("is damaged: " + report->faults.front());
    Reader header(file);
    header.seek(8);
    const int width = std::min<int>(header.i16(), draw::kScreenWidth);
    const int height = std::min<int>(header.i16(), draw::kScreenHeight);
    const auto milliseconds =
        std::ranges::find(report->facts, "milliseconds", &std::pair<std::string, Value>::first);

    const Workshop workshop;
    workshop.put("input", file);
    IndexedPicture screen{draw::kScreenWidth, draw::kScreenHeight};
    FLIC_inport_palette(screen.palette.data());
    const int frames = FLIC_open_flic_file("input", 0, screen.pixels.data());
    Animation animation;
    for (int i = 0; i < frames; ++i) {
        if (FLIC_read_flic_data() != 0) throw std::runtime_error("has no frame " + std::to_string(i + 1));
        FLIC_play_flic_frame();
        FLIC_export_palette(screen.palette.data());
        animation.frames.push_back({cut(screen, 0, 0, width, height),
                                    static_cast<int>(std::clamp<std::int64_t>(
                                        std::get<std::int64_t>(milliseconds->second), 1, 60'000))});
    }
    FLIC_close_flic_file();
    if (animation.frames.empty()) throw std::runtime_error("has no frame");
    return animation;
}

}  // namespace ink::tool
