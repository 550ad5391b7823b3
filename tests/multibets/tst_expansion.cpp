#include "kit/testkit.h"
#include "multibets/expansion.h"

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
    void orders()
    {
        // The posts of each bet, in order.
        Rows<QString, QString, QString, QString> rows;
        rows("wheel, outer loop over line 1", u"EX"_s, u"4,5/7,9/"_s, u""_s, u"4,7 4,9 5,7 5,9"_s);
        rows("two lines boxed", u"Q"_s, u"4,5/7/"_s, u"12"_s, u"4,7 5,7 7,4 7,5"_s);
        rows("two lines, boxes 1 and 3: no second order", u"T"_s, u"4/7/"_s, u"13"_s, u"4,7"_s);
        rows("two lines, boxes 2 and 3: no second order", u"T"_s, u"4/7/"_s, u"23"_s, u"4,7"_s);
        rows("two lines, all boxed", u"T"_s, u"4/7/"_s, u"123"_s, u"4,7 7,4"_s);
        rows("three lines, no box", u"T"_s, u"4/7/1,2"_s, u""_s, u"4,7,1 4,7,2"_s);
        rows("three lines, 1 and 2 boxed", u"T"_s, u"4/7/1"_s, u"12"_s, u"4,7,1 7,4,1"_s);
        rows("three lines, 1 and 3 boxed", u"T"_s, u"4/7/1"_s, u"13"_s, u"4,7,1 1,7,4"_s);
        rows("three lines, 2 and 3 boxed", u"T"_s, u"4/7/1"_s, u"23"_s, u"4,7,1 4,1,7"_s);
        rows("repeats of box orders are listed once", u"DD"_s, u"3,4/3,4/"_s, u"12"_s,
             u"3,3 3,4 4,3 4,4"_s);
        rows("pick 3, the same post in all races", u"P3"_s, u"5/5/5"_s, u"123"_s, u"5,5,5"_s);
        rows("empty line 2 gives no bet", u"T"_s, u"4//1"_s, u""_s, u""_s);
        for (const auto &[row, type, lines, boxes, expected] : rows) {
            QStringList previewed;
            for (const QString &posts : expected.split(u' ', Qt::SkipEmptyParts))
                previewed.append(type + u" $2.00 "_s + posts);

            const MultibetPreview preview = expandEntry(entryOf(type, lines, boxes));
            QCOMPARE(preview.lines, previewed);
            QCOMPARE(preview.total, 2.0 * double(previewed.size()));
            QVERIFY(!preview.full);
            QCOMPARE(preview.pending.size(), previewed.size());
            for (const Multibet &bet : preview.pending)
                QVERIFY(bet.type == type && bet.amount == 2.0 && bet.bettor == 7);
        }
    }

    void allBoxed()
    {
        const MultibetPreview preview = expandEntry(entryOf(u"T"_s, u"1,4/2,5/3,6"_s, u"123"_s));
        QCOMPARE(preview.lines.first(), u"T $2.00 1,2,3"_s); // the unboxed order comes first
        QCOMPARE(QSet<QString>(preview.lines.cbegin(), preview.lines.cend()).size(), 48);
        QCOMPARE(preview.total, 96.0);
        for (const auto &boxes : {u""_s, u"1"_s, u"3"_s, u"12"_s, u"123"_s})
            QCOMPARE(hasSingleBox(entryOf(u"T"_s, u"1/2/3"_s, boxes)), boxes.size() == 1);
    }

    // The 400th row is pending, but neither listed nor counted.
    void limit()
    {
        const QString all = range(1, 21);
        Rows<QString, QString, int> rows;
        rows("399 bets", all + u'/' + range(1, 19) + u'/', QString(), 399);
        rows("400 bets", range(1, 20) + u'/' + range(1, 20) + u'/', QString(), 400);
        // 2 x 15 x 19 bets of which 13 x 13 repeat.
        rows("401 bets", range(1, 15) + u'/' + range(3, 21) + u'/', u"12"_s, 400);
        rows("full box", all + u'/' + all + u'/' + all, u"123"_s, 400);
        for (const auto &[row, lines, boxes, pending] : rows) {
            const MultibetPreview preview = expandEntry(entryOf(u"P3"_s, lines, boxes));
            QCOMPARE(preview.pending.size(), pending);
            QCOMPARE(preview.lines.size(), 399);
            QCOMPARE(preview.full, pending == 400);
            QCOMPARE(preview.total, 2.0 * 399);
        }
    }
};

TRELAWN_TEST(tst_expansion)
#include "tst_expansion.moc"
