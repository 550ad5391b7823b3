#pragma once

#include "kit/screentest.h"

// What the tests of the multibet screens share: an event in which race k from 3 on has posts 1 to
// k + 5 and ANN is bettor 2, BOB 3, and the clicks of an operator who takes multibets.
class MultibetTest : public ScreenTest
{
protected:
    void beginMultibets()
    {
        begin(false);
        event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ANN\"\r\n3,\"BOB\"\r\n");
        for (int race = 3; race <= raceCount; ++race) {
            setHorses(race, race + 5);
            event->writeTwins(u"Multibets"_s + raceName(race), {});
        }
    }

    // Posts 1 to \a posts of the race have horses.
    void setHorses(int race, int posts)
    {
        HorseTable horses;
        for (int post = 1; post <= posts; ++post) {
            const QString number = QString::number(post);
            horses.post(post) = {post, 0, number, u"HORSE "_s + number};
        }
        event->write(u"Horses"_s + raceName(race), horseRecords(horses));
    }

    void chooseRace(int race) { press(u"optrace_%1"_s.arg(race)); }

    static QString cellName(int line, int post)
    {
        return u"txtnum_%1"_s.arg((line - 1) * 21 + post - 1);
    }

    // Clicks the posts of lines 1 to 3: {{4}, {7, 8}}.
    void markPosts(const QList<QList<int>> &lines)
    {
        for (qsizetype line = 0; line < lines.size(); ++line) {
            for (const int post : lines[line])
                clickCell(screen(), cellName(int(line) + 1, post));
        }
    }

    bool isSelected(int line, int post)
    {
        const auto *cell = child<QWidget>(screen(), cellName(line, post));
        return cell->palette().color(QPalette::Base) == QColor(0xff, 0x00, 0xff);
    }
};
