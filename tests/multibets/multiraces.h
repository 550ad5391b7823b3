#pragma once

#include "common/event/horses.h"
#include "kit/testkit.h"

// What the tests of the multibet screens share: an event with horses and bettors, and the clicks of
// an operator who takes multibets.

// An event in which race k from 3 on has posts 1 to k + 5; ANN is bettor 2, BOB 3.
struct MultibetEvent : TestEvent
{
    MultibetEvent()
        : TestEvent(false)
    {
        write(QStringLiteral("Bettors"), "1,\"AnyBettor\"\r\n2,\"ANN\"\r\n3,\"BOB\"\r\n");
        for (int race = 3; race <= raceCount; ++race) {
            setHorses(race, race + 5);
            writeTwins(QStringLiteral("Multibets") + raceName(race), {});
        }
    }

    // Posts 1 to \a posts of the race have horses.
    void setHorses(int race, int posts)
    {
        HorseTable horses;
        for (int post = 1; post <= posts; ++post) {
            const QString number = QString::number(post);
            horses.post(post) = {post, 0, number, QStringLiteral("HORSE ") + number};
        }
        write(QStringLiteral("Horses") + raceName(race), horseRecords(horses));
    }
};

inline void chooseRace(QWidget *screen, int race)
{
    child<QAbstractButton>(screen, QStringLiteral("optrace_%1").arg(race))->click();
}

inline QString cellName(int line, int post)
{
    return QStringLiteral("txtnum_%1").arg((line - 1) * 21 + post - 1);
}

// Clicks the posts of lines 1 to 3: {{4}, {7, 8}}.
inline void markPosts(QWidget *screen, const QList<QList<int>> &lines)
{
    for (qsizetype line = 0; line < lines.size(); ++line) {
        for (const int post : lines[line])
            clickCell(screen, cellName(int(line) + 1, post));
    }
}

// A fast double click: press, release, and the press that the system calls a double click.
inline void doubleClick(QWidget *screen, const QString &name)
{
    QTest::mouseClick(child<QWidget>(screen, name), Qt::LeftButton);
    QTest::mouseDClick(child<QWidget>(screen, name), Qt::LeftButton);
}

inline bool isSelected(QWidget *screen, int line, int post)
{
    return child<QWidget>(screen, cellName(line, post))->property("chosen").toBool();
}
