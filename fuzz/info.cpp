// Any bytes as an INFO file, with a section and a key taken from them: what is found is a text of the file.
#include "inkstone/info.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "scratch.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (INFO_open_file(fuzz::as_file(data, size)) != 0) std::abort();
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
