#include "common/event/betrecords.h"
#include "common/event/horses.h"
#include "common/event/racefiles.h"
#include "kit/testkit.h"
#include "transfer/thumbdrive.h"
#include "ui/mainwindow.h"

#include <QDir>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr auto multibetsStay = "Multibet files are not imported/exported";
constexpr auto mainQuestion = "Is this the main computer";
constexpr auto satelliteQuestion = "Is this a satellite computer?";

// A computer of the event, with the thumb drive in F:.
struct Computer : TestEvent
{
    explicit Computer(const QString &thumb) { plugIn(thumb); }

    QString driveLink() const { return session.paths.toHost(u"C:\\"_s) + "/../F"_L1; }
    void plugIn(const QString &thumb) const { QFile::link(thumb, driveLink()); }
    void pullOut() const { QFile::remove(driveLink()); }

    QWidget *openSteps()
    {
        clickButton(open(u"frmmenub"_s), u"cmdmc"_s);
        return current();
    }

    // Presses the step's button and returns the drive choice that it opens.
    QWidget *step(const QString &button, const QString &screen)
    {
        QWidget *steps = navigator().currentName() == u"frmmc"_s ? current() : openSteps();
        clickButton(steps, button);
        return child<QWidget>(navigator().window(), screen);
    }

    QStringList addedRow(const QString &heading)
    {
        auto *table = child<QTableWidget>(current(), u"grdadded"_s);
        QStringList cells;
        for (int row = 0; row < table->rowCount(); ++row) {
            for (int column = 0; column < table->columnCount(); ++column) {
                if (table->verticalHeaderItem(row)->text() == heading)
                    cells << table->item(row, column)->text();
            }
        }
        return cells;
    }
};

const QByteArray card = [] {
    HorseTable horses;
    horses.post(1) = {1, 0, u"1"_s, u"Rex"_s};
    horses.post(2) = {2, 0, u"2"_s, u"Ada"_s};
    return horseRecords(horses);
}();
const QByteArray bettors = "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n";

} // namespace

class tst_frmmc : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_thumb;
    BoxRobot m_boxes;

    QString onThumb(const QString &name) const { return m_thumb.filePath(name); }

    void expectTransfer(const char *question, bool multibets, const char *done)
    {
        m_boxes.expect(QString::fromLatin1(question), u"TRELAWN"_s, Answer::Yes);
        if (multibets)
            m_boxes.expect(QString::fromLatin1(multibetsStay), u"TRELAWN"_s);
        m_boxes.expect(QString::fromLatin1(done), u"TRELAWN"_s);
    }

    void saveBets(Computer &satellite)
    {
        expectTransfer(satelliteQuestion, false, "Satellite computer Bets written to thumb drive");
        selectInList(satellite.step(u"cmdsavebets"_s, u"frmsatun"_s), u"lstdrive"_s, u"F:"_s);
        QVERIFY(m_boxes.allCame());
    }

    void addBets(Computer &main)
    {
        expectTransfer(mainQuestion, false, "Satellite computer bets added to main computer");
        selectInList(main.step(u"cmdaddbets"_s, u"frmmainld"_s), u"lstdrive"_s, u"F:"_s);
        QVERIFY(m_boxes.allCame());
    }

