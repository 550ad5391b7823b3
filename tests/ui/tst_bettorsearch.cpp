#include "kit/testkit.h"
#include "ui/bettorsearch.h"

#include <QLineEdit>
#include <QListWidget>

using namespace Qt::StringLiterals;

// Finding a bettor by the first letters of the name.
class tst_bettorsearch : public QObject
{
    Q_OBJECT

private slots:
    void typing();
    void narrowing();
    void choosing();
    void resetting();
};

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

    QString current() const
    {
        return list->currentItem() ? list->currentItem()->text() : QString();
    }
    QStringList shown() const
    {
        QStringList names;
        for (int row = 0; row < list->count(); ++row) {
            if (!list->item(row)->isHidden())
                names << list->item(row)->text();
        }
        return names;
    }

    BettorSearch search;
    QLineEdit *field;
    QListWidget *list;
    QSignalSpy chosen;
};

} // namespace

void tst_bettorsearch::typing()
{
    const std::pair<QString, QString> cases[] = {
        {u"BE"_s, u"BERT"_s},       {u"an"_s, u"ANNA"_s},
        {u"ANY"_s, u"AnyBettor"_s}, {u"EM"_s, u"\u00c9MILE"_s}, // without the accent
        {u"C"_s, u"\u00c9MILE"_s},                              // nobody: the next name
        {u"Z"_s, u"FISH & <b>"_s}};                             // nobody after: the last
    for (const auto &[typed, found] : cases) {
        Fixture fixture;
        QTest::keyClicks(fixture.field, typed);
        QCOMPARE(fixture.current(), found);
        QCOMPARE(fixture.list->count(), 6);
        QTest::keyClick(fixture.field, Qt::Key_Return);
        QCOMPARE(fixture.chosen.size(), 1);
        QCOMPARE(fixture.chosen.front().at(1).toString(), found);
        // Wherever a letter is put in, the cursor is at the end after it.
        fixture.field->setCursorPosition(0);
        QTest::keyClicks(fixture.field, u"xy"_s);
        QCOMPARE(fixture.field->text(), u'X' + typed.toUpper() + u'Y');
    }
}

void tst_bettorsearch::narrowing()
{
    Fixture fixture(BettorSearch::Typing::NarrowsList);
    QTest::keyClicks(fixture.field, u"BE"_s);
    QCOMPARE(fixture.shown(), (QStringList{u"BERT"_s, u"BERTA"_s}));
    // The arrows stay among the names that show.
    QTest::keyClick(fixture.field, Qt::Key_Up);
    QCOMPARE(fixture.current(), u"BERT"_s);
    QTest::keyClick(fixture.field, Qt::Key_Down);
    QTest::keyClick(fixture.field, Qt::Key_Down);
    QCOMPARE(fixture.current(), u"BERTA"_s);
    QTest::keyClick(fixture.field, Qt::Key_X);
    QVERIFY(fixture.shown().isEmpty());
    QTest::keyClick(fixture.field, Qt::Key_Return); // nobody to choose
    QCOMPARE(fixture.chosen.size(), 0);
    QTest::keyClick(fixture.field, Qt::Key_Backspace);
    QCOMPARE(fixture.shown().size(), 2);
}

void tst_bettorsearch::choosing()
{
    Fixture fixture;
    QTest::keyClick(fixture.field, Qt::Key_Return); // nothing typed, nobody chosen
    QCOMPARE(fixture.chosen.size(), 0);
    selectInList(&fixture.search, u"lstentries"_s, u"BERTA"_s);
    QCOMPARE(fixture.chosen.takeFirst(), (QVariantList{4, u"BERTA"_s}));
    QTest::keyClick(fixture.list, Qt::Key_Down);
    QTest::keyClick(fixture.list, Qt::Key_Return);
    QCOMPARE(fixture.chosen.takeFirst(), (QVariantList{5, u"\u00c9MILE"_s}));
    QTest::keyClick(fixture.list, Qt::Key_Space);
    QCOMPARE(fixture.chosen.size(), 1);
}

void tst_bettorsearch::resetting()
{
    Fixture fixture(BettorSearch::Typing::NarrowsList);
    QTest::keyClicks(fixture.field, u"BE"_s);
    QTest::mouseDClick(fixture.field, Qt::LeftButton);
    QCOMPARE(fixture.field->text(), QString());
    QCOMPARE(fixture.shown().size(), 6);
    QCOMPARE(fixture.current(), QString());
    QSignalSpy asked(&fixture.search, &BettorSearch::resetRequested);
    clickButton(&fixture.search, u"cmdreset"_s);
    QCOMPARE(asked.size(), 1);
    fixture.search.setBettors(BettorTable());
    QTest::keyClicks(fixture.field, u"B"_s); // an empty list finds nobody
    QTest::keyClick(fixture.field, Qt::Key_Down);
    QTest::keyClick(fixture.field, Qt::Key_Return);
    QCOMPARE(fixture.chosen.size(), 0);
}

TRELAWN_TEST(tst_bettorsearch)
#include "tst_bettorsearch.moc"
