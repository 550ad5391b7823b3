#include "kit/screentest.h"

class tst_frmfixb : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin();
        event->write(u"Horses Race2"_s, "3,0,\"3 \",\"Rex\"\r\n");
        open(u"frmfixb"_s);
    }

    // The number shown counts, whatever the order, and each remove knows only its own list.
    void removesWhatIsSelected()
    {
        press(u"cmdbets"_s, u"Must select a race to display a bet file"_s);
        event->writeTwins(u"Bets Race2"_s, "1,3,1,10\r\n1,3,1,9\r\n7,3,1,100\r\n");
        showBets();
        QCOMPARE(event->note(), u"1 bad row"_s);
        QVERIFY(!isEnabled(u"cmdupdate"_s));
        selectCell(0, 6);
        const std::pair<QString, QString> orders[] = {{u"chkalp"_s, u"10 100 9 "_s},
                                                      {u"chknum"_s, u"9 10 100 "_s},
                                                      {u"chkdes"_s, u"100 10 9 "_s}};
        for (const auto &[button, amounts] : orders) {
            press(button);
            QCOMPARE(column(6).join(u' '), amounts);
        }
        selectCell(3, 0); // the total
        QVERIFY(!isEnabled(u"cmdupdate"_s));
        selectCell(2, 0);
        QVERIFY(!isEnabled(u"cmdremmulti"_s) && !isEnabled(u"cmdrbettor"_s));
        press(u"cmdprint"_s);
        QCOMPARE(event->slips.last().fontName, u"Courier New"_s);
        QVERIFY(slipText(event->slips.last()).value(4).startsWith("2          1"_L1));

        press(u"cmdupdate"_s);
        QCOMPARE(event->readTwins(u"Bets Race2"_s), "1,3,1,10\r\n7,3,1,100\r\n");
        QCOMPARE(column(0), QStringList({u"1"_s, u"2"_s, u"Total Bets"_s}));
        press(u"cmdbackup"_s);
        selectCell(0, 0);
        QVERIFY(!isEnabled(u"cmdupdate"_s));
        press(u"optflight_1"_s);
        QCOMPARE(column(0), QStringList());
    }

    // A removed bettor comes back from the copy that was kept.
    void bettors()
    {
        const QByteArray both = "1,\"AnyBettor\"\r\n7,\"SMITH\"\r\n";
        event->writeTwins(u"Bettors"_s, both);
        press(u"cmdbettor"_s);
        selectCell(0, 0);
        press(u"cmdrbettor"_s, u"Can't delete AnyBettor"_s);
        selectCell(1, 0);
        press(u"cmdrbettor"_s);
        QCOMPARE(event->readTwins(u"Bettors"_s), "1,\"AnyBettor\"\r\n");
        press(u"cmdsaved"_s);
        QCOMPARE(column(1), QStringList({u"Bettors"_s, u"Bettorsbackup"_s}));
        selectCell(0, 0);
        press(u"cmdputback"_s, u"Replace Bettors and its backup with the copy?"_s, u"Saved"_s);
        QCOMPARE(event->readTwins(u"Bettors"_s), both);
        QCOMPARE(column(0).size(), 4);
    }

    // What a power cut or a wrong copy left behind is shown, flagged, and taken out record by
    // record; the good records stay.
    void repairsDamage()
    {
        const QByteArray good = "1,3,1,2\r\n";
        Rows<QByteArray, int, QByteArray> rows;
        rows("torn", good + "1,3,1", 1, good);
        rows("swapped with the bettors", "1,\"AnyBettor\"\r\n7,\"SMITH\"\r\n", 2, {});
        rows("foreign", "%PDF-1.4\n\xe2\xe3\x00\n\"stream\n"_qba + good, 3, good);
        for (const auto &[row, file, badRows, repaired] : rows) {
            event->writeTwins(u"Bets Race2"_s, file);
            showBets();
            for (int left = badRows; left > 0; --left) {
                QVERIFY(event->note().contains(QString::number(left) + " bad row"_L1));
                selectCell(int(column(6).indexOf(u" Bad Bet Amount"_s)), 0);
                press(u"cmdupdate"_s);
            }
            QVERIFY(event->note().contains("No bad rows"_L1));
            QCOMPARE(event->readTwins(u"Bets Race2"_s), repaired);
        }
    }

private:
    void showBets()
    {
        press(u"optflight_2"_s);
        press(u"cmdbets"_s);
    }

    // The cells of a column, from the top.
    QStringList column(int column)
    {
        const auto *model = child<QTableView>(screen(), u"grdfix"_s)->model();
        QStringList cells;
        for (int row = 0; row < model->rowCount(); ++row)
            cells << model->index(row, column).data().toString();
        return cells;
    }

    void selectCell(int row, int column)
    {
        auto *grid = child<QTableView>(screen(), u"grdfix"_s);
        grid->setCurrentIndex(grid->model()->index(row, column));
    }

    bool isEnabled(const QString &name) { return child<QWidget>(screen(), name)->isEnabled(); }
};

TRELAWN_TEST(tst_frmfixb)
#include "tst_frmfixb.moc"
