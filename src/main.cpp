#include "common/event/session.h"
#include "common/files/openprograms.h"
#include "screens.h"
#include "ui/look.h"
#include "ui/navigator.h"
#include "ui/slipprinter.h"

#include <QApplication>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"trelawn"_s);
    applyLook(application);

    Session session;
    const OpenProgram open(session.paths.dataFolder());
    session.files.othersAreOpen = open.othersAreOpen();
    SlipPrinter printer;
    Navigator navigator(session, printer, allScreens());
    navigator.open(u"frminitb"_s);
    return QApplication::exec();
}
