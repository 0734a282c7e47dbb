// Measures the game in its real window: how soon the table first shows and
// with how much memory, the processor used while the game waits for the
// player's card, how long a wait of 100 ms lasts, and how soon a click is
// served in the middle of a wait. With --spin the waits serve events without
// blocking, to set the two side by side. Run it under xvfb-run, or with
// QT_QPA_PLATFORM=offscreen.
#include <QApplication>
#include <QGraphicsProxyWidget>
#include <QGraphicsView>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTimer>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <memory>
#include <random>
#include <string_view>
#include <thread>
#include <vector>

#include "forms/pinochle_table.h"
#include "forms/qt_platform.h"
#include "game/card_table.h"
#include "game/game_state.h"
#include "game/pacing.h"
#include "game/session.h"
#include "tools/bench/process_meter.h"
#include "tools/bench/sample_stats.h"
#include "tools/bench/spinning_platform.h"

namespace trickhaven::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr double IdleSeconds = 10;
constexpr int Waits = 50;
constexpr int Clicks = 50;
// Long enough for a deal at any speed, short enough to notice a hang.
constexpr int GiveUpMs = 120000;

double MsBetween(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double, std::milli>(to - from).count();
}

// Notes the first paint of the table.
class FirstPaint : public QObject {
public:
    FirstPaint(QWidget& surface, Clock::time_point mainStart) : mainStart_(mainStart) {
        surface.installEventFilter(this);
    }

    bool seen = false;
    double msAfterMain = 0;
    double secondsAfterExec = 0;
    long residentKiB = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (!seen && event->type() == QEvent::Paint) {
            seen = true;
            msAfterMain = MsBetween(mainStart_, Clock::now());
            secondsAfterExec = SecondsSinceExec();
            residentKiB = ResidentKiB();
        }
        return false;
    }

private:
    Clock::time_point mainStart_;
};

// A click posted from another thread arrives as this event; the main thread
// then hands a press and a release to the view, as the screen would.
const auto ClickRequest = static_cast<QEvent::Type>(QEvent::User + 1);

class ClickDoor : public QObject {
public:
    ClickDoor(QWidget& viewport, QPoint spot) : viewport_(viewport), spot_(spot) {}

protected:
    bool event(QEvent* event) override {
        if (event->type() != ClickRequest) {
            return QObject::event(event);
        }
        const QPointF global = viewport_.mapToGlobal(QPointF(spot_));
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(spot_), global, Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(spot_), global, Qt::LeftButton,
                            Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&viewport_, &press);
        QCoreApplication::sendEvent(&viewport_, &release);
        return true;
    }

private:
    QWidget& viewport_;
    QPoint spot_;
};

class Bench {
public:
    Bench(Game& g, PinochleTable& table) : g_(g), table_(table) {}

    // Everything the table sends; card clicks are counted while the clicks
    // are measured and go to the game otherwise.
    void Handle(const TableEvent& event) {
        if (measuringClicks_ && event.kind == TableEventKind::CardClick) {
            receivedAt_.at(static_cast<std::size_t>(received_.load())) = Clock::now();
            ++received_;
            return;
        }
        HandleEvent(g_, event);
    }

    // Deals once the session runs, then measures when the player is asked
    // for a card.
    void Start() {
        QTimer::singleShot(0, [this] { HandleEvent(g_, {TableEventKind::MenuNewGame}); });
        poll_.setInterval(20);
        QObject::connect(&poll_, &QTimer::timeout, [this] {
            if (g_.PlayerMayPlay) {
                poll_.stop();
                MeasureIdle();
            }
        });
        poll_.start();
    }

    bool Done() const { return done_; }

    void Print(const FirstPaint& first, bool spin) const {
        std::printf("Trickhaven table bench: %s waits, platform %s\n",
                    spin ? "spinning" : "blocking", qPrintable(QApplication::platformName()));
        std::printf(
            "first paint of the table: %.0f ms after main, %.2f s after exec; "
            "resident %.1f MiB then, peak %.1f MiB\n",
            first.msAfterMain, first.secondsAfterExec, first.residentKiB / 1024.0,
            PeakResidentKiB() / 1024.0);
        std::printf("processor while waiting for a card: %.2f%% of one core over %.1f s\n",
                    idlePercent_, IdleSeconds);
        const SampleStats waits = Summarise(waitMs_);
        std::printf("WaitDelay with DelayMs 100, %zu waits: median %.2f ms, min %.2f, max %.2f\n",
                    waitMs_.size(), waits.median, waits.least, waits.greatest);
        const SampleStats clicks = Summarise(clickMs_);
        std::printf("click served during a wait, %zu clicks: median %.3f ms, min %.3f, max %.3f\n",
                    clickMs_.size(), clicks.median, clicks.least, clicks.greatest);
    }

private:
    void MeasureIdle() {
        const double processorBefore = ProcessorSeconds();
        const Clock::time_point before = Clock::now();
        QTimer::singleShot(static_cast<int>(IdleSeconds * 1000), [this, processorBefore, before] {
            const double wall = MsBetween(before, Clock::now()) / 1000;
            idlePercent_ = 100 * (ProcessorSeconds() - processorBefore) / wall;
            // The rest runs nested in the game's own pump, as handlers do.
            MeasureWaits();
            MeasureClicks();
            done_ = true;
            g_.Request = SessionRequest::Quit;
        });
    }

