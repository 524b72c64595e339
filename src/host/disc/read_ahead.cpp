#include "host/disc/read_ahead.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace ink::host {
namespace {

class ReadAhead final : public DiscContents {
  public:
    explicit ReadAhead(std::unique_ptr<DiscContents> &disc) : disc_(std::move(disc)), held_(kSectors) {
        tracks_ = disc_->tracks();
        try {
            thread_ = std::thread([this] { fetch(); });
        } catch (const std::system_error &) {
            disc = std::move(disc_);
            throw;
        }
    }
    ReadAhead(const ReadAhead &) = delete;
    ReadAhead &operator=(const ReadAhead &) = delete;
    ~ReadAhead() override {
        {
            const std::lock_guard lock(mutex_);
            ended_ = true;
        }
        wanted_.notify_one();
        thread_.join();
    }

    // What lies before the sector is not wanted any more; what lies far behind it is not what was fetched.
    bool read(std::uint32_t sector, Sector &sound) override {
        const std::lock_guard lock(mutex_);
        if (sector < first_ || sector > first_ + count_) count_ = 0;
        count_ -= count_ > 0 ? sector - first_ : 0;
        first_ = sector;
        const bool there = count_ > 0;
        if (there) sound = held_[sector % kSectors];
        wanted_.notify_one();
        return there;
    }

  private:
    static constexpr std::uint32_t kSectors = 2 * kSectorsPerSecond;

    void fetch() {
        std::unique_lock lock(mutex_);
        for (;;) {
            wanted_.wait(lock, [this] { return ended_ || (first_ != kNone && count_ < kSectors); });
            if (ended_) return;
            const std::uint32_t sector = first_ + count_;
            lock.unlock();
            Sector sound;
            disc_->read(sector, sound);
            lock.lock();
            // Another place may be wanted by now.
            if (sector != first_ + count_ || count_ == kSectors) continue;
            held_[sector % kSectors] = sound;
            ++count_;
        }
    }

    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    std::unique_ptr<DiscContents> disc_;  // the thread's
    std::mutex mutex_;
    std::condition_variable wanted_;
    std::vector<Sector> held_;  // by their numbers, modulo kSectors
    std::uint32_t first_ = kNone, count_ = 0;
    bool ended_ = false;
    std::thread thread_;
};

}  // namespace

std::unique_ptr<DiscContents> read_ahead(std::unique_ptr<DiscContents> disc) try {
    return std::make_unique<ReadAhead>(disc);
} catch (const std::system_error &) {
    return disc;
}

}  // namespace ink::host
