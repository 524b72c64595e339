// Any bytes as an INFO file, with a section and a key taken from them: what is found is a text of the file.
#include "inkstone/info.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "scratch.h"
#include "support/allocation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (INFO_open_file("nothing") == 0) std::abort();
    INFO_close_file();
    for (std::size_t failing = 0; failing < 3; ++failing) {
        const char *const name = fuzz::as_file(data, size);
        test::FailingAllocation refusal(failing);
        const bool opened = INFO_open_file(name) == 0;
        if (refusal.disarm() && opened) std::abort();
        INFO_close_file();
    }
    // One that is open is not opened again.
    if (INFO_open_file(fuzz::as_file(data, size)) != 0 || INFO_open_file("input") == 0) std::abort();
    const std::string text(reinterpret_cast<const char *>(data), size);
    const auto after = [&text](char mark) {
        const std::size_t start = std::min(text.find(mark), text.size() - 1) + 1;
        return text.substr(start, text.find_first_of("] =\r\n", start) - start);
    };
    const std::string sections[] = {after('['), "a", ""}, keys[] = {after('\n'), "b"};
    const auto value = std::make_unique<char[]>(255);
    for (const std::string &section : sections) {
        for (const std::string &key : keys) {
            const char *returned = INFO_read_config(section.c_str(), key.c_str(), value.get());
            if (std::strcmp(returned, value.get()) != 0 || text.find(returned) == text.npos) std::abort();
        }
    }
    INFO_close_file();
    return 0;
}
