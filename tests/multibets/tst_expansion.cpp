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
    const struct
    {
        const char *rule, *type, *lines, *boxes, *expected;
    } rows[] = {
        {"wheel, outer loop over line 1", "EX", "4,5/7,9/", "", "4,7 4,9 5,7 5,9"},
        {"two lines boxed", "Q", "4,5/7/", "12", "4,7 5,7 7,4 7,5"},
        {"two lines, boxes 1 and 3: no second order", "T", "4/7/", "13", "4,7"},
        {"two lines, boxes 2 and 3: no second order", "T", "4/7/", "23", "4,7"},
        {"two lines, all boxed", "T", "4/7/", "123", "4,7 7,4"},
        {"three lines, no box", "T", "4/7/1,2", "", "4,7,1 4,7,2"},
        {"three lines, 1 and 2 boxed", "T", "4/7/1", "12", "4,7,1 7,4,1"},
        {"three lines, 1 and 3 boxed", "T", "4/7/1", "13", "4,7,1 1,7,4"},
        {"three lines, 2 and 3 boxed", "T", "4/7/1", "23", "4,7,1 4,1,7"},
        {"repeats of box orders are listed once", "DD", "3,4/3,4/", "12", "3,3 3,4 4,3 4,4"},
        {"pick 3, the same post in all races", "P3", "5/5/5", "123", "5,5,5"},
        {"empty line 2 gives no bet", "T", "4//1", "", ""},
    };
    for (const auto &row : rows)
        QTest::newRow(row.rule) << row.type << row.lines << row.boxes << row.expected;
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

void tst_expansion::singleBox()
{
    for (const auto &boxes : {u""_s, u"1"_s, u"2"_s, u"3"_s, u"12"_s, u"13"_s, u"23"_s, u"123"_s})
        QCOMPARE(hasSingleBox(entryOf(u"T"_s, u"1/2/3"_s, boxes)), boxes.size() == 1);
}

// The 400th row is pending, but neither listed nor counted.
void tst_expansion::limit_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("boxes");
    QTest::addColumn<int>("pending");
    const QString all = range(1, 21);
    QTest::newRow("399 bets") << all + u'/' + range(1, 19) + u'/' << QString() << 399;
    QTest::newRow("400 bets") << range(1, 20) + u'/' + range(1, 20) + u'/' << QString() << 400;
    // 2 x 15 x 19 bets of which 13 x 13 repeat.
    QTest::newRow("401 bets") << range(1, 15) + u'/' + range(3, 21) + u'/' << u"12"_s << 400;
    QTest::newRow("full box") << all + u'/' + all + u'/' + all << u"123"_s << 400;
}

void tst_expansion::limit()
{
    QFETCH(QString, lines);
    QFETCH(QString, boxes);
    QFETCH(int, pending);
    const MultibetPreview preview = expandEntry(entryOf(u"P3"_s, lines, boxes));
    QCOMPARE(preview.pending.size(), pending);
    QCOMPARE(preview.lines.size(), 399);
    QCOMPARE(preview.full, pending == 400);
    QCOMPARE(preview.total, 2.0 * 399);
}

TRELAWN_TEST(tst_expansion)
#include "tst_expansion.moc"
