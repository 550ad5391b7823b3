#include "kit/screentest.h"

// Bets are taken by the keyboard alone, in few keys.
class tst_keyboardsheets : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin();
        HorseTable card;
        for (int post = 1; post <= 12; ++post) {
            const QString number = post == 2 ? u"1A"_s : QString::number(post - (post > 2));
            card.post(post) = {post, 0, number, u"HORSE "_s + number};
        }
        event->writeTwins(u"Horses Race1"_s, horseRecords(card));
        const QStringList names{u"ADAMS-JOHN"_s, u"BAKER-ANN"_s, u"BAKER-TOM"_s,  u"CARTER-SUE"_s,
                                u"CLARK-JIM"_s,  u"DAVIS-PAT"_s, u"EVANS-KATE"_s, u"FOSTER-JIM"_s,
                                u"GRAY-MARIA"_s, u"HALL-BOB"_s,  u"HILL-LEE"_s,   u"MOORE-SUE"_s,
                                u"MURPHY-PAT"_s, u"SMITH-ANN"_s, u"SMITH-BOB"_s,  u"STONE-RAY"_s,
                                u"TAYLOR-BO"_s,  u"WALSH-MIA"_s};
        QByteArray bettors = "1,\"AnyBettor\"\r\n";
        for (int i = 0; i < int(names.size()); ++i)
            bettors += QByteArray::number(i + 2) + ",\"" + names[i].toUtf8() + "\"\r\n";
        event->writeTwins(u"Bettors"_s, bettors);
        open(u"frmsheetb"_s);
        m_keys = 0;
    }

    void tenSheets()
    {
        Rows<QString, QByteArray> rows;
        rows("twice the same horse", u"ad2w4p4"_s, "2,5,1,2\r\n2,5,2,2\r\n");
        rows("first of a name", u"bak\r5w2s7"_s, "3,3,1,5\r\n3,8,3,5\r\n");
        rows("two to win", u"ca2w3w5"_s, "5,4,1,2\r\n5,6,1,2\r\n");
        rows("place and show", u"cl5p8s8"_s, "6,9,2,5\r\n6,9,3,5\r\n");
        rows("two digits", u"da10w6p6"_s, "7,7,1,10\r\n7,7,2,10\r\n");
        rows("1, not 1A or 11", u"fo2w1p2"_s, "9,1,1,2\r\n9,3,2,2\r\n");
        rows("not the only one of a name", u"sm\r2w9s3"_s, "15,10,1,2\r\n15,4,3,2\r\n");
        rows("next of a name", u"sm>\r5w7p7"_s, "16,8,1,5\r\n16,8,2,5\r\n");
        rows("two amounts", u"ta2s1a5w4"_s, "18,5,1,5\r\n18,2,3,2\r\n");
        rows("11, not 1", u"wa3p11s5"_s, "19,12,2,3\r\n19,6,3,3\r\n");
        QByteArray placed;
        int sheets = 0;
        for (const auto &[row, keys, bets] : rows) {
            play(keys);
            place();
            placed += bets;
            QCOMPARE(event->readTwins(u"Bets Race1"_s), placed);
            ++sheets;
        }
        QCOMPARE(sheets, 10);
        qInfo("%.1f keys a sheet", m_keys / 10.0);
        QVERIFY2(m_keys <= 10 * sheets, qPrintable(QString::number(m_keys)));
    }

    // What is called is made only when it is a horse's number, and not after a movement.
    void calls()
    {
        Rows<QString, QString> rows;
        rows("made by the next call", u"2w1p3"_s, u"4"_s);
        rows("made by the amount of the next bet", u"w15"_s, u"1"_s);
        rows("an arrow takes it back", u"w1>"_s, {});
        rows("no such number", u"w0"_s, {});
        rows("a letter of the number, not a bet", u"w1^a"_s, u"1"_s);
        rows("Enter makes it once", u"w1\r\r"_s, u"1"_s);
        rows("Space makes it once", u"w1 "_s, u"1"_s);
        for (const auto &[row, keys, total] : rows) {
            open(u"frmsheetb"_s);
            play(u"ad\r"_s + keys);
            QCOMPARE(text(u"txttotaltot"_s), total);
        }
    }

    // Where names hold digits, a digit is a letter of a name.
    void namesWithDigits()
    {
        event->writeTwins(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"TABLE-1\"\r\n3,\"WU\"\r\n");
        open(u"frmsheetb"_s);
        play(u"wu5"_s);
        QCOMPARE(text(u"txtname"_s), u"WU5"_s);
        QCOMPARE(label(u"lblselected"_s), u"No bettor selected"_s);
    }

private:
    // > is an arrow down, ^ the Shift key.
    void play(const QString &keys)
    {
        for (const QChar key : keys) {
            QWidget *focused = screen()->window()->focusWidget();
            if (key == u'\r')
                QTest::keyClick(focused, Qt::Key_Return);
            else if (key == u'>')
                QTest::keyClick(focused, Qt::Key_Down);
            else if (key == u'^')
                QTest::keyClick(focused, Qt::Key_Shift);
            else
                QTest::keyClick(focused, key.toLatin1());
            ++m_keys;
        }
    }

    void place()
    {
        event->boxes.rest();
        QTimer::singleShot(0, this, [this] {
            QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
            ++m_keys;
        });
        QTest::keyClick(screen()->window()->focusWidget(), Qt::Key_Return, Qt::ControlModifier);
        ++m_keys;
        screen()->window()->activateWindow(); // as window managers do after a box
        QVERIFY(QTest::qWaitForWindowActive(screen()->window()));
    }

    int m_keys = 0;
};

TRELAWN_TEST(tst_keyboardsheets)
#include "tst_keyboardsheets.moc"
