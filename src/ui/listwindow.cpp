#include "ui/listwindow.h"

#include "common/files/fileerror.h"
#include "ui/slipprinter.h"

#include <QListWidget>

using namespace Qt::StringLiterals;

void showListing(const ScreenContext &context, const QStringList &lines)
{
    QWidget *window = context.navigator.openBeside(u"frmlistb"_s);
    window->findChild<QListWidget *>(u"List1"_s)->addItems(lines);
}

bool printOrList(const ScreenContext &context, const Slip &slip, bool mayPrint)
{
    if (mayPrint) {
        try {
            context.printer.print(slip);
            return true;
        } catch (const FileError &) {
            // The list window below takes the printer's place.
        }
    }
    showListing(context, slipText(slip));
    return false;
}
