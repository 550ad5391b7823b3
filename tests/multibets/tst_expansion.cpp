#include "kit/testkit.h"
#include "multibets/expansion.h"

#include <QSet>

using namespace Qt::StringLiterals;

// An entry as a row names it: "1,4/2,5/" is posts 1 and 4 on line 1, 2 and 5 on line 2, none on
// line 3.
static MultibetEntry entryOf(const QString &type, const QString &lines, const QString &boxes)
{
    MultibetEntry entry;
    entry.type = type;
    entry.stake = 2;
    entry.bettor = 7;
    const QStringList parts = lines.split(u'/');
    for (int line = 0; line < 3; ++line) {
        for (const QString &post : parts[line].split(u',', Qt::SkipEmptyParts))
            entry.posts[size_t(line)].append(post.toInt());
        entry.boxed[size_t(line)] = boxes.contains(QString::number(line + 1));
    }
    return entry;
}

static QString range(int first, int last)
{
    QStringList posts;
    for (int post = first; post <= last; ++post)
        posts.append(QString::number(post));
    return posts.join(u',');
}

class tst_expansion : public QObject
{
    Q_OBJECT

private slots:
    void orders_data();
    void orders();
    void allBoxed();
    void singleBox_data();
    void singleBox();
    void limit_data();
    void limit();
};

void tst_expansion::orders_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("boxes");
    QTest::addColumn<QString>("expected"); // the posts of each bet, in order

    QTest::newRow("single exacta") << "EX"
                                   << "4/7/"
                                   << ""
                                   << "4,7";
    QTest::newRow("wheel, outer loop over line 1") << "EX"
                                                   << "4,5/7,9/"
                                                   << ""
                                                   << "4,7 4,9 5,7 5,9";
    QTest::newRow("two lines boxed") << "Q"
                                     << "4,5/7/"
                                     << "12"
                                     << "4,7 5,7 7,4 7,5";
    QTest::newRow("two lines, boxes 1 and 3: no second order") << "T"
                                                               << "4/7/"
                                                               << "13"
                                                               << "4,7";
    QTest::newRow("two lines, boxes 2 and 3: no second order") << "T"
                                                               << "4/7/"
                                                               << "23"
                                                               << "4,7";
    QTest::newRow("two lines, all boxed") << "T"
                                          << "4/7/"
                                          << "123"
                                          << "4,7 7,4";
    QTest::newRow("three lines, no box") << "T"
                                         << "4/7/1,2"
                                         << ""
                                         << "4,7,1 4,7,2";
    QTest::newRow("three lines, 1 and 2 boxed") << "T"
                                                << "4/7/1"
                                                << "12"
                                                << "4,7,1 7,4,1";
    QTest::newRow("three lines, 1 and 3 boxed") << "T"
                                                << "4/7/1"
                                                << "13"
                                                << "4,7,1 1,7,4";
    QTest::newRow("three lines, 2 and 3 boxed") << "T"
                                                << "4/7/1"
                                                << "23"
                                                << "4,7,1 4,1,7";
    QTest::newRow("repeats of box orders are listed once") << "DD"
                                                           << "3,4/3,4/"
                                                           << "12"
                                                           << "3,3 3,4 4,3 4,4";
    QTest::newRow("pick 3, the same post in all races") << "P3"
                                                        << "5/5/5"
                                                        << "123"
                                                        << "5,5,5";
    QTest::newRow("empty line 2 gives no bet") << "EX"
                                               << "4//"
                                               << ""
                                               << "";
    QTest::newRow("empty line 2 of three gives no bet") << "T"
                                                        << "4//1"
                                                        << ""
                                                        << "";
}

void tst_expansion::orders()
{
    QFETCH(QString, type);
    QFETCH(QString, lines);
    QFETCH(QString, boxes);
    QFETCH(QString, expected);
    QStringList previewed;
    for (const QString &posts : expected.split(u' ', Qt::SkipEmptyParts))
        previewed.append(type + u" $2.00 "_s + posts);

    const MultibetPreview preview = expandEntry(entryOf(type, lines, boxes));
    QCOMPARE(preview.lines, previewed);
    QCOMPARE(preview.total, 2.0 * double(previewed.size()));
    QVERIFY(!preview.full);
    QCOMPARE(preview.pending.size(), previewed.size());
    for (const Multibet &bet : preview.pending) {
        QCOMPARE(bet.type, type);
        QCOMPARE(bet.amount, 2.0);
        QCOMPARE(bet.bettor, 7);
    }
}

void tst_expansion::allBoxed()
{
    const MultibetPreview preview = expandEntry(entryOf(u"T"_s, u"1,4/2,5/3,6"_s, u"123"_s));
    QCOMPARE(preview.lines.first(), u"T $2.00 1,2,3"_s); // the unboxed order comes first
    QCOMPARE(preview.lines.size(), 48);
    QCOMPARE(QSet<QString>(preview.lines.cbegin(), preview.lines.cend()).size(), 48);
    QCOMPARE(preview.total, 96.0);
}

void tst_expansion::singleBox_data()
{
    QTest::addColumn<QString>("boxes");
    QTest::addColumn<bool>("single");
    QTest::newRow("none") << "" << false;
    for (const char *one : {"1", "2", "3"})
        QTest::addRow("box %s", one) << one << true;
    for (const char *more : {"12", "13", "23", "123"})
        QTest::addRow("boxes %s", more) << more << false;
}

void tst_expansion::singleBox()
{
    QFETCH(QString, boxes);
    QTEST(hasSingleBox(entryOf(u"T"_s, u"1/2/3"_s, boxes)), "single");
}

// The 400th row is pending, but neither listed nor counted.
void tst_expansion::limit_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("boxes");
    QTest::addColumn<int>("pending");
    QTest::addColumn<int>("listed");
    QTest::addColumn<bool>("full");
    QTest::newRow("399 bets") << range(1, 21) + u'/' + range(1, 19) + u'/' << "" << 399 << 399
                              << false;
    QTest::newRow("400 bets") << range(1, 20) + u'/' + range(1, 20) + u'/' << "" << 400 << 399
                              << true;
    // 2 x 15 x 19 bets of which 13 x 13 repeat.
    QTest::newRow("401 bets") << range(1, 15) + u'/' + range(3, 21) + u'/' << "12" << 400 << 399
                              << true;
    QTest::newRow("full box") << range(1, 21) + u'/' + range(1, 21) + u'/' + range(1, 21) << "123"
                              << 400 << 399 << true;
}

void tst_expansion::limit()
{
    QFETCH(QString, lines);
    QFETCH(QString, boxes);
    QFETCH(int, listed);
    const MultibetPreview preview = expandEntry(entryOf(u"P3"_s, lines, boxes));
    QTEST(int(preview.pending.size()), "pending");
    QCOMPARE(int(preview.lines.size()), listed);
    QTEST(preview.full, "full");
    QCOMPARE(preview.total, 2.0 * listed);
}

TRELAWN_TEST_MAIN(tst_expansion)
#include "tst_expansion.moc"
