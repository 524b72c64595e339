// ink: makes, converts and inspects every file the library reads.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "files/file.h"
#include "files/source.h"
#include "program.h"

#if defined(_WIN32)
#include <windows.h>

#include <shellapi.h>
#endif

namespace {

constexpr int kFailed = 1, kMisused = 2;

std::vector<std::string> arguments(int argc, char **argv) {
    std::vector<std::string> words;
#if defined(_WIN32)
    // The system has them in a form that holds every name.
    static_cast<void>(argc), static_cast<void>(argv);
    int count = 0;
    wchar_t **const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) words.push_back(ink::tool::name_of(wide[i]));
    LocalFree(wide);
#else
    for (int i = 1; i < argc; ++i) words.emplace_back(argv[i]);
#endif
    return words;
}

}  // namespace

int main(int argc, char **argv) {
    using namespace ink::tool;
    try {
        run_program(arguments(argc, argv));
    } catch (const Misused &) {
        return kMisused;
    } catch (const SourceError &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return kFailed;
    } catch (const SourceErrors &errors) {
        std::fprintf(stderr, "%s\n", errors.what());
        return kFailed;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "ink: %s\n", error.what());
        return kFailed;
    }
    return 0;
}
