#include "kit/testkit.h"
#include "ui/bettorsearch.h"

namespace {

class Fixture
{
public:
    explicit Fixture(BettorSearch::Typing typing = BettorSearch::Typing::MovesToName)
        : search(typing, u"RESET LIST"_s, u"Start again"_s)
        , field(child<QLineEdit>(&search, u"txtname"_s))
        , list(child<QListWidget>(&search, u"lstentries"_s))
        , chosen(&search, &BettorSearch::selected)
    {
        search.setBettors(
            BettorTable::parse("1,\"AnyBettor\"\n2,\"ANNA\"\n3,\"BERT\"\n4,\"BERTA\"\n"
                               "5,\"\xc3\x89MILE\"\n6,\"FISH & <b>\"\n",
                               10));
        search.show();
        search.focusSearch();
    }

    void press(Qt::Key key) { QTest::keyClick(field, key); }
    QString current() const
    {
        return list->currentItem() ? list->currentItem()->text() : QString();
    }
    QString shown() const
    {
        QStringList names;
        for (int row = 0; row < list->count(); ++row) {
            if (!list->item(row)->isHidden())
                names << list->item(row)->text();
        }
        return names.join(u' ');
    }

    BettorSearch search;
    QLineEdit *field;
    QListWidget *list;
    QSignalSpy chosen;
};

} // namespace

// Finding a bettor by the first letters of the name.
class tst_bettorsearch : public QObject
{
    Q_OBJECT

private slots:
    void typing()
    {
        Rows<QString, QString> rows;
        rows("the first of several", u"BE"_s, u"BERT"_s);
        rows("whatever the case", u"an"_s, u"ANNA"_s);
        rows("more letters", u"ANY"_s, u"AnyBettor"_s);
        rows("without the accent", u"EM"_s, u"\u00c9MILE"_s);
        rows("nobody: the next name", u"C"_s, u"\u00c9MILE"_s);
        rows("nobody after: the last", u"Z"_s, u"FISH & <b>"_s);
        for (const auto &[row, typed, found] : rows) {
            Fixture fixture;
            fixture.press(Qt::Key_Return); // nothing typed, nobody chosen
            QTest::keyClicks(fixture.field, typed);
            QCOMPARE(fixture.current(), found);
            QCOMPARE(fixture.list->count(), 6);
            fixture.press(Qt::Key_Return);
            QCOMPARE(fixture.chosen.size(), 1);
            QCOMPARE(fixture.chosen.front().at(1).toString(), found);
            // Wherever a letter is put in, the cursor is at the end after it.
            fixture.field->setCursorPosition(0);
            QTest::keyClicks(fixture.field, u"xy"_s);
            QCOMPARE(fixture.field->text(), u'X' + typed.toUpper() + u'Y');
        }
    }

    void narrowing()
    {
        Fixture fixture(BettorSearch::Typing::NarrowsList);
        QTest::keyClicks(fixture.field, u"BE"_s);
        QCOMPARE(fixture.shown(), u"BERT BERTA"_s);
        fixture.press(Qt::Key_Up); // the arrows stay among the names that show
        QCOMPARE(fixture.current(), u"BERT"_s);
        fixture.press(Qt::Key_Down);
        fixture.press(Qt::Key_Down);
        QCOMPARE(fixture.current(), u"BERTA"_s);
        fixture.press(Qt::Key_X);
        QCOMPARE(fixture.shown(), QString());
        fixture.press(Qt::Key_Return); // nobody to choose
        QCOMPARE(fixture.chosen.size(), 0);
        fixture.press(Qt::Key_Backspace);
        QCOMPARE(fixture.shown(), u"BERT BERTA"_s);
        QTest::mouseDClick(fixture.field, Qt::LeftButton);
        QCOMPARE(fixture.field->text() + fixture.current(), QString());
        QVERIFY(fixture.shown().startsWith("ANNA AnyBettor"_L1));
        QSignalSpy asked(&fixture.search, &BettorSearch::resetRequested);
        clickButton(&fixture.search, u"cmdreset"_s);
        QCOMPARE(asked.size(), 1);
        fixture.search.setBettors(BettorTable());
        for (const Qt::Key key : {Qt::Key_B, Qt::Key_Down, Qt::Key_Return})
            fixture.press(key); // an empty list finds nobody
        QCOMPARE(fixture.chosen.size(), 0);
    }

    void choosing()
    {
        Fixture fixture;
        selectInList(&fixture.search, u"lstentries"_s, u"BERTA"_s);
        QCOMPARE(fixture.chosen.takeFirst(), (QVariantList{4, u"BERTA"_s, QString()}));
        QTest::keyClick(fixture.list, Qt::Key_Down);
        QTest::keyClick(fixture.list, Qt::Key_Return);
        QCOMPARE(fixture.chosen.takeFirst(), (QVariantList{5, u"\u00c9MILE"_s, QString()}));
        QTest::keyClick(fixture.list, Qt::Key_Space);
        QCOMPARE(fixture.chosen.size(), 1);
    }
};

TRELAWN_TEST(tst_bettorsearch)
#include "tst_bettorsearch.moc"
