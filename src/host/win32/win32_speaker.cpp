#include "host/win32/win32_speaker.h"

#include <mmsystem.h>

#include <array>
#include <new>

namespace ink::host {
namespace {

// Some 23 milliseconds each: four of them outlast what a busy system lets a thread wait.
constexpr std::size_t kBlocks = 4, kBlockFrames = 1024;

class Speaker {
  public:
    explicit Speaker(Loudspeaker &loudspeaker) : loudspeaker_(loudspeaker) {}

    bool open() {
        WAVEFORMATEX format{};
        format.wFormatTag = WAVE_FORMAT_PCM;
        format.nChannels = 2;
        format.nSamplesPerSec = kMixRate;
        format.wBitsPerSample = 16;
        format.nBlockAlign = 4;
        format.nAvgBytesPerSec = kMixRate * 4;
        played_ = CreateEventA(nullptr, FALSE, TRUE, nullptr);
        if (played_ == nullptr) return false;
        if (waveOutOpen(&device_, WAVE_MAPPER, &format, reinterpret_cast<DWORD_PTR>(played_), 0,
                        CALLBACK_EVENT) != MMSYSERR_NOERROR)
            return false;
        for (std::size_t i = 0; i < kBlocks; ++i) {
            headers_[i].lpData = reinterpret_cast<char *>(blocks_[i].data());
            headers_[i].dwBufferLength = kBlockFrames * 4;
            waveOutPrepareHeader(device_, &headers_[i], sizeof headers_[i]);
            headers_[i].dwFlags |= WHDR_DONE;
        }
        const HANDLE thread = CreateThread(nullptr, 0, run, this, 0, nullptr);
        if (thread == nullptr) return false;
        SetThreadPriority(thread, THREAD_PRIORITY_TIME_CRITICAL);
        return CloseHandle(thread) != FALSE;
    }

  private:
    static DWORD WINAPI run(void *speaker) {
        for (;;) static_cast<Speaker *>(speaker)->fill();
    }
    void fill() {
        WaitForSingleObject(played_, INFINITE);
        for (std::size_t i = 0; i < kBlocks; ++i) {
            if ((headers_[i].dwFlags & WHDR_DONE) == 0) continue;
            loudspeaker_.render(blocks_[i].data(), kBlockFrames);
            headers_[i].dwFlags &= ~static_cast<DWORD>(WHDR_DONE);
            waveOutWrite(device_, &headers_[i], sizeof headers_[i]);
        }
    }

    Loudspeaker &loudspeaker_;
    HWAVEOUT device_ = nullptr;
    HANDLE played_ = nullptr;
    std::array<WAVEHDR, kBlocks> headers_{};
    std::array<std::array<std::int16_t, kBlockFrames * 2>, kBlocks> blocks_{};
};

}  // namespace

bool open_speaker(Loudspeaker &loudspeaker) {
    auto *speaker = new (std::nothrow) Speaker(loudspeaker);
    if (speaker == nullptr) return false;
    if (speaker->open()) return true;
    delete speaker;
    return false;
}

}  // namespace ink::host
