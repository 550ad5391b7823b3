#include "common/event/session.h"
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
    SlipPrinter printer;
    Navigator navigator(session, printer, allScreens());
    navigator.open(u"frminitb"_s);
    return QApplication::exec();
}
