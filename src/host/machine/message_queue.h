// The message queue of a machine made in software: posted and input messages in order, then a quit request.
#pragma once

#include <cstdint>
#include <deque>
#include <new>

#include "host/host.h"

namespace ink::host {

class MessageQueue {
  public:
    // The most messages that wait at a time; further ones are lost, as on the real machine, and so are those
    // for which there is no memory.
    static constexpr std::size_t kCapacity = 10000;

    bool empty() const { return messages_.empty() && !quit_; }

    void post(const Message &message) try {
        if (messages_.size() < kCapacity) messages_.push_back(message);
    } catch (const std::bad_alloc &) {
    }
    void post_quit(std::int32_t exit_code) {
        quit_ = true;
        exit_code_ = exit_code;
    }
    // Takes the next message; the quit request comes when every message is taken.
    bool take(Message &message) {
        if (!messages_.empty()) {
            message = messages_.front();
            messages_.pop_front();
            return true;
        }
        if (!quit_) return false;
        quit_ = false;
        message = {nullptr, WM_QUIT, static_cast<WPARAM>(exit_code_), 0};
        return true;
    }
    // Messages to a window that is gone are not delivered.
    void forget(HWND window) {
        std::erase_if(messages_, [window](const Message &message) { return message.window == window; });
    }

  private:
    std::deque<Message> messages_;
    bool quit_ = false;
    std::int32_t exit_code_ = 0;
};

}  // namespace ink::host
