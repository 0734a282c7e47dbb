// Writes the game's four sounds, synthesised here, into the folder given on
// the command line: riffle.wav, carddeal1.wav, knock.wav and ringout.wav.
// 16-bit PCM, mono.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int kRate = 22050;

using Sound = std::vector<double>;  // samples in -1..1

std::size_t SampleAt(double seconds) {
    return static_cast<std::size_t>(seconds * kRate);
}

Sound Silence(double seconds) {
    Sound silence(SampleAt(seconds));
    return silence;
}

// A burst of noise that dies away: the snap of one card on another. A
// one-pole low-pass takes the hiss off; more smoothing gives a softer snap.
void AddSnap(Sound& sound, double at, double decaySeconds, double loudness, double smoothing,
             std::minstd_rand& random) {
    std::uniform_real_distribution<double> noise(-1.0, 1.0);
    double filtered = 0.0;
    const std::size_t start = SampleAt(at);
    const std::size_t length = SampleAt(decaySeconds * 6);
    for (std::size_t i = 0; i < length && start + i < sound.size(); ++i) {
        const double t = static_cast<double>(i) / kRate;
        filtered += (1.0 - smoothing) * (noise(random) - filtered);
        sound[start + i] += loudness * std::exp(-t / decaySeconds) * filtered;
    }
}

// A decaying tone; several of them make a knock or a bell.
void AddTone(Sound& sound, double at, double frequency, double decaySeconds, double loudness) {
    const std::size_t start = SampleAt(at);
    for (std::size_t i = start; i < sound.size(); ++i) {
        const double t = static_cast<double>(i - start) / kRate;
        const double attack = std::min(1.0, t / 0.002);
        sound[i] += loudness * attack * std::exp(-t / decaySeconds) *
                    std::sin(2 * std::numbers::pi * frequency * t);
    }
}

Sound Riffle() {
    Sound sound = Silence(0.6);
    std::minstd_rand random(7);
    std::uniform_real_distribution<double> jitter(0.8, 1.2);
    // The cards fall faster and louder in the middle of the riffle.
    double at = 0.01;
    while (at < 0.56) {
        const double middle = 1.0 - std::abs(at - 0.28) / 0.3;
        AddSnap(sound, at, 0.0025, 0.4 + 0.6 * middle, 0.55, random);
        at += (0.017 - 0.007 * middle) * jitter(random);
    }
    return sound;
}

Sound CardDeal() {
    Sound sound = Silence(0.08);
    std::minstd_rand random(11);
    AddSnap(sound, 0.0, 0.008, 1.0, 0.8, random);
    return sound;
}

Sound Knock() {
    Sound sound = Silence(0.4);
    std::minstd_rand random(13);
    for (double at : {0.0, 0.17}) {
        AddTone(sound, at, 105, 0.045, 1.0);
        AddTone(sound, at, 187, 0.03, 0.6);
        AddSnap(sound, at, 0.004, 0.5, 0.9, random);
    }
    return sound;
}

Sound Ring() {
    Sound sound = Silence(0.5);
    // The partials of a small bell are not harmonic.
    const double base = 1320;
    AddTone(sound, 0.0, base, 0.22, 1.0);
    AddTone(sound, 0.0, base * 2.76, 0.11, 0.5);
    AddTone(sound, 0.0, base * 5.40, 0.06, 0.25);
    AddTone(sound, 0.0, base * 8.93, 0.035, 0.12);
    return sound;
}

// Scales to a common loudness and fades the last 20 ms, so that no sound
// ends in a click.
std::vector<std::int16_t> ToPcm(Sound sound) {
    const std::size_t fade = std::min(sound.size(), SampleAt(0.02));
    for (std::size_t i = 0; i < fade; ++i) {
        sound[sound.size() - 1 - i] *= static_cast<double>(i) / static_cast<double>(fade);
    }
    double peak = 1e-9;
    for (double s : sound) {
        peak = std::max(peak, std::abs(s));
    }
    std::vector<std::int16_t> pcm;
    pcm.reserve(sound.size());
    for (double s : sound) {
        pcm.push_back(static_cast<std::int16_t>(std::lround(s / peak * 0.8 * 32767)));
    }
    return pcm;
}

void PutLittleEndian(std::ofstream& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) {
        out.put(static_cast<char>((value >> (8 * i)) & 0xFF));
    }
}

bool WriteWave(const std::filesystem::path& file, const Sound& sound) {
    const std::vector<std::int16_t> pcm = ToPcm(sound);
    const auto dataBytes = static_cast<std::uint32_t>(pcm.size() * 2);
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write("RIFF", 4);
    PutLittleEndian(out, 36 + dataBytes, 4);
    out.write("WAVEfmt ", 8);
    PutLittleEndian(out, 16, 4);         // size of the format chunk
    PutLittleEndian(out, 1, 2);          // PCM
    PutLittleEndian(out, 1, 2);          // mono
    PutLittleEndian(out, kRate, 4);      // samples a second
    PutLittleEndian(out, kRate * 2, 4);  // bytes a second
    PutLittleEndian(out, 2, 2);          // bytes a sample
    PutLittleEndian(out, 16, 2);         // bits a sample
    out.write("data", 4);
    PutLittleEndian(out, dataBytes, 4);
    for (std::int16_t sample : pcm) {
        PutLittleEndian(out, static_cast<std::uint16_t>(sample), 2);
    }
    return static_cast<bool>(out);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: make_sounds FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder(argv[1]);
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    const std::array<std::pair<const char*, Sound>, 4> sounds{{{"riffle.wav", Riffle()},
                                                               {"carddeal1.wav", CardDeal()},
                                                               {"knock.wav", Knock()},
                                                               {"ringout.wav", Ring()}}};
    for (const auto& [name, sound] : sounds) {
        if (!WriteWave(folder / name, sound)) {
            std::cerr << "make_sounds: cannot write " << (folder / name).string() << '\n';
            return 1;
        }
    }
    return 0;
}
