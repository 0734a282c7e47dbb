// The gallery: every screen of the game as a picture, drawn by the real forms
// in the real fonts on Qt's offscreen screen, at device pixel ratio 1 and 2.
// Run it with the folder for the pictures; it runs itself once per ratio.
#include <QApplication>
#include <QDir>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <cstdio>

#include "forms/about_box.h"
#include "forms/help_pages.h"
#include "forms/mform_deluxe.h"
#include "forms/pinochle_table.h"
#include "game/session.h"
#include "headless/headless_platform.h"
#include "headless/player_policy.h"
#include "tools/gallery/game_messages.h"

namespace trickhaven {

namespace {

// The meld rows to show of each side, from the first hands of one game.
constexpr int MeldRowsPerSide = 4;

class Gallery {
public:
    Gallery(QString folder, int ratio) : folder_(std::move(folder)), ratio_(ratio) {}

    void Shoot(QWidget& screen, const QString& name) {
        QCoreApplication::processEvents();
        const QString file = QStringLiteral("%1/%2@%3x.png").arg(folder_, name).arg(ratio_);
        if (!screen.grab().save(file)) {
            std::fprintf(stderr, "gallery: cannot write %s\n", qPrintable(file));
        }
    }

private:
    QString folder_;
    int ratio_;
};

// The table of the gallery answers every message at once, as a player who
// reads it and goes on.
class GalleryTable : public PinochleTable {
public:
    int ShowDeluxeMessage(const std::string&, const std::string&, const std::string& button1,
                          const std::string&, int, const std::string& title) override {
        // Go on playing: take the up card, and leave at the end of the game.
        return title == "Make choice" || title == "Play again?" ? !button1.empty() : 0;
    }
    void ShowPlainMessage(const std::string&, const std::string&) override {}
    bool AskQuestion(const std::string&, const std::string&) override { return false; }
    std::string AskInput(const std::string&, const std::string&) override { return {}; }
};

void ShootPanels(Gallery& gallery, GalleryTable& table) {
    const std::pair<TableControl, const char*> panels[] = {
        {TableControl::FramDeclare, "meld-panel"},
        {TableControl::FramMarriage, "marriage-panel"},
        {TableControl::FramMeldHelp, "meld-reminder"}};
    for (const auto& [panel, name] : panels) {
        table.SetControlVisible(panel, true);
        table.BringControlToFront(panel);
        gallery.Shoot(table, name);
        table.SetControlVisible(panel, false);
    }
}

// Plays one game on the window with a greedy player and shoots the idle
// table, the robot's menu, the table after the deal, the panels before that hand, and the
// table each time a side lays a meld.
void ShootTable(Gallery& gallery) {
    GalleryTable table;
    table.show();
    HeadlessPlatform platform(7);
    Game g(table, platform);
    QTemporaryDir data;
    g.DataFolder = data.path().toStdString();
    platform.game = &g;
    PlayerPolicy player(PolicyKind::Greedy, 7);
    bool dealt = false;
    int melds[2] = {0, 0};
    int shots[2] = {0, 0};
    platform.script.push_back({TableEventKind::MenuNewGame});
    gallery.Shoot(table, "table-idle");
    QMenu* robots = table.findChild<QMenu*>("MnuRobot");
    robots->popup(table.mapToGlobal(QPoint(0, 0)));
    gallery.Shoot(*robots, "menu-robot");
    robots->hide();
    platform.stopWhen = [&](const Game& game) {
        if (!dealt && CardAwaited(game)) {
            dealt = true;
            gallery.Shoot(table, "table-dealt");
            ShootPanels(gallery, table);
        }
        const int totals[2] = {game.PlayerTotalMelds, game.OpponentTotalMelds};
        for (int side = 0; side < 2; ++side) {
            if (totals[side] > melds[side] && shots[side] < MeldRowsPerSide) {
                gallery.Shoot(table, QStringLiteral("meld-row-%1-%2")
                                         .arg(side == 0 ? "player" : "robot")
                                         .arg(++shots[side]));
            }
            melds[side] = totals[side];
        }
        return shots[0] == MeldRowsPerSide && shots[1] == MeldRowsPerSide;
    };
    platform.policy = [&](Game& game) { return player.Next(game); };
    try {
        RunSession(g);
    } catch (const ScenarioOver&) {
    } catch (const TableStuck&) {
    }
}

QString FileName(int number, const std::string& title) {
    QString name = QString::fromStdString(title).trimmed().toLower();
    name.replace(QRegularExpression(QStringLiteral("[^a-z0-9]+")), QStringLiteral("-"));
    name.remove(QRegularExpression(QStringLiteral("^-|-$")));
    return QStringLiteral("message-%1-%2").arg(number, 2, 10, QLatin1Char('0')).arg(name);
}

void ShootMessages(Gallery& gallery) {
    MFormDeluxe form;
    int number = 0;
    for (const GameMessage& message : GameMessages()) {
        const QString name = FileName(++number, message.title);
        const auto text = QString::fromStdString(message.text);
        const auto title = QString::fromStdString(message.title);
        if (message.kind == MessageKind::Deluxe) {
            form.Prepare(text, QString::fromStdString(message.button0),
                         QString::fromStdString(message.button1),
                         QString::fromStdString(message.button2), message.icon, title);
            form.show();
            gallery.Shoot(form, name);
            form.hide();
            continue;
        }
        if (message.kind == MessageKind::Input) {
            QInputDialog input;
            input.setWindowTitle(title);
            input.setLabelText(text);
            input.show();
            gallery.Shoot(input, name);
            continue;
        }
        const bool question = message.kind == MessageKind::Question;
        QMessageBox box(question ? QMessageBox::Question : QMessageBox::Information, title, text,
                        question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
        box.show();
        gallery.Shoot(box, name);
    }
}

void ShootHelpAndAbout(Gallery& gallery) {
    HelpPages help;
    for (int page = 1; page <= 3; ++page) {
        help.Show(page);
        gallery.Shoot(*help.Page(page), QStringLiteral("help-page-%1").arg(page));
    }
    FrmAbout about;
    about.show();
    gallery.Shoot(about, QStringLiteral("about"));
}

}  // namespace

}  // namespace trickhaven

int main(int argc, char* argv[]) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: gallery FOLDER\n");
        return 2;
    }
    if (argc == 2) {
        QCoreApplication launcher(argc, argv);
        QDir().mkpath(QString::fromLocal8Bit(argv[1]));
        for (const char* ratio : {"1", "2"}) {
            QProcess run;
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
            environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::fromLatin1(ratio));
            run.setProcessEnvironment(environment);
            run.setProcessChannelMode(QProcess::ForwardedChannels);
            run.start(QCoreApplication::applicationFilePath(),
                      {QString::fromLocal8Bit(argv[1]), QString::fromLatin1(ratio)});
            if (!run.waitForFinished(-1) || run.exitCode() != 0) {
                return 1;
            }
        }
        return 0;
    }
    QApplication app(argc, argv);
    trickhaven::Gallery gallery(QString::fromLocal8Bit(argv[1]), QString(argv[2]).toInt());
    trickhaven::ShootTable(gallery);
    trickhaven::ShootMessages(gallery);
    trickhaven::ShootHelpAndAbout(gallery);
    return 0;
}
