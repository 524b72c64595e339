// Any text as notes: read, or refused with its place. What is read is not played, which takes as long as it
// sounds.
#include "disc/notes.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    try {
        const auto music =
            ink::tool::parse_notes(std::string(reinterpret_cast<const char *>(data), size), "notes");
        if (music.voices.empty()) std::abort();
        for (const auto &voice : music.voices)
            for (const auto &note : voice.notes)
                if (!(note.start >= 0 && note.start <= 7200 && note.length > 0)) std::abort();
    } catch (const std::runtime_error &) {
    }
    return 0;
}
