#include "kit/testkit.h"
#include "racecard/postboard.h"

using namespace Qt::StringLiterals;

class tst_postboard : public QObject
{
    Q_OBJECT

private slots:
    void card_data();
    void card();
    void races();
    void storedAsItCame();
};

namespace {

// "1/2:1A Name/0" for every used post of a race: race, post, number, name, pool.
QStringList horsesOf(const PublishedCard &card)
{
    QStringList horses;
    for (std::size_t race = 0; race < card.races.size(); ++race) {
        for (const Horse &horse : card.races[race]) {
            if (!isUnused(horse))
                horses << u"%1/%2:%3 %4/%5"_s.arg(race + 1)
                              .arg(horse.post)
                              .arg(horse.number, horse.name)
                              .arg(horse.pool);
        }
    }
    return horses;
}

const QString tooLow = u"Invalid post position - download error"_s;
const QString tooHigh = u"Invalid post position-download error"_s;

} // namespace

void tst_postboard::card_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("horses");
    QTest::addColumn<QStringList>("refused");
    QTest::addColumn<int>("damaged");
    const auto row = [](const char *name, const char *text, const QStringList &horses,
                        const QStringList &refused = {}, int damaged = 0) {
        QTest::newRow(name) << QByteArray(text) << horses << refused << damaged;
    };
    const QStringList two{u"1/1:1 Alpha/0"_s, u"1/2:2 Beta/0"_s};

    row("END closes the race", "\"1\",\"1\",\"Alpha\"\n\"2\",\"2\",\"Beta\"\n\"END\"\n", two);
    row("a heading before the first entry",
        "\"Derby Day\"\n\"1\",\"1\",\"Alpha\"\n\"2\",\"2\",\"Beta\"\n\"END\"\n", two);
    row("a heading on the first entry's line",
        "\"Derby Day\",\"1\",\"1\",\"Alpha\"\n\"2\",\"2\",\"Beta\"\n", two);
    row("a heading that is a number",
        "\"2026\"\n\"1\",\"1\",\"Alpha\"\n\"2\",\"2\",\"Beta\"\n\"END\"\n", two);
    row("one field a line", "\"1\"\n\"1\"\n\"Alpha\"\n\"2\"\n\"2\"\n\"Beta\"\n\"END\"\n", two);
    row("bare numbers and blanks", " 1 , 1 ,\"Alpha\"\n\n 2,2,\"Beta\"\nEND\n", two);
    row("only the left blanks of a number go", "\" 1\",\" 1A \",\" Al  pha \"\n\" END \"\n",
        {u"1/1:1A   Al  pha /0"_s});
    row("a comma in a name", "\"1\",\"1\",\"Alpha, Beta\"\n", {u"1/1:1 Alpha, Beta/0"_s});
    row("also-eligible and main-track-only are left out",
        "\"AE\",\"9\",\"Gamma\"\n\"1\",\"1\",\"Alpha\"\n\"MTO\",\"8\",\"Delta\"\n"
        "\"2\",\"2\",\"Beta\"\n",
        two);
    row("an empty race behind a heading", "\"Derby Day\"\n\"END\"\n\"4\",\"4\",\"Delta\"\n",
        {u"2/4:4 Delta/0"_s});
    row("post 0", "\"0\",\"1\",\"Zero\"\n\"1\",\"1\",\"Alpha\"\n\"2\",\"2\",\"Beta\"\n", two,
        {tooLow});
    row("post 22", "\"22\",\"1\",\"High\"\n\"1\",\"1\",\"Alpha\"\n\"2\",\"2\",\"Beta\"\n", two,
        {tooHigh});
    row("post 21", "\"21\",\"21\",\"Last\"\n", {u"1/21:21 Last/0"_s});
    row("the later entry of a post holds", "\"1\",\"9\",\"Gamma\"\n\"1\",\"1\",\"Alpha\"\n",
        {u"1/1:1 Alpha/0"_s});
    row("a line cut short",
        "\"3\",\"3\"\n\"1\",\"1\",\"Alpha\"\n\"2\",\"2\",\"Beta\"\n\"END\"\n"
        "\"4\",\"4\",\"Delta\"\n",
        {u"1/1:1 Alpha/0"_s, u"1/2:2 Beta/0"_s, u"2/4:4 Delta/0"_s}, {}, 1);
    row("all races on one line",
        "\"1\",\"1\",\"Alpha\",\"2\",\"2\",\"Beta\",\"END\","
        "\"4\",\"4\",\"Delta\",\"END\"",
        {u"1/1:1 Alpha/0"_s, u"1/2:2 Beta/0"_s, u"2/4:4 Delta/0"_s});
    row("a quote within a name", "\"1\",\"1\",\"Al\"pha\"\n\"2\",\"2\",\"Beta\"\n",
        {u"1/2:2 Beta/0"_s}, {}, 1);
    row("the last line cut short", "\"1\",\"1\",\"Alpha\"\n\"2\",\"2\",\"Beta\"\n\"3\",\"3\"", two,
        {}, 1);
    row("1, 1A and 1B run together, 11 does not",
        "\"1\",\"1\",\"Main\"\n\"2\",\"1A\",\"Mate\"\n\"3\",\"1B\",\"Third\"\n"
        "\"4\",\"11\",\"Other\"\n\"5\",\"2B\",\"Alone\"\n",
        {u"1/1:1 Main/1"_s, u"1/2:1A Mate/1"_s, u"1/3:1B Third/1"_s, u"1/4:11 Other/0"_s,
         u"1/5:2B Alone/0"_s});
    row("coupling ends with the race", "\"1\",\"1A\",\"Mate\"\n\"END\"\n\"1\",\"1\",\"Alone\"\n",
        {u"1/1:1A Mate/1"_s, u"2/1:1 Alone/0"_s});
    row("nothing", "", {});
}

void tst_postboard::card()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, horses);
    const PublishedCard card = parsePostboard(postboardRecord(text));
    QCOMPARE(horsesOf(card), horses);
    QTEST(card.refused, "refused");
    QTEST(card.damaged, "damaged");
    QCOMPARE(card.entries > 0, !horses.isEmpty());
}

// Twelve races, and nothing of a thirteenth.
void tst_postboard::races()
{
    QByteArray text;
    for (int race = 1; race <= 13; ++race)
        text += "\"" + QByteArray::number(race) + "\",\"1\",\"Horse\"\r\n\"END\"\r\n";
    const PublishedCard card = parsePostboard(postboardRecord(text));
    QCOMPARE(card.entries, 12);
    QCOMPARE(card.openRace, 0);
    text.truncate(text.indexOf("\"END\"", text.indexOf("\"3\"")));
    QCOMPARE(parsePostboard(postboardRecord(text)).openRace, 3);
    for (int race = 1; race <= 12; ++race) {
        const HorseTable &horses = card.races[std::size_t(race - 1)];
        QCOMPARE(horses.post(race).name, u"Horse"_s);
        QCOMPARE(horses.post(race == 12 ? 11 : 12).name, u"zzz"_s);
    }
}

void tst_postboard::storedAsItCame()
{
    QCOMPARE(postboardRecord("\"1\",\"1\",\"A\"\r\n"), QByteArray("\"\"1\",\"1\",\"A\"\r\n\"\r\n"));
}

TRELAWN_TEST(tst_postboard)
#include "tst_postboard.moc"
