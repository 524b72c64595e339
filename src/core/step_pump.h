// The message pump of a computation that pumps before each of its many short steps. It pumps where a message
// can come, and between those places counts: the machine's clock, its timers and whoever is called see
// exactly the pumps that a call of fnCheckMessage before each step would have made.
#pragma once

#include <cstdint>

#include "host/host.h"
#include "inkstone/runtime.h"

namespace ink {

class StepPump {
  public:
    // Pumps, and returns how many of the next steps need not.
    std::uint32_t pump() {
        fnCheckMessage();
        promised_ = messages_.idle_peeks();
        return promised_;
    }
    // Accounts for the steps that have not pumped, all that were promised but left. To be called before the
    // machine can be asked anything: before the next pump, before anybody is called, at the end.
    void settle(std::uint32_t left) {
        messages_.skip_peeks(promised_ - left);
        promised_ = 0;
    }

  private:
    host::Messages &messages_ = host::machine().messages;
    std::uint32_t promised_ = 0;
};

}  // namespace ink
