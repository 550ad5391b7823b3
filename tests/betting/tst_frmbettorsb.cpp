#include "common/files/recordfile.h"
#include "kit/screentest.h"

class tst_frmbettorsb : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin();
        openList("1,\"AnyBettor\"\r\n2,\"SMITH-JOHN\"\r\n3,\"ADAMS-EVE\"\r\n");
    }

    void adding()
    {
        event->write(u"Bets Race5"_s, "4,1,1,12\r\n");
        enter({});
        expect(u"ÅBERG-BO added"_s, u"Bettors"_s);
        enter(u"åberg-bo"_s);
        QCOMPARE(names(), u"ÅBERG-BO ADAMS-EVE AnyBettor SMITH-JOHN"_s);
        QCOMPARE(text(u"txtbettorname"_s), QString());
        QVERIFY2(event->note().contains("Race5 $12.00"_L1), qPrintable(event->note()));
        expect(u"Duplicate bettor name"_s, u"Name error"_s);
        enter(u"Smith-John"_s);
        event->session.settings.bettorLimit = 4;
        expect(u"Bettor number 5 is beyond the bettor limit of 4"_s, u"Bettors"_s);
        enter(u"late"_s);
        QCOMPARE(names(), u"ÅBERG-BO ADAMS-EVE AnyBettor SMITH-JOHN"_s);
    }

    void deletionRefused()
    {
        press(u"cmddelete"_s, u"Select bettor from list first"_s);
        expect(u"Can't delete AnyBettor"_s);
        removeName(u"AnyBettor"_s);
        event->session.settings.mainComputer = true;
        expect(u"Bettor delete not permitted in multiple computer mode"_s);
        removeName(u"SMITH-JOHN"_s);
        QCOMPARE(names(), u"ADAMS-EVE AnyBettor SMITH-JOHN"_s);
    }

    void deletion()
    {
        event->writeTwins(u"Bets Race1"_s, "2,1,1,5\r\n0,9,1,9\r\n3,4,2,2\r\n2,21,3,2.5\r\n");
        event->write(u"Bets Race8"_s, "2,1,1,40\r\n");
        expect(u"Delete SMITH-JOHN"_s, u"Bettors"_s, Answer::Cancel);
        removeName(u"SMITH-JOHN"_s);
        QCOMPARE(label(u"lblselected"_s),
                 u"SMITH-JOHN: number 2, bets Race1 $7.50, Race8 $40.00"_s);
        QCOMPARE(names(), u"ADAMS-EVE AnyBettor SMITH-JOHN"_s);
        press(u"cmddelete"_s, u"Delete SMITH-JOHN"_s, u"Bettors"_s);
        QCOMPARE(names(), u"ADAMS-EVE AnyBettor"_s);
        QCOMPARE(event->readTwins(u"Bets Race1"_s), "3,4,2,2\r\n");
        QCOMPARE(event->read(u"Bets Race8"_s), "2,1,1,40\r\n");
        QVERIFY2(event->note().contains("Race8 $40.00"_L1), qPrintable(event->note()));
        QCOMPARE(slipText(event->slips.front()).join(u'|'),
                 u"REFUND BETS FOR SMITH-JOHN| |Bettor Name                  Amount| |"
                 "SMITH-JOHN                  $7.50"_s);
        expect(u"SMITH-JOHN added"_s, u"Bettors"_s);
        enter(u"SMITH-JOHN"_s);
        press(u"cmdreturn"_s);
        QCOMPARE(event->readTwins(u"Bettors"_s),
                 "1,\"AnyBettor\"\r\n3,\"ADAMS-EVE\"\r\n4,\"SMITH-JOHN\"\r\n");
    }

    // What the main file lost is owed to the bettor, although the deletion did not come to its end;
    // without receipts it is listed.
    void refundWhenTheBackupFails()
    {
        SKIP_ON_WINDOWS();
        event->session.settings.setReceiptPrinting(false);
        event->write(u"Bets Race1"_s, "2,1,1,5\r\n3,4,2,2\r\n");
        const QString twin = event->path(u"Betsbackup Race1"_s);
        // Next to it nobody can write, whatever the rights of the user are.
        QVERIFY(QFile::remove(twin) && QFile::link(u"/proc/self/oom_score_adj"_s, twin));
        expect(u"Delete SMITH-JOHN"_s, u"Bettors"_s);
        const int refusal = errorOf([&] { replaceRecordFile(twin, {}); });
        expect(QString::number(refusal) + u' ' + errorDescription(ErrorNumber(refusal))
                   + u"\nThe file was changed, its backup was not."_s,
               u"Betsbackup Output"_s);
        removeName(u"SMITH-JOHN"_s);
        QCOMPARE(event->read(u"Bets Race1"_s), "3,4,2,2\r\n");
        QCOMPARE(names(), u"ADAMS-EVE AnyBettor SMITH-JOHN"_s);
        QCOMPARE(event->takeListing().value(4), u"SMITH-JOHN                  $5.00"_s);
    }

    void clearing()
    {
        Settings &settings = event->session.settings;
        const QByteArray before = event->read(u"Bettors"_s);
        settings.setRole(true, false);
        press(u"cmdclearbettors"_s, u"Bettor clear not permitted in multiple computer mode"_s);
        settings.clearRole();
        press(u"cmdclearbettors"_s, u"Must clear Bets first"_s, u"Bettors input"_s);
        settings.betsCleared = true;
        press(u"cmdclearbettors"_s, u"Clear and initialize Bettor file?"_s, u"Initialize"_s,
              Answer::Cancel);
        QCOMPARE(event->readTwins(u"Bettors"_s), before);

        expect(u"Clear and initialize Bettor file?"_s, u"Initialize"_s);
        press(u"cmdclearbettors"_s, u"Bettor file cleared and initialized"_s,
              u"Initialize Bettor"_s);
        QCOMPARE(names(), u"AnyBettor"_s);
        QCOMPARE(event->session.bettors.nextNumber, 2);
        QCOMPARE(event->readTwins(u"Bettors"_s), "1,\"AnyBettor\"\r\n");
        QCOMPARE(event->savedCopies(u"Bettors"_s), {before});
    }

    void leaving()
    {
        // A null button stands for the close box.
        const std::pair<QString, QString> ways[] = {{u"cmdreturn"_s, u"frmmenub"_s},
                                                    {u"cmdbetsheet"_s, u"frmsheetb"_s},
                                                    {{}, u"frmmenub"_s}};
        for (const auto &[button, opened] : ways) {
            init();
            addNew();
            if (button.isEmpty())
                event->navigator().window()->close();
            else
                press(button);
            QVERIFY(event->isOpen(opened));
            QVERIFY(event->readTwins(u"Bettors"_s).endsWith("4,\"NEW-ANN\"\r\n"));
        }
    }

    void nameTypedWithoutEnter()
    {
        for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
            init();
            type(u"txtbettorname"_s, u"doe"_s);
            expect(u"Add DOE?"_s, u"Bettors"_s, answer);
            if (answer == Answer::Yes)
                expect(u"DOE added"_s, u"Bettors"_s);
            press(u"cmdreturn"_s);
            QCOMPARE(event->isOpen(u"frmmenub"_s), answer != Answer::Cancel);
            QCOMPARE(event->read(u"Bettors"_s).contains("DOE"), answer == Answer::Yes);
        }
        type(u"txtbettorname"_s, u"smith-john"_s); // on the list already
        press(u"cmdreturn"_s);
    }

    // Files that cannot be written keep nobody on the screen, and files that were not read are not
    // written.
    void failures()
    {
        event->block(u"Bettors"_s);
        press(u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s)); // nothing was changed

        init();
        addNew();
        event->block(u"Bettors"_s);
        press(u"cmdreturn"_s, u"75 Path/File access error"_s, u"Bettors output"_s);
        QVERIFY(event->isOpen(u"frmbettorsb"_s));
        QVERIFY(event->note().contains(u"leaves without saving"_s));
        press(u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s));

        init();
        addNew();
        event->block(u"Bettorsbackup"_s);
        press(u"cmdreturn"_s, u"75 Path/File access error"_s, u"Bettorsbackup output"_s);
        QVERIFY(QDir().rmdir(event->path(u"Bettorsbackup"_s)));
        press(u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s));
        const QByteArray twin = event->readTwins(u"Bettors"_s);
        QVERIFY(twin.contains("NEW-ANN"));

        event->remove({u"Bettors"_s});
        expect(u"53 File not found"_s, u"Bettors input"_s);
        open(u"frmbettorsb"_s);
        QVERIFY(!child<QWidget>(screen(), u"txtbettorname"_s)->isEnabled());
        press(u"cmdreturn"_s);
        QVERIFY(!event->exists(u"Bettors"_s));
        QCOMPARE(event->read(u"Bettorsbackup"_s), twin);
    }

    // A letter in the list takes back what was not saved; a key that moves does not.
    void keysInTheList()
    {
        const QList<Qt::Key> refused{Qt::Key_S, Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape};
        const QList<Qt::Key> kept{Qt::Key_Down, Qt::Key_PageUp, Qt::Key_Tab, Qt::Key_F5};
        for (const auto key : refused + kept) {
            init();
            addNew();
            expect(u"Delete ADAMS-EVE"_s, u"Bettors"_s);
            removeName(u"ADAMS-EVE"_s);
            QCOMPARE(event->slips.size(), 1); // headings, for a bettor without bets
            if (refused.contains(key))
                expect(u"Must select bettor name from drop down list"_s, u"Bettor name"_s);
            QTest::keyClick(child<QListWidget>(screen(), u"cbobettornames"_s), key);
            QCoreApplication::processEvents();
            const bool lost = refused.contains(key);
            QCOMPARE(names(), lost ? u"ADAMS-EVE AnyBettor SMITH-JOHN"_s
                                   : u"AnyBettor NEW-ANN SMITH-JOHN"_s);
            QCOMPARE(event->note(), lost ? u"Additions not saved and lost: 1 (NEW-ANN); "
                                           "Deleted names not saved and listed again: 1"_s
                                         : QString());
        }
    }

    void missingAnyBettor()
    {
        openList("2,\"SMITH-JOHN\"\r\n3,\"ADAMS\r\n");
        for (const auto &text : {u"AnyBettor is missing"_s, u"Use Backup Files"_s,
                                 u"Damaged lines in the bettor file, kept as they are: 1"_s})
            QVERIFY2(event->note().contains(text), qPrintable(event->note()));
    }

private:
    void openList(const QByteArray &bettors)
    {
        event->writeTwins(u"Bettors"_s, bettors);
        open(u"frmbettorsb"_s);
    }
    QString names() { return list(u"cbobettornames"_s).join(u' '); }

    void enter(const QString &name)
    {
        type(u"txtbettorname"_s, name);
        QTest::keyClick(child<QLineEdit>(screen(), u"txtbettorname"_s), Qt::Key_Return);
    }

    // Adds NEW-ANN, number 4.
    void addNew()
    {
        expect(u"NEW-ANN added"_s, u"Bettors"_s);
        enter(u"new-ann"_s);
    }

    void removeName(const QString &name)
    {
        select(u"cbobettornames"_s, name);
        press(u"cmddelete"_s);
    }
};

TRELAWN_TEST(tst_frmbettorsb)
#include "tst_frmbettorsb.moc"
