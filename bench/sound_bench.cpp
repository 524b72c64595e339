// A second of four sounds mixed, beside a bare loop that adds what needs no conversion and beside SDL's
// converter and mixer. The counter dB says how far what differs from the ideal sine lies below it.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <vector>

#include "inkstone/host.h"
#include "inkstone/wave.h"
#include "peers.h"

namespace {

constexpr int kChannels = 4, kMixRate = 44100;
constexpr double kFrequency = 1000, kAmplitude = 7000;
using Samples = std::vector<std::int16_t>;

Samples make_sine(int rate) {
    Samples samples;
    for (int i = 0; i < rate; ++i)
        samples.push_back(static_cast<std::int16_t>(
            std::lround(kAmplitude * std::sin(2 * std::numbers::pi * kFrequency * i / rate))));
    return samples;
}

// Of a mix of kChannels equal sines, from some place in it: the part that is no sine of the frequency is
// noise.
double signal_to_noise(const Samples &stereo) {
    double sine = 0, cosine = 0, power = 0;
    const std::size_t first = 4410, count = 22050;  // whole periods
    for (std::size_t i = first; i < first + count; ++i) {
        const double angle = 2 * std::numbers::pi * kFrequency * static_cast<double>(i) / kMixRate;
        sine += stereo[2 * i] * std::sin(angle);
        cosine += stereo[2 * i] * std::cos(angle);
        power += static_cast<double>(stereo[2 * i]) * stereo[2 * i];
    }
    const double signal = (sine * sine + cosine * cosine) * 2 / static_cast<double>(count);
    return 10 * std::log10(signal / std::max(power - signal, 1.0));
}

void put(std::ofstream &file, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) file.put(static_cast<char>(value >> (8 * i)));
}

void load_and_start(int channel, const Samples &samples, int rate) {
    const char *name = "sound_bench.wav";
    {
        std::ofstream file(name, std::ios::binary);
        const auto bytes = static_cast<std::uint32_t>(2 * samples.size()),
                   frames = static_cast<std::uint32_t>(rate);
        file << "RIFF";
        put(file, bytes + 36, 4);
        file << "WAVEfmt ";
        for (const auto &[value, size] :
             {std::pair{16U, 4}, {1U, 2}, {1U, 2}, {frames, 4}, {2 * frames, 4}, {2U, 2}, {16U, 2}})
            put(file, value, size);
        file << "data";
        put(file, bytes, 4);
        for (const std::int16_t sample : samples) put(file, static_cast<std::uint16_t>(sample), 2);
    }
    DS_load_wave_channel(name, channel);
    std::remove(name);
    DS_start(channel, 1);
}

void mix_inkstone(benchmark::State &state) {
    const int rate = static_cast<int>(state.range(0));
    HOST_choose("headless");
    DS_init(nullptr);
    for (int channel = 0; channel < kChannels; ++channel) load_and_start(channel, make_sine(rate), rate);
    Samples heard(2 * kMixRate);
    HOST_capture_sound(1);
    for (auto _ : state) {
        HOST_advance_clock(1000000);
        HOST_read_sound(heard.data(), kMixRate);
    }
    HOST_capture_sound(0);
    DS_destroy();
    state.counters["dB"] = signal_to_noise(heard);
}
BENCHMARK(mix_inkstone)
    ->Name("Sound/a second of four sounds of that rate mixed/inkstone")
    ->Arg(22050)
    ->Arg(44100)
    ->Arg(48000);

void add_bare_loop(benchmark::State &state) {
    const Samples sound = make_sine(static_cast<int>(state.range(0)));
    Samples heard(2 * kMixRate);
    std::vector<std::int32_t> sum(heard.size());
    for (auto _ : state) {
        std::fill(sum.begin(), sum.end(), 0);
        for (int channel = 0; channel < kChannels; ++channel)
            for (std::size_t i = 0; i < sound.size(); ++i) sum[2 * i] += sound[i], sum[2 * i + 1] += sound[i];
        for (std::size_t i = 0; i < sum.size(); ++i)
            heard[i] = static_cast<std::int16_t>(std::clamp(sum[i], -32768, 32767));
        benchmark::DoNotOptimize(heard.data());
    }
}
BENCHMARK(add_bare_loop)->Name("Sound/a second of four sounds of that rate mixed/limit adding")->Arg(44100);

#if defined(INKSTONE_BENCH_SDL)
void mix_sdl(benchmark::State &state) {
    const int rate = static_cast<int>(state.range(0));
    const Samples sound = make_sine(rate);
    std::array<SDL_AudioStream *, kChannels> streams;
    for (auto &stream : streams)
        stream = SDL_NewAudioStream(AUDIO_S16SYS, 1, rate, AUDIO_S16SYS, 2, kMixRate);
    Samples heard(2 * kMixRate), one(heard.size());
    const auto bytes = static_cast<Uint32>(2 * heard.size());
    for (auto _ : state) {
        std::fill(heard.begin(), heard.end(), std::int16_t{0});
        for (SDL_AudioStream *stream : streams) {
            SDL_AudioStreamPut(stream, sound.data(), static_cast<int>(2 * sound.size()));
            SDL_AudioStreamGet(stream, one.data(), static_cast<int>(bytes));
            SDL_MixAudioFormat(reinterpret_cast<Uint8 *>(heard.data()),
                               reinterpret_cast<const Uint8 *>(one.data()), AUDIO_S16SYS, bytes,
                               SDL_MIX_MAXVOLUME);
        }
    }
    for (SDL_AudioStream *stream : streams) SDL_FreeAudioStream(stream);
    state.counters["dB"] = signal_to_noise(heard);
}
BENCHMARK(mix_sdl)
    ->Name("Sound/a second of four sounds of that rate mixed/SDL2")
    ->Arg(22050)
    ->Arg(44100)
    ->Arg(48000);
#endif

}  // namespace
