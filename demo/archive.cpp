#include "archive.h"

#include <inkstone/inkstone.h>

#include <filesystem>
#include <fstream>

namespace moon {
namespace {

namespace fs = std::filesystem;

// What tells one archive from another: its size and its time.
std::string mark_of(const std::string &archive) {
    std::error_code error;
    const auto size = fs::file_size(archive, error);
    const auto time = fs::last_write_time(archive, error).time_since_epoch().count();
    return std::to_string(size) + ' ' + std::to_string(time);
}

}  // namespace

bool unpack(const std::string &archive) {
    if (check_file_exist(archive.c_str()) != 0) return false;
    constexpr const char *kMark = "unpacked";
    std::string before;
    std::getline(std::ifstream(kMark), before);
    if (before == mark_of(archive)) return true;
    BIND_chop_file(archive.c_str(), "");
    std::ofstream(kMark) << mark_of(archive) << '\n';
    return true;
}

}  // namespace moon
