// Trickhaven: two-handed pinochle against the robot.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>

#include "app/command_line.h"
#include "app/quiet_toolkit.h"
#include "data/data_folder.h"
#include "forms/about_box.h"
#include "forms/help_pages.h"
#include "forms/pinochle_table.h"
#include "forms/qt_platform.h"
#include "game/game_state.h"
#include "game/session.h"
#include "game/table_review.h"
#include "game/table_talk.h"

namespace {

std::filesystem::path ToPath(const QString& folder) {
    return std::filesystem::path(QDir::toNativeSeparators(folder).toStdString());
}

}  // namespace

int main(int argc, char* argv[]) {
    if (const auto answered = trickhaven::AnswerCommandLine(argc, argv)) {
        return *answered;
    }
    trickhaven::QuietenToolkit();
    QApplication app(argc, argv);
    QApplication::setApplicationName("Trickhaven");
    // Lets the desktop match the window to the installed menu entry and icon.
    QGuiApplication::setDesktopFileName("org.trickhaven.Trickhaven");

    const QString programFolder = QCoreApplication::applicationDirPath();
    trickhaven::PinochleTable table;
    trickhaven::QtPlatform platform(ToPath(programFolder));
    trickhaven::Game g(table, platform);
    g.DataFolder = trickhaven::ChooseDataFolder(
        ToPath(programFolder), QFileInfo(programFolder).isWritable(),
        ToPath(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));

    table.SetEventHandler(
        [&g](const trickhaven::TableEvent& event) { trickhaven::HandleEvent(g, event); });
    table.SetGame(g);
    table.SetMessageRing([&platform] { platform.PlaySound("ringout.wav"); });
    // What a screen reader is told.
    trickhaven::TableTalk talk;
    trickhaven::TableReview review;
    g.onPlay = [&talk, &review](const trickhaven::Game& game,
                                const trickhaven::PlayLogEvent& event) {
        talk.Hear(game, event);
        review.Hear(game, event);
    };
    table.SetTalk(talk);
    table.SetReview(review);
    trickhaven::HelpPages help;
    QObject::connect(&table, &trickhaven::PinochleTable::helpRequested, &table,
                     [&help] { help.ShowFirstPage(); });
    QPointer<trickhaven::FrmAbout> about;
    QObject::connect(&table, &trickhaven::PinochleTable::aboutRequested, &table,
                     [&about, &table] { trickhaven::ShowAboutBox(about, &table); });
    table.ShowCentred();
    trickhaven::RunSession(g);
    return 0;
}
