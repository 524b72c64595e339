// The machine made in software on which everything that a recorded or replayed program shows and plays is
// done a second time, by the time of the record: what it shows and plays is the same wherever and however
// fast the program runs. The check values and the kept pictures are its, and so is all that the program
// itself reads back.
#pragma once

#include <cstdint>
#include <vector>

#include "host/machine/virtual_machine.h"
#include "host/replay/picture.h"

namespace ink::host {

class Mirror {
  public:
    Mirror() : virtual_("mirror", Clock(nullptr), std::make_unique<Ends>(), nullptr) {
        machine().bench.capture_sound(true);
    }

    Machine &machine() { return virtual_.machine(); }
    VirtualPointer &pointer() { return virtual_.pointer(); }
    // Moves its time on to this one, in microseconds since the record began.
    void advance_to(std::uint64_t time);
    // Puts in what a sheet describes; a disc in a real drive is left to the machine.
    bool insert_disc(const char *name);

    Picture picture();
    // Of what every window shows: its size and its colours.
    std::uint32_t picture_check();
    // Of what was heard since the last call.
    std::uint32_t take_sound_check();
    // Whether the samples are kept, too, and those that were since the last call.
    void keep_sound(bool on) { keeping_ = on; }
    std::vector<std::int16_t> take_sound();

    // For the program, which knows of no other listener.
    void capture(bool on);
    std::size_t read(std::int16_t *stereo, std::size_t frames);

  private:
    void listen();

    VirtualMachine virtual_;
    std::size_t windows_ = 0;
    bool looked_ = false;
    std::uint32_t picture_check_ = 0, sound_check_ = 0;
    bool keeping_ = false, capturing_ = false;
    std::vector<std::int16_t> kept_, captured_;
};

}  // namespace ink::host
