#include "kit/testkit.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// An option or check box is clicked on its mark, wherever the layout puts it.
void choose(QWidget *screen, const QString &name)
{
    child<QAbstractButton>(screen, name)->click();
}

QStringList preview(QWidget *screen)
{
    const QAbstractItemModel *model = child<QListView>(screen, u"lstreport"_s)->model();
    QStringList lines;
    for (int row = 0; row < model->rowCount(); ++row)
        lines.append(model->index(row, 0).data().toString());
    return lines;
}

// The words of the preview's lines that hold \a text.
QStringList previewOf(QWidget *screen, const QString &text)
{
    QStringList found;
    for (const QString &line : preview(screen).filter(text))
        found.append(line.simplified());
    return found;
}

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

class tst_frmreportb : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestEvent> m_event;
    QWidget *m_screen = nullptr;

private slots:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        m_event = std::make_unique<TestEvent>();
        m_event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ZOE\"\r\n3,\"ANN\"\r\n");
        HorseTable card;
        card.post(1) = {1, 0, u"1"_s, u"BRAVO"_s};
        card.post(2) = {2, 0, u"2"_s, u"ALFA"_s};
        m_event->write(u"Horses Race1"_s, horseRecords(card));
        m_event->write(u"Horses Race2"_s, "1,0,\"1 \",\"COCO\"\r\n");
        m_event->write(u"Bets Race1"_s, "2,1,1,5\r\n3,2,2,20\r\nbad\r\n");
        m_event->write(u"Multibets Race1"_s, "1,2,0,\"EX\",4,2\r\n");
    }

    void cleanupTestCase() { m_event.reset(); }

    void init()
    {
        m_event->session.settings.currentRace = 1;
        m_event->session.settings.fontIndex = 1;
        m_event->session.settings.printerAttached = true;
        m_event->slips.clear();
        m_event->open(u"frmmenub"_s);
        clickButton(m_event->current(), u"cmdreports"_s);
        m_screen = m_event->current();
        QCOMPARE(m_screen->objectName(), u"frmreportb"_s);
        QTRY_VERIFY(!preview(m_screen).isEmpty());
    }

    void choices()
    {
        BoxRobot robot;
        QCOMPARE(previewOf(m_screen, u" 0"_s),
                 (QStringList{u"1 1 1 BRAVO 0"_s, u"1 2 2 ALFA 0"_s}));
        choose(m_screen, u"chkalp"_s);
        QVERIFY(!child<QCheckBox>(m_screen, u"chknum"_s)->isChecked());
        QCOMPARE(previewOf(m_screen, u" 0"_s).value(0), u"1 2 2 ALFA 0"_s);
        choose(m_screen, u"chkdes"_s);
        choose(m_screen, u"chkall"_s);
        QCOMPARE(previewOf(m_screen, u" 0"_s),
                 (QStringList{u"2 1 1 COCO 0"_s, u"1 1 1 BRAVO 0"_s, u"1 2 2 ALFA 0"_s}));
        // Choosing a race leaves "all races".
        choose(m_screen, u"optrace_2"_s);
        QCOMPARE(previewOf(m_screen, u" 0"_s), QStringList{u"2 1 1 COCO 0"_s});
        QCOMPARE(m_event->session.settings.currentRace, 2);

        choose(m_screen, u"optrace_1"_s);
        choose(m_screen, u"optreport_2"_s);
        QCOMPARE(previewOf(m_screen, u"$"_s).first(), u"1 2 ZOE 1 BRAVO Win $5.00"_s);
        QCOMPARE(labelText(m_screen, u"lblnote"_s),
                 u"Bets: 2. 1 damaged line of Bets is not listed."_s);
        choose(m_screen, u"optreport_1"_s);
        QCOMPARE(previewOf(m_screen, u"$"_s).last(), u"TOTAL 3 $25.00 $4.00 $29.00"_s);
        choose(m_screen, u"optreport_3"_s);
        QCOMPARE(previewOf(m_screen, u"$"_s).first(), u"1 2 ZOE Exacta 1-2 $4.00"_s);
        QVERIFY(robot.allCame());
        clickButton(m_screen, u"cmdreturn"_s);
        QCOMPARE(m_event->navigator().currentName(), u"frmmenub"_s);
    }

    void cash()
    {
        BoxRobot robot;
        QVERIFY(!child<QLineEdit>(m_screen, u"txthousepct"_s)->isEnabled());
        choose(m_screen, u"optreport_4"_s);
        QVERIFY(!child<QWidget>(m_screen, u"chkalp"_s)->isEnabled());
        typeInto(m_screen, u"txthousepct"_s, u"10"_s);
        QCOMPARE(previewOf(m_screen, u"Evening  Total"_s),
                 QStringList{u"Evening Total $29.00 $2.90 $0.00 $26.10"_s});
        QVERIFY(labelText(m_screen, u"lblnote"_s)
                    .startsWith("Damaged lines, in no figure: 1. Taken is what"_L1));
        QVERIFY(robot.allCame());
    }

    // The font steps through its seven sizes, is kept in Init, and is what reports print in.
    void printFont()
    {
        BoxRobot robot;
        QStringList sizes;
        for (int step = 0; step < 8; ++step) {
            sizes.append(labelText(m_screen, u"lblfont"_s).section(u' ', -1));
            clickButton(m_screen, u"cmdfont"_s);
        }
        QCOMPARE(sizes.join(u' '), u"8 10 12 14 16 18 20 8"_s);
        QCOMPARE(m_event->read(u"Init"_s).split(',').value(2), QByteArray("2"));
        m_event->session.settings.fontIndex = 8; // an index outside the table counts as 8 points
        clickButton(m_screen, u"cmdfont"_s);
        QCOMPARE(labelText(m_screen, u"lblfont"_s), u"Print Font size is 8"_s);

        m_event->session.settings.fontIndex = 7;
        clickButton(m_screen, u"cmdprint"_s);
        QCOMPARE(m_event->slips.value(0).pointSize, 20.0);
        QCOMPARE(slipText(m_event->slips.value(0)), preview(m_screen));
        choose(m_screen, u"optreport_2"_s);
        clickButton(m_screen, u"cmdprint"_s);
        const double points = m_event->slips.value(1).pointSize;
        QVERIFY(points < 20);
        QCOMPARE(labelText(m_screen, u"lblnote"_s),
                 QString("Printed at "_L1 + QString::number(points)
                         + " points, so that the lines fit the paper"_L1));
        m_event->session.settings.printerAttached = false;
        clickButton(m_screen, u"cmdprint"_s);
        QCOMPARE(m_event->slips.size(), 2);
        QCOMPARE(labelText(m_screen, u"lblnote"_s),
                 u"Nothing was printed: no printer is attached."_s);
        QVERIFY(robot.allCame());
    }

    void saving()
    {
        const std::tuple<QString, QString, QByteArray> ways[] = {
            {u"cmdcsv"_s, u"Bets Race1.csv"_s, "\xef\xbb\xbfRace,Bettor No.,"},
            {u"cmdpdf"_s, u"Bets Race1.pdf"_s, "%PDF-1."}};
        choose(m_screen, u"optreport_2"_s);
        QTemporaryDir folder;
        for (const auto &[button, name, begin] : ways) {
            QString suggested;
            answerFileDialog({}, suggested);
            clickButton(m_screen, button);
            QCOMPARE(suggested, name);

            const QString path = folder.filePath(name);
            answerFileDialog(path.chopped(4), suggested); // the dialog adds the suffix
            clickButton(m_screen, button);
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray saved = file.readAll();
            QVERIFY(saved.startsWith(begin) && saved.size() > 100);
            QCOMPARE(labelText(m_screen, u"lblnote"_s), QString("Saved as "_L1 + path));
        }
    }
};

TRELAWN_TEST(tst_frmreportb)
#include "tst_frmreportb.moc"
