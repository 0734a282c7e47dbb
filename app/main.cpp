// Trickhaven: two-handed pinochle against the robot.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>

#include "forms/about_box.h"
#include "forms/help_pages.h"
#include "forms/pinochle_table.h"
#include "forms/qt_platform.h"
#include "game/game_state.h"
#include "game/session.h"

namespace {

std::filesystem::path ToPath(const QString& folder) {
    return std::filesystem::path(QDir::toNativeSeparators(folder).toStdString());
}

// Data.dat belongs in the program's folder. Where that folder may not be
// written, the user's data folder takes its place, starting from a copy of
// the installed file.
QString ChooseDataFolder() {
    const QString programFolder = QCoreApplication::applicationDirPath();
    if (QFileInfo(programFolder).isWritable()) {
        return programFolder;
    }
    const QString userFolder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(userFolder);
    const QString settings = userFolder + "/Data.dat";
    if (!QFile::exists(settings) && QFile::copy(programFolder + "/Data.dat", settings)) {
        QFile::setPermissions(settings, QFile::ReadOwner | QFile::WriteOwner);
    }
    return userFolder;
}

}  // namespace

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Trickhaven");

    trickhaven::PinochleTable table;
    trickhaven::QtPlatform platform(ToPath(QCoreApplication::applicationDirPath()));
    trickhaven::Game g(table, platform);
    g.DataFolder = ToPath(ChooseDataFolder());

    table.SetEventHandler(
        [&g](const trickhaven::TableEvent& event) { trickhaven::HandleEvent(g, event); });
    table.SetMessageRing([&platform] { platform.PlaySound("ringout.wav"); });
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