    void MeasureWaits() {
        const std::int16_t pace = g_.DelayMs;
        g_.DelayMs = 100;
        for (int wait = 0; wait < Waits; ++wait) {
            const Clock::time_point start = Clock::now();
            WaitDelay(g_);
            waitMs_.push_back(MsBetween(start, Clock::now()));
        }
        g_.DelayMs = pace;
    }

    // The middle of the player's card that lies rightmost, on top of the
    // others, in the view's coordinates.
    QPoint PlayerCardSpot(QGraphicsView& view) const {
        int chosen = 0;
        for (int card = 1; card <= CardCount; ++card) {
            if (Card(g_, card).Place == PlacePlayerHand &&
                (chosen == 0 || table_.CardLeft(card) > table_.CardLeft(chosen))) {
                chosen = card;
            }
        }
        auto* picture = table_.Surface()->findChild<QWidget*>(QString("PicCard%1").arg(chosen));
        const QPoint onSurface = picture->geometry().center();
        const QPointF inScene =
            table_.Surface()->graphicsProxyWidget()->mapToScene(QPointF(onSurface));
        return view.mapFromScene(inScene);
    }

    void MeasureClicks() {
        auto* view = table_.findChild<QGraphicsView*>();
        ClickDoor door(*view->viewport(), PlayerCardSpot(*view));
        measuringClicks_ = true;
        std::thread poster([this, &door] {
            std::mt19937 draw(7);
            std::uniform_int_distribution<int> pause(5, 95);
            for (int click = 0; click < Clicks; ++click) {
                std::this_thread::sleep_for(std::chrono::milliseconds(pause(draw)));
                postedAt_.at(static_cast<std::size_t>(click)) = Clock::now();
                QCoreApplication::postEvent(&door, new QEvent(ClickRequest));
                const Clock::time_point posted = Clock::now();
                while (received_.load() <= click && MsBetween(posted, Clock::now()) < 2000) {
                    std::this_thread::sleep_for(std::chrono::milliseconds(1));
                }
            }
        });
        const std::int16_t pace = g_.DelayMs;
        g_.DelayMs = 100;
        const Clock::time_point start = Clock::now();
        while (received_.load() < Clicks && MsBetween(start, Clock::now()) < 60000) {
            WaitDelay(g_);
        }
        poster.join();
        g_.DelayMs = pace;
        measuringClicks_ = false;
        for (int click = 0; click < received_.load(); ++click) {
            const auto at = static_cast<std::size_t>(click);
            clickMs_.push_back(MsBetween(postedAt_.at(at), receivedAt_.at(at)));
        }
    }

    Game& g_;
    PinochleTable& table_;
    QTimer poll_;
    bool done_ = false;
    double idlePercent_ = 0;
    std::vector<double> waitMs_;
    std::vector<double> clickMs_;
    bool measuringClicks_ = false;
    std::atomic<int> received_{0};
    std::array<Clock::time_point, Clicks> postedAt_{};
    std::array<Clock::time_point, Clicks> receivedAt_{};
};

}  // namespace

int Run(int argc, char* argv[]) {
    const Clock::time_point mainStart = Clock::now();
    const bool spin = argc > 1 && std::string_view(argv[1]) == "--spin";
    QApplication app(argc, argv);
    QTemporaryDir dataFolder;

    PinochleTable table;
    FirstPaint first(*table.Surface(), mainStart);
    const std::filesystem::path programFolder =
        QCoreApplication::applicationDirPath().toStdString();
    std::unique_ptr<QtPlatform> platform = spin ? std::make_unique<SpinningPlatform>(programFolder)
                                                : std::make_unique<QtPlatform>(programFolder);
    Game g(table, *platform);
    g.DataFolder = dataFolder.path().toStdString();

    Bench bench(g, table);
    table.SetEventHandler([&bench](const TableEvent& event) { bench.Handle(event); });
    QTimer::singleShot(GiveUpMs, [] {
        std::fprintf(stderr, "table_bench: the game never asked for a card\n");
        std::_Exit(1);
    });
    table.ShowCentred();
    bench.Start();
    RunSession(g);
    if (!bench.Done()) {
        return 1;
    }
    bench.Print(first, spin);
    return 0;
}

}  // namespace trickhaven::bench

int main(int argc, char* argv[]) {
    return trickhaven::bench::Run(argc, argv);
}
