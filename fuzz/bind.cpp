// Any bytes as an archive, and as a list: nothing is written outside the directory, and no more than 64 times
// what there is.
#include "inkstone/bind.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "scratch.h"
#include "support/allocation.h"

namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    fuzz::as_file(data, size);
    fs::create_directories("cell/ERROR.MSG");  // the log leads nowhere
    fs::create_directory("cell/sub");
    fs::current_path("cell");

    char name[17] = {};
    if (size > 24) std::copy_n(data + 24, std::min<std::size_t>(size - 24, 16), name);
    std::int32_t offset = 0, length = 0;
    if (BIND_open("../input", name, &offset, &length) == 0 && length < 1 << 20) {
        const auto block = std::make_unique<std::uint8_t[]>(static_cast<std::size_t>(std::max(length, 0)));
        BIND_read("../input", offset, length, block.get());
    }

    std::uint8_t none = 0;
    if (BIND_open("nothing", name, &offset, &length) == 0 || BIND_read("nothing", 0, 1, &none) == 0 ||
        BIND_bind_file("bound", "nothing") == 0 || BIND_bind_file("no/bound", "../input") == 0)
        std::abort();
    BIND_chop_file("nothing", nullptr);
    BIND_chop_file("../input", nullptr);
    std::uintmax_t total = 0;
    for (const auto &entry : fs::recursive_directory_iterator("."))
        if (entry.is_regular_file()) total += entry.file_size();
    if (total > 64 * size || fs::file_size("../input") != size) std::abort();
    {
        const test::FailingAllocation refusal(0, true);
        if (BIND_bind_file("bound", "../input") == 0) std::abort();
    }
    BIND_bind_file("/dev/full", "../input");    // a disk without room
    BIND_bind_file("bound", "/proc/self/mem");  // a list that opens and cannot be read
    if (BIND_bind_file("bound", "../input") == 0) BIND_chop_file("bound", nullptr);

    fs::current_path("..");
    if (std::distance(fs::directory_iterator("."), {}) != 3) std::abort();
    fs::remove_all("cell");
    return 0;
}
