// The real ends of a machine made in software: what differs between a simulated one and one with a window,
// keys and a loudspeaker. Every operation has an answer of its own that does nothing, so a new host overrides
// what it has.
#pragma once

#include <cstdint>
#include <limits>

#include "host/host.h"

namespace ink::host {

class Loudspeaker;
struct Window;
class VirtualMachine;

class Ends {
  public:
    virtual ~Ends() = default;  // for a host whose machine could not be made

    // A window was opened, or is about to close. Returning false refuses it.
    virtual bool window_opened(Window &, const char * /*title*/) { return true; }
    virtual void window_closing(HWND) {}

    // Called from the pump when the time it asked for last has come: collects what the user did and scans the
    // picture out. Returns when it wants to be called again, in microseconds of the machine's clock.
    virtual std::uint64_t service(VirtualMachine &, std::uint64_t /*now*/) {
        return std::numeric_limits<std::uint64_t>::max();
    }
    // A picture or the palette has changed. What shows pictures at its own pace may have time for it now: a
    // game that loads for a while does not pump.
    virtual void screen_changed(VirtualMachine &) {}
    // Lets the processor rest until something happens, until that time at the latest. False when nothing will
    // ever happen before it.
    virtual bool rest(VirtualMachine &, std::uint64_t /*until*/) { return false; }

    // Opens the sound device, which from then on takes what is to be heard from the loudspeaker. False when
    // there is none: time then passes for the sound as it does for the machine, and nobody hears it.
    virtual bool sound_wanted(Loudspeaker &) { return false; }

    // Shows a box until it is closed. Its text has gone to the standard error output already.
    virtual void message_box(HWND /*owner*/, const char * /*text*/, const char * /*caption*/) {}
    virtual void pointer_changed(VirtualMachine &) {}
    virtual void pointer_warped(VirtualMachine &) {}
};

}  // namespace ink::host
