// The machine under the game in the real program: Qt's clock and event loop,
// the sound files beside the program, and the card generator.
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTimer>
#include <filesystem>
#include <map>
#include <memory>

#include "forms/platform.h"
#include "game/card_random.h"

class QSoundEffect;

namespace trickhaven {

class QtPlatform : public Platform {
public:
    // The sounds are read from soundFolder.
    explicit QtPlatform(std::filesystem::path soundFolder);
    ~QtPlatform() override;

    std::int32_t TickCount() override;
    void ServeEvents(std::optional<std::int32_t> deadline) override;
    void PlaySound(const std::string& file) override;
    double Random() override;
    void Reseed() override;

private:
    std::filesystem::path soundFolder_;
    QElapsedTimer clock_;
    // Wakes the event loop at a wait's deadline when nothing else does.
    QTimer alarm_;
    std::map<std::string, std::unique_ptr<QSoundEffect>> sounds_;
    CardRandom random_;
};

}  // namespace trickhaven
