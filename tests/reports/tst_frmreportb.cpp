#include "kit/screentest.h"

namespace {

// Answers the next file dialog with this path, or cancels it when the path is empty, and keeps the
// name that the dialog suggested.
void answerFileDialog(const QString &path, QString &suggested)
{
    QTimer::singleShot(0, qApp, [path, &suggested] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        suggested = QFileInfo(dialog->selectedFiles().value(0)).fileName();
        if (path.isEmpty())
            return dialog->reject();
        child<QLineEdit>(dialog, u"fileNameEdit"_s)->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

} // namespace

class tst_frmreportb : public ScreenTest
{
    Q_OBJECT

    // An option or check box is clicked on its mark, wherever the layout puts it.
    void choose(const QString &name) { child<QAbstractButton>(screen(), name)->click(); }

    QStringList preview() { return list(u"lstreport"_s); }

    // The words of the preview's lines that hold the text.
    QStringList previewOf(const QString &text) { return simplified(preview().filter(text)); }

private slots:
    void init()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        begin();
        event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ZOE\"\r\n3,\"ANN\"\r\n");
        event->write(u"Horses Race1"_s,
                     horseRecords(cardOf({{1, 0, u"1"_s, u"BRAVO"_s}, {2, 0, u"2"_s, u"ALFA"_s}})));
        event->write(u"Horses Race2"_s, "1,0,\"1 \",\"COCO\"\r\n");
        event->write(u"Bets Race1"_s, "2,1,1,5\r\n3,2,2,20\r\nbad\r\n");
        event->write(u"Multibets Race1"_s, "1,2,0,\"EX\",4,2\r\n");
        open(u"frmmenub"_s);
        press(u"cmdreports"_s);
        QVERIFY(event->isOpen(u"frmreportb"_s));
        QTRY_VERIFY(!preview().isEmpty());
    }

    void choices()
    {
        const QStringList race1{u"1 1 1 BRAVO 0"_s, u"1 2 2 ALFA 0"_s};
        QCOMPARE(previewOf(u" 0"_s), race1);
        choose(u"chkalp"_s);
        QVERIFY(!child<QCheckBox>(screen(), u"chknum"_s)->isChecked());
        QCOMPARE(previewOf(u" 0"_s).value(0), race1[1]);
        choose(u"chkdes"_s);
        choose(u"chkall"_s);
        QCOMPARE(previewOf(u" 0"_s), QStringList{u"2 1 1 COCO 0"_s} + race1);
        choose(u"optrace_2"_s); // choosing a race leaves "all races"
        QCOMPARE(previewOf(u" 0"_s), QStringList{u"2 1 1 COCO 0"_s});
        QCOMPARE(event->session.settings.currentRace, 2);
        choose(u"optrace_1"_s);
        choose(u"optreport_2"_s);
        QCOMPARE(previewOf(u"$"_s).first(), u"1 2 ZOE 1 BRAVO Win $5.00"_s);
        QCOMPARE(event->note(), u"Bets: 2. 1 damaged line of Bets is not listed."_s);
        choose(u"optreport_1"_s);
        QCOMPARE(previewOf(u"$"_s).last(), u"TOTAL 3 $25.00 $4.00 $29.00"_s);
        choose(u"optreport_3"_s);
        QCOMPARE(previewOf(u"$"_s).first(), u"1 2 ZOE Exacta 1-2 $4.00"_s);
        QVERIFY(!child<QLineEdit>(screen(), u"txthousepct"_s)->isEnabled());
        choose(u"optreport_4"_s);
        QVERIFY(!child<QWidget>(screen(), u"chkalp"_s)->isVisible());
        type(u"txthousepct"_s, u"10"_s);
        QCOMPARE(previewOf(u"Evening  Total"_s).first(),
                 u"Evening Total $29.00 $2.90 $0.00 $26.10"_s);
        QVERIFY(event->note().contains("Damaged lines, in no figure: 1. Taken is what"_L1));
        press(u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s));
    }

    // The font steps through its seven sizes, is kept in Init, and is what reports print in.
    void printFont()
    {
        QStringList sizes;
        event->session.settings.fontIndex = 8; // an index outside the table counts as 8 points
        for (int step = 0; step < 8; ++step) {
            press(u"cmdfont"_s);
            const QString size = label(u"lblfont"_s);
            QVERIFY(size.startsWith("Print Font size is "_L1));
            sizes.append(size.section(u' ', -1));
        }
        QCOMPARE(sizes.join(u' '), u"8 10 12 14 16 18 20 8"_s);
        QCOMPARE(event->read(u"Init"_s).split(',').value(2), QByteArray("1"));

        event->session.settings.fontIndex = 7;
        press(u"cmdprint"_s);
        QCOMPARE(event->slips.value(0).pointSize, 20.0);
        QCOMPARE(slipText(event->slips.value(0)), preview());
        choose(u"optreport_2"_s);
        press(u"cmdprint"_s);
        const double points = event->slips.value(1).pointSize;
        QVERIFY(points < 20);
        QCOMPARE(event->note(), QString("Printed at "_L1 + QString::number(points)
                                        + " points, so that the lines fit the paper"_L1));
    }

    void saving()
    {
        Rows<QString, QString, QByteArray> rows;
        rows("table", u"cmdcsv"_s, u"Bets Race1.csv"_s, "\xef\xbb\xbfRace,Bettor No.,");
        rows("paper", u"cmdpdf"_s, u"Bets Race1.pdf"_s, "%PDF-1.");
        choose(u"optreport_2"_s);
        for (const auto &[row, button, name, begin] : rows) {
            QString suggested;
            answerFileDialog({}, suggested);
            press(button);
            QCOMPARE(suggested, name);
            const QString path = event->path(name);
            answerFileDialog(path.chopped(4), suggested); // the dialog adds the suffix
            press(button);
            const QByteArray saved = event->read(name);
            QVERIFY(saved.startsWith(begin) && saved.size() > 100);
            QCOMPARE(event->note(), QString("Saved as "_L1 + path));
        }
    }
};

TRELAWN_TEST(tst_frmreportb)
#include "tst_frmreportb.moc"
