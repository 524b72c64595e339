// ink: makes, converts and inspects every file the library reads.
#include <cstdio>
#include <exception>

#include "command_line.h"
#include "files/source.h"

#if defined(_WIN32)
#include <windows.h>

#include <shellapi.h>
#endif

namespace {

constexpr int kFailed = 1, kMisused = 2;

// In the order in which the parser takes them: the last first.
std::vector<std::string> arguments(int argc, char **argv) {
    std::vector<std::string> words;
#if defined(_WIN32)
    // The system has them in another form than the one the program was started with can carry.
    static_cast<void>(argc), static_cast<void>(argv);
    int count = 0;
    wchar_t **const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = count - 1; i > 0; --i) words.push_back(ink::tool::name_of(wide[i]));
    LocalFree(wide);
#else
    for (int i = argc - 1; i > 0; --i) words.emplace_back(argv[i]);
#endif
    return words;
}

}  // namespace

int main(int argc, char **argv) {
    using namespace ink::tool;
    CLI::App app("Makes, converts and inspects the files of Inkstone games", "ink");
    app.require_subcommand(1);
    try {
        add_info(app);
        add_picture(app);
        add_palette(app);
        add_can(app);
        add_flic(app);
        add_bind(app);
        add_lzss(app);
        add_conf(app);
        add_font(app);
        add_strings(app);
        add_mac(app);
        add_save(app);
        add_expr(app);
        add_disc(app);
        add_manual(app);
        app.parse(arguments(argc, argv));
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? 0 : kMisused;
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
