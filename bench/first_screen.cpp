// Shows one window, waits until it is painted, and ends: what the program's start costs beside a
// bare window of the same toolkit. Usage: first_screen setup|grid, the setup screen or a plain grid
// of 200 fields.

#include "common/event/session.h"
#include "screens.h"
#include "ui/look.h"
#include "ui/navigator.h"
#include "ui/slipprinter.h"

#include <QApplication>
#include <QGridLayout>
#include <QLineEdit>
#include <QTemporaryDir>

#include <cstring>

using namespace Qt::StringLiterals;

namespace {

void showGrid()
{
    QWidget window;
    auto *grid = new QGridLayout(&window);
    for (int field = 0; field < 200; ++field)
        grid->addWidget(new QLineEdit(&window), field / 10, field % 10);
    window.resize(1016, 690);
    window.show();
    QCoreApplication::processEvents();
}

void showSetup(QApplication &application)
{
    applyLook(application);
    const QTemporaryDir folder;
    Session session;
    session.paths = HostPaths(folder.path());
    session.settings.started = true; // the questions of the start wait for the operator
    SlipPrinter printer;
    Navigator navigator(session, printer, allScreens());
    navigator.open(u"frminitb"_s);
    QCoreApplication::processEvents();
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "grid") == 0)
        showGrid();
    else
        showSetup(application);
    return 0;
}
