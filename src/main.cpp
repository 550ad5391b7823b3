#include "common/event/session.h"
#include "common/files/openprograms.h"
#include "screens.h"
#include "ui/look.h"
#include "ui/navigator.h"
#include "ui/slipprinter.h"

#include <QApplication>
#include <QIcon>

#include <cstdio>
#include <optional>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

int refuse(std::string_view argument)
{
    std::fprintf(stderr, "trelawn: unknown option: %.*s\nTry: trelawn --help\n",
                 int(argument.size()), argument.data());
    return 1;
}

// What is answered before a display is needed, and the exit code. The toolkit's own options begin
// with one dash and are left to it.
std::optional<int> answerAlone(int argc, char *argv[])
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--help" || argument == "-h") {
            std::puts("Usage: trelawn\n"
                      "Runs the betting at a race night. Everything is set on its screens.\n\n"
                      "  -h, --help     Show this text\n"
                      "  -v, --version  Show the version");
            return 0;
        }
        if (argument == "--version" || argument == "-v") {
            std::puts("trelawn " TRELAWN_VERSION);
            return 0;
        }
        if (argument.starts_with("--"))
            return refuse(argument);
    }
    return {};
}

// What the desktop knows the program by.
void introduce()
{
    QApplication::setApplicationName(u"trelawn"_s);
    QApplication::setApplicationVersion(QStringLiteral(TRELAWN_VERSION));
    QApplication::setDesktopFileName(QStringLiteral(TRELAWN_ID));
    QIcon icon;
    for (const auto *file :
         {":/icons/trelawn-48.png", ":/icons/trelawn-128.png", ":/icons/trelawn-256.png"})
        icon.addFile(QString::fromLatin1(file));
    QApplication::setWindowIcon(icon);
}

} // namespace

int main(int argc, char *argv[])
{
    if (const auto answered = answerAlone(argc, argv))
        return *answered;
    QApplication application(argc, argv);
    if (argc > 1) // what the toolkit has not taken
        return refuse(argv[1]);
    introduce();
    applyLook(application);

    Session session;
    const OpenProgram open(session.paths.dataFolder());
    session.files.othersAreOpen = open.othersAreOpen();
    SlipPrinter printer;
    Navigator navigator(session, printer, allScreens());
    navigator.open(u"frminitb"_s);
    return QApplication::exec();
}
