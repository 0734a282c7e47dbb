#include "forms/qt_platform.h"

#include <QCoreApplication>
#include <QSoundEffect>
#include <QUrl>
#include <random>

namespace trickhaven {

QtPlatform::QtPlatform(std::filesystem::path soundFolder) : soundFolder_(std::move(soundFolder)) {
    clock_.start();
    alarm_.setSingleShot(true);
    alarm_.setTimerType(Qt::PreciseTimer);
    std::random_device entropy;
    random_.state = (static_cast<std::uint64_t>(entropy()) << 32U) | entropy();
}

QtPlatform::~QtPlatform() = default;

std::int32_t QtPlatform::TickCount() {
    return static_cast<std::int32_t>(clock_.elapsed());
}

void QtPlatform::ServeEvents(std::optional<std::int32_t> deadline) {
    if (deadline) {
        // Unsigned, so that a deadline across the wrap of the tick count
        // still lies ahead.
        const auto left = static_cast<std::int32_t>(static_cast<std::uint32_t>(*deadline) -
                                                    static_cast<std::uint32_t>(TickCount()));
        if (left <= 0) {
            QCoreApplication::processEvents();
            return;
        }
        alarm_.start(left);
    }
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    alarm_.stop();
}

void QtPlatform::PlaySound(const std::string& file) {
    auto found = sounds_.find(file);
    if (found == sounds_.end()) {
        const std::filesystem::path path = soundFolder_ / file;
        std::error_code unreadable;
        if (!std::filesystem::is_regular_file(path, unreadable)) {
            return;
        }
        auto sound = std::make_unique<QSoundEffect>();
        sound->setSource(QUrl::fromLocalFile(QString::fromStdString(path.string())));
        found = sounds_.emplace(file, std::move(sound)).first;
    }
    found->second->play();
}

double QtPlatform::Random() {
    return random_.Draw();
}

void QtPlatform::Reseed() {
    random_.Reseed(TickCount());
}

}  // namespace trickhaven
