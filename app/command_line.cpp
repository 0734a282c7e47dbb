#include "app/command_line.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QStringList>
#include <cstdio>

namespace trickhaven {

namespace {

constexpr int kUsageMistake = 2;

// The toolkit reads these itself once the window's application starts;
// here they only have to be let through, unlisted in the help.
void LetToolkitOptionsThrough(QCommandLineParser& parser) {
    for (const char* name :
         {"platform", "platformpluginpath", "platformtheme", "plugin", "display", "geometry",
          "qwindowgeometry", "qwindowicon", "qwindowtitle", "session", "style", "stylesheet"}) {
        QCommandLineOption option(QString::fromLatin1(name), QString(), QStringLiteral("value"));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
    for (const char* name : {"reverse", "widgetcount"}) {
        QCommandLineOption option(QString::fromLatin1(name));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
}

void Print(std::FILE* stream, const QString& text) {
    std::fputs(text.toLocal8Bit().constData(), stream);
}

}  // namespace

std::optional<int> AnswerCommandLine(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    const QString program = QFileInfo(arguments.value(0, QStringLiteral("trickhaven"))).fileName();

    QCommandLineParser parser;
    // The toolkit's options are single words after one dash.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setApplicationDescription(
        QStringLiteral("Two-handed pinochle against a robot opponent.\n"
                       "Started without options, it opens the card table; F2 deals."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help and exit."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the version and exit."));
    parser.addOption(help);
    parser.addOption(version);
    LetToolkitOptionsThrough(parser);

    if (!parser.parse(arguments) || !parser.positionalArguments().isEmpty()) {
        const QString mistake = parser.errorText().isEmpty()
                                    ? QStringLiteral("Unexpected argument '%1'.")
                                          .arg(parser.positionalArguments().constFirst())
                                    : parser.errorText();
        Print(stderr,
              QStringLiteral("%1: %2\nTry '%1 --help' for the options.\n").arg(program, mistake));
        return kUsageMistake;
    }
    if (parser.isSet(help)) {
        // Without an application object the parser cannot name the program.
        Print(stdout, parser.helpText().replace(QStringLiteral("<executable_name>"), program));
        return 0;
    }
    if (parser.isSet(version)) {
        Print(stdout, QStringLiteral("Trickhaven %1\n").arg(QStringLiteral(TRICKHAVEN_VERSION)));
        return 0;
    }
    return std::nullopt;
}

}  // namespace trickhaven