private slots:
    // Horses and bettors go out, the satellite's bets come back: in file and twin, byte for byte.
    void carriesAnEventThereAndBack()
    {
        Computer main(m_thumb.path());
        Computer satellite(m_thumb.path());
        main.write(u"Horses Race3"_s, card);
        main.write(u"Bettors"_s, bettors);
        satellite.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n9,\"OLD\"\r\n");

        expectTransfer(mainQuestion, true, "All Horses and Bettors written to thumb drive");
        selectInList(main.step(u"cmdsavebh"_s, u"frmdrive"_s), u"lstdrive"_s, u"F:"_s);
        QVERIFY(m_boxes.allCame());
        QVERIFY(main.session.settings.isMainComputer());
        QVERIFY(!QFileInfo::exists(onThumb(u"Bettorsbackup"_s)));

        expectTransfer(satelliteQuestion, true,
                       "All Horses and Bettors written to satellite computer");
        selectInList(satellite.step(u"cmdloadbh"_s, u"frmsatdrv"_s), u"lstdrive"_s, u"F:"_s);
        QVERIFY(m_boxes.allCame());
        QVERIFY(satellite.session.settings.isSatelliteComputer());
        for (const auto &twin : {u"Bettors"_s, u"Bettorsbackup"_s})
            QCOMPARE(satellite.read(twin), bettors);
        for (const auto &twin : {u"Horses Race3"_s, u"Horsesbackup Race3"_s})
            QCOMPARE(satellite.read(twin), card);
        const QDir saved(satellite.path(u"Saved"_s));
        QVERIFY(!saved.entryList({u"Bettors 2*"_s}).isEmpty());

        main.write(u"Bets Race3"_s, "2,1,1,2\r\n");
        main.write(u"Betsbackup Race3"_s, "2,1,1,2\r\n");
        const QByteArray taken = "2,2,1,5\r\n1,1,3,2.5\r\n2,7,1,1\r\n";
        satellite.write(u"Bets Race3"_s, taken);
        saveBets(satellite);
        addBets(main);
        for (const auto &twin : {u"Bets Race3"_s, u"Betsbackup Race3"_s})
            QCOMPARE(main.read(twin), "2,1,1,2\r\n" + taken);
        QCOMPARE(main.addedRow(u"Bets added"_s).value(2), u"3"_s);
        QCOMPARE(main.addedRow(u"Dollars added"_s).value(2), u"$8.50"_s);
        QCOMPARE(main.addedRow(u"No horse"_s).value(2), u"1"_s);
        QCOMPARE(main.addedRow(u"Dollars now"_s).value(12), u"$10.50"_s);
        QCOMPARE(labelText(main.current(), u"lblnote"_s), QString());

        // The same drive once more doubles the bets, as told, and the screen says so.
        main.write(u"Bettors"_s, newBettorRecords());
        main.session.settings.betLimit = 1;
        addBets(main);
        QCOMPARE(main.read(u"Betsbackup Race3"_s), "2,1,1,2\r\n" + taken + taken);
        const QString note = labelText(main.current(), u"lblnote"_s);
        QVERIFY(note.startsWith("Race3 looks imported"_L1));
        QVERIFY2(note.contains("not in the list of bettors: "_L1), qPrintable(note));
        QVERIFY2(note.contains("Race3 holds more bets now than the bet limit"_L1),
                 qPrintable(note));
    }

    void refusesTheWrongComputer()
    {
        const std::tuple<QString, QString, const char *, QString> steps[] = {
            {u"cmdsavebh"_s, u"frmdrive"_s, mainQuestion, u"main"_s},
            {u"cmdloadbh"_s, u"frmsatdrv"_s, satelliteQuestion, u"satellite"_s},
            {u"cmdsavebets"_s, u"frmsatun"_s, satelliteQuestion, u"satellite"_s},
            {u"cmdaddbets"_s, u"frmmainld"_s, mainQuestion, u"main"_s}};
        for (const auto &[button, screen, question, role] : steps) {
            QTemporaryDir empty;
            Computer computer(empty.path());
            m_boxes.expect(QString::fromLatin1(question), u"TRELAWN"_s, Answer::No);
            m_boxes.expect(u"Only permitted on %1 computer"_s.arg(role), u"TRELAWN"_s);
            selectInList(computer.step(button, screen), u"lstdrive"_s, u"F:"_s);
            QVERIFY(m_boxes.allCame());
            QVERIFY(QDir(empty.path()).isEmpty());
            QVERIFY(!computer.session.settings.hasRole());
        }
    }

    void needsADrive()
    {
        Computer main(m_thumb.path());
        m_boxes.expect(QString::fromLatin1(mainQuestion), u"TRELAWN"_s, Answer::Yes);
        m_boxes.expect(QString::fromLatin1(multibetsStay), u"TRELAWN"_s);
        m_boxes.expect(u"No thumb drive selected"_s, u"TRELAWN"_s);
        QWidget *choice = main.step(u"cmdsavebh"_s, u"frmdrive"_s);
        QTest::keyClick(child<QWidget>(choice, u"lstdrive"_s), Qt::Key_Return);
        QVERIFY(m_boxes.allCame());
    }

    // A drive that lacks one file, or is gone, changes nothing on the main computer.
    void addsAllRacesOrNone()
    {
        Computer main(m_thumb.path());
        Computer satellite(m_thumb.path());
        satellite.write(u"Bets Race1"_s, "2,2,1,5\r\n");
        saveBets(satellite);
        QFile::remove(onThumb(u"Bets Race7"_s));
        m_boxes.expect(QString::fromLatin1(mainQuestion), u"TRELAWN"_s, Answer::Yes);
        m_boxes.expect(u"53 File not found"_s, u"Bets Input"_s);
        QWidget *choice = main.step(u"cmdaddbets"_s, u"frmmainld"_s);
        selectInList(choice, u"lstdrive"_s, u"F:"_s);
        QVERIFY(m_boxes.allCame());

        main.pullOut();
        m_boxes.expect(QString::fromLatin1(mainQuestion), u"TRELAWN"_s, Answer::Yes);
        m_boxes.expect(u"68 Device unavailable"_s, u"Import Bets"_s);
        selectInList(choice, u"lstdrive"_s, u"F:"_s);
        QVERIFY(m_boxes.allCame());
        QCOMPARE(main.read(u"Bets Race1"_s), QByteArray());
        QCOMPARE(main.read(u"Betsbackup Race1"_s), QByteArray());
    }

    // A drive that cannot take one of the files keeps what it held.
    void writesAllFilesOrNone()
    {
        QTemporaryDir thumb;
        Computer satellite(thumb.path());
        QVERIFY(QDir(thumb.path()).mkdir(u"Bets Race12"_s));
        satellite.write(u"Bets Race1"_s, "2,2,1,5\r\n");
        m_boxes.expect(QString::fromLatin1(satelliteQuestion), u"TRELAWN"_s, Answer::Yes);
        m_boxes.expect(u"75 Path/File access error"_s, u"Bets Output"_s);
        selectInList(satellite.step(u"cmdsavebets"_s, u"frmsatun"_s), u"lstdrive"_s, u"F:"_s);
        QVERIFY(m_boxes.allCame());
        QCOMPARE(QDir(thumb.path()).entryList(QDir::Files), QStringList());
    }

    void returnsInTheRoleThatWasTold()
    {
        Computer computer(m_thumb.path());
        Settings &settings = computer.session.settings;
        const auto roles = [&]() -> QString {
            return settings.mainComputer.word() + u'/' + settings.satelliteComputer.word();
        };
        const auto leave = [&] {
            clickButton(computer.current(), u"cmdreturn"_s);
            return m_boxes.allCame() && computer.navigator().currentName() == u"frmmenub"_s;
        };
        for (const Answer answer : {Answer::Yes, Answer::No}) {
            computer.openSteps();
            m_boxes.expect(u"Is this the main computer?"_s, u"TRELAWN"_s, answer);
            QVERIFY(leave());
            QCOMPARE(roles(), answer == Answer::Yes ? u"yes/no"_s : u"no/yes"_s);
        }
        computer.openSteps();
        settings.setRole(false, true); // a role that is set is not asked for
        QVERIFY(leave());
        QCOMPARE(roles(), u"yes/yes"_s);
        clickButton(computer.openSteps(), u"cmdsing"_s);
        QCOMPARE(roles(), u"no/no"_s);
    }
};

TRELAWN_TEST(tst_frmmc)
#include "tst_frmmc.moc"
