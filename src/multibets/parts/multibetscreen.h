#pragma once

#include "common/print/slip.h"
#include "multibets/parts/postgrid.h"
#include "ui/navigator.h"
#include "ui/printing.h"

#include <QWidget>

#include <array>
#include <optional>

class NoteLine;
class QButtonGroup;
class QLineEdit;
class QListWidget;
class QVBoxLayout;
class TypeButtons;
struct MultibetLegs;
struct MultibetType;

// What the screens that take and that settle multibets share: the race, the bet type and a line of
// posts for each of its horses.
class MultibetScreen : public QWidget
{
    Q_OBJECT

protected:
    explicit MultibetScreen(const ScreenContext &context);

    // The layout of the screen, begun with the banner and the races.
    QVBoxLayout *buildHead();
    void makeTypes(QWidget *parent);
    void makeGrid(PostGrid::Selection selection, QWidget *parent,
                  const std::array<QString, 3> &lineTips);

    void showRace(int race);

    // Makes the type of this code the current one and returns it; null when it is refused because
    // its three lines need a race first.
    const MultibetType *takeType(const QString &code);

    // Shows the posts of the current race and type, and returns them.
    MultibetLegs showLegs();

    ScreenContext m_context;
    QLineEdit *txtbanner;
    QButtonGroup *m_races;
    TypeButtons *m_types;
    PostGrid *m_grid;
    NoteLine *lblnote;
};

// The lines of a list, from the first on.
QStringList listLines(const QListWidget *list);

// What the operator is asked before copies are printed.
struct CopiesQuestion
{
    QString text;
    QString title;     // empty for the program's name
    QString operation; // the label of an error
    QString printed;   // what the note says before the number of copies
};

// Asks for the number of copies and prints them; nothing when none are wanted.
std::optional<Printed> printAskedCopies(QWidget *screen, const ScreenContext &context,
                                        const CopiesQuestion &question, const Slip &slip);

// The question before a list of multibets is printed.
CopiesQuestion listCopiesQuestion();
