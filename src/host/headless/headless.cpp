#include "host/headless/headless.h"

#include <cstdio>
#include <memory>

#include "host/machine/virtual_machine.h"

namespace ink::host {
namespace {

class HeadlessEnds : public Ends {
  public:
    // Nobody is there to close a box: its text goes to the standard error output.
    void message_box(HWND, const char *text, const char *caption) override {
        std::fprintf(stderr, "%s: %s\n", caption, text);
    }
};

}  // namespace

Machine *open_headless() {
    static VirtualMachine machine("headless", Clock(nullptr), std::make_unique<HeadlessEnds>());
    return &machine.machine();
}

}  // namespace ink::host
