#include "kit/testkit.h"
#include "racecard/postboard.h"

// A published card, written in one line: '1','1','Alpha'|END
static PublishedCard parsed(QByteArray text)
{
    return parsePostboard(postboardRecord(text.replace('\'', '"').replace('|', '\n')));
}

// "1/2:1A Name/0" for every used post of a race: race, post, number, name, pool; then what was
// refused, and the number of damaged lines.
static QString shown(const PublishedCard &card)
{
    QStringList texts;
    for (std::size_t race = 0; race < card.races.size(); ++race) {
        for (const Horse &horse : card.races[race]) {
            if (!isUnused(horse))
                texts << u"%1/%2:%3 %4/%5"_s.arg(race + 1)
                             .arg(horse.post)
                             .arg(horse.number, horse.name)
                             .arg(horse.pool);
        }
    }
    texts += card.refused;
    if (card.damaged > 0)
        texts << u"damaged: %1"_s.arg(card.damaged);
    return texts.join(u"; "_s);
}

class tst_postboard : public QObject
{
    Q_OBJECT

private slots:
    void card()
    {
        const QString two = u"1/1:1 Alpha/0; 1/2:2 Beta/0"_s;
        Rows<QByteArray, QString> rows;
        rows("END closes the race", "'1','1','Alpha'|'2','2','Beta'|'END'|", two);
        rows("a heading before the first entry",
             "'Derby Day'|'1','1','Alpha'|'2','2','Beta'|'END'|", two);
        rows("a heading on the first entry's line", "'Derby Day','1','1','Alpha'|'2','2','Beta'|",
             two);
        rows("a heading that is a number", "'2026'|'1','1','Alpha'|'2','2','Beta'|'END'|", two);
        rows("one field a line", "'1'|'1'|'Alpha'|'2'|'2'|'Beta'|'END'|", two);
        rows("bare numbers and blanks", " 1 , 1 ,'Alpha'|| 2,2,'Beta'|END|", two);
        rows("only the left blanks of a number go", "' 1',' 1A ',' Al  pha '|' END '|",
             u"1/1:1A   Al  pha /0"_s);
        rows("a comma in a name", "'1','1','Alpha, Beta'|", u"1/1:1 Alpha, Beta/0"_s);
        rows("also-eligible and main-track-only are left out",
             "'AE','9','Gamma'|'1','1','Alpha'|'MTO','8','Delta'|'2','2','Beta'|", two);
        rows("an empty race behind a heading", "'Derby Day'|'END'|'4','4','Delta'|",
             u"2/4:4 Delta/0"_s);
        rows("post 0", "'0','1','Zero'|'1','1','Alpha'|'2','2','Beta'|",
             two + u"; Invalid post position - download error"_s);
        rows("post 22", "'22','1','High'|'1','1','Alpha'|'2','2','Beta'|",
             two + u"; Invalid post position-download error"_s);
        rows("post 21", "'21','21','Last'|", u"1/21:21 Last/0"_s);
        rows("the later entry of a post holds", "'1','9','Gamma'|'1','1','Alpha'|",
             u"1/1:1 Alpha/0"_s);
        rows("a line cut short", "'3','3'|'1','1','Alpha'|'2','2','Beta'|'END'|'4','4','Delta'|",
             two + u"; 2/4:4 Delta/0; damaged: 1"_s);
        rows("all races on one line", "'1','1','Alpha','2','2','Beta','END','4','4','Delta','END'",
             two + u"; 2/4:4 Delta/0"_s);
        rows("a quote within a name", "'1','1','Al'pha'|'2','2','Beta'|",
             u"1/2:2 Beta/0; damaged: 1"_s);
        rows("the last line cut short", "'1','1','Alpha'|'2','2','Beta'|'3','3'",
             two + u"; damaged: 1"_s);
        rows("1, 1A and 1B run together, 11 does not",
             "'1','1','Main'|'2','1A','Mate'|'3','1B','Third'|'4','11','Other'|'5','2B','Alone'|",
             u"1/1:1 Main/1; 1/2:1A Mate/1; 1/3:1B Third/1; 1/4:11 Other/0; 1/5:2B Alone/0"_s);
        rows("coupling ends with the race", "'1','1A','Mate'|'END'|'1','1','Alone'|",
             u"1/1:1A Mate/1; 2/1:1 Alone/0"_s);
        rows("nothing", "", {});
        for (const auto &[row, text, expected] : rows) {
            const PublishedCard card = parsed(text);
            QCOMPARE(shown(card), expected);
            QCOMPARE(card.entries > 0, !expected.isEmpty());
        }
    }

    // Twelve races, and nothing of a thirteenth.
    void races()
    {
        QByteArray text;
        for (int race = 1; race <= 13; ++race)
            text += '\'' + QByteArray::number(race) + "','1','Horse'|'END'|";
        const PublishedCard card = parsed(text);
        QCOMPARE(card.entries, 12);
        QCOMPARE(card.openRace, 0);
        QVERIFY(shown(card).endsWith(u"; 12/12:1 Horse/0"_s));
        QCOMPARE(parsed("'1','1','A'|'END'|'1','1','A'|'END'|'3','1','A'|").openRace, 3);
    }

    void storedAsItCame()
    {
        QCOMPARE(postboardRecord("\"1\",\"1\",\"A\"\r\n"), "\"\"1\",\"1\",\"A\"\r\n\"\r\n");
    }
};

TRELAWN_TEST(tst_postboard)
#include "tst_postboard.moc"
