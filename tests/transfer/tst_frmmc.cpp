#include "kit/testkit.h"

namespace {

const QString multibetsStay = u"Multibet files are not imported/exported"_s;
const QString mainQuestion = u"Is this the main computer"_s;
const QString satelliteQuestion = u"Is this a satellite computer?"_s;

// A computer of the event, with the thumb drive in F:.
struct Computer : TestEvent
{
    explicit Computer(const QString &thumb) { QFile::link(thumb, driveLink()); }

    QString driveLink() const { return path(u"C:\\"_s) + "/../F"_L1; }
    void openSteps() { clickButton(open(u"frmmenub"_s), u"cmdmc"_s); }

    // Presses the step's button, answers its question with Yes and what follows with Ok, and
    // chooses the drive.
    void step(const QString &button, const QString &choice, const QString &question,
              const QList<std::pair<QString, QString>> &told)
    {
        boxes.expect(question, u"TRELAWN"_s, Answer::Yes);
        for (const auto &[text, title] : told)
            boxes.expect(text, title);
        chooseDrive(button, choice);
    }
    void chooseDrive(const QString &button, const QString &choice)
    {
        if (!isOpen(u"frmmc"_s))
            openSteps();
        clickButton(current(), button);
        selectInList(child<QWidget>(navigator().window(), choice), u"lstdrive"_s, u"F:"_s);
    }
    void saveBets()
    {
        step(u"cmdsavebets"_s, u"frmsatun"_s, satelliteQuestion,
             {{u"Satellite computer Bets written to thumb drive"_s, u"TRELAWN"_s}});
    }
    void addBets(const QString &told, const QString &title = u"TRELAWN"_s)
    {
        step(u"cmdaddbets"_s, u"frmmainld"_s, mainQuestion, {{told, title}});
    }
};

} // namespace

class tst_frmmc : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        thumb = std::make_unique<QTemporaryDir>();
        main = std::make_unique<Computer>(thumb->path());
        satellite = std::make_unique<Computer>(thumb->path());
    }

    void cleanup()
    {
        main.reset();
        satellite.reset();
    }

    // Horses and bettors go out, the satellite's bets come back: in file and twin, byte for byte.
    void carriesAnEventThereAndBack()
    {
        const QByteArray card =
            horseRecords(cardOf({{1, 0, u"1"_s, u"Rex"_s}, {2, 0, u"2"_s, u"Ada"_s}}));
        const QByteArray bettors = "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n";
        const QByteArray old = "1,\"AnyBettor\"\r\n9,\"OLD\"\r\n";
        main->write(u"Horses Race3"_s, card);
        main->write(u"Bettors"_s, bettors);
        satellite->write(u"Bettors"_s, old);
        main->step(u"cmdsavebh"_s, u"frmdrive"_s, mainQuestion,
                   {{multibetsStay, u"TRELAWN"_s},
                    {u"All Horses and Bettors written to thumb drive"_s, u"TRELAWN"_s}});
        QVERIFY(main->session.settings.isMainComputer());
        QVERIFY(!QFileInfo::exists(thumb->filePath(u"Bettorsbackup"_s)));
        satellite->step(
            u"cmdloadbh"_s, u"frmsatdrv"_s, satelliteQuestion,
            {{multibetsStay, u"TRELAWN"_s},
             {u"All Horses and Bettors written to satellite computer"_s, u"TRELAWN"_s}});
        QVERIFY(satellite->session.settings.isSatelliteComputer());
        QCOMPARE(satellite->readTwins(u"Bettors"_s), bettors);
        QCOMPARE(satellite->readTwins(u"Horses Race3"_s), card);
        QCOMPARE(satellite->savedCopies(u"Bettors"_s), QByteArrayList{old});

        main->writeTwins(u"Bets Race3"_s, "2,1,1,2\r\n");
        const QByteArray taken = "2,2,1,5\r\n1,1,3,2.5\r\n2,7,1,1\r\n";
        satellite->write(u"Bets Race3"_s, taken);
        satellite->saveBets();
        main->addBets(u"Satellite computer bets added to main computer"_s);
        QCOMPARE(main->readTwins(u"Bets Race3"_s), "2,1,1,2\r\n" + taken);
        const QStringList table = tableTexts(main->current(), u"grdadded"_s);
        QVERIFY(table[0].startsWith("0|0|3|0|"_L1) && table[0].endsWith("|3"_L1));
        QVERIFY(table[1].endsWith("|$8.50"_L1)); // added
        QVERIFY(table[2].endsWith("|1"_L1));     // without a horse
        QVERIFY(table[4].endsWith("|$10.50"_L1));
        QCOMPARE(main->note(), QString());

        // The same drive once more doubles the bets, as told, and the screen says so.
        main->write(u"Bettors"_s, newBettorRecords());
        main->session.settings.betLimit = 1;
        main->addBets(u"Satellite computer bets added to main computer"_s);
        QCOMPARE(main->readTwins(u"Bets Race3"_s), "2,1,1,2\r\n" + taken + taken);
        QVERIFY(main->note().startsWith("Race3 looks imported"_L1));
        for (const auto &text :
             {"not in the list of bettors: "_L1, "Race3 holds more bets now than the bet limit"_L1})
            QVERIFY2(main->note().contains(text), qPrintable(main->note()));
    }

    // Bets of an older event stay off the next one's main computer.
    void asksAboutBetsThatTheSatelliteHolds()
    {
        main->step(u"cmdsavebh"_s, u"frmdrive"_s, mainQuestion,
                   {{multibetsStay, u"TRELAWN"_s},
                    {u"All Horses and Bettors written to thumb drive"_s, u"TRELAWN"_s}});
        const QByteArray bets = "2,2,1,5\r\n2,3,1,2.5\r\n";
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            satellite->writeTwins(u"Bets Race3"_s, bets);
            satellite->writeTwins(u"Multibets Race12"_s, "1,2,0,\"EX\",2,1\r\n");
            satellite->write(u"Cash SAT"_s, "older\r\n");
            satellite->boxes.expect(satelliteQuestion, u"TRELAWN"_s, Answer::Yes);
            satellite->boxes.expect(multibetsStay, u"TRELAWN"_s);
            satellite->boxes.expect(
                u"This satellite still holds 2 bets of $7.50 and 1 multibet.\n\nAre they of an "
                "older event? Yes moves them to Saved, so that they are not sent to the main "
                "computer. No keeps them."_s,
                u"TRELAWN"_s, answer);
            satellite->boxes.expect(u"All Horses and Bettors written to satellite computer"_s,
                                    u"TRELAWN"_s);
            satellite->chooseDrive(u"cmdloadbh"_s, u"frmsatdrv"_s);
            QCOMPARE(satellite->readTwins(u"Bets Race3"_s),
                     answer == Answer::No ? bets : QByteArray());
            QCOMPARE(satellite->exists(u"Cash SAT"_s), answer == Answer::No);
        }
        QCOMPARE(satellite->savedCopies(u"Bets Race3"_s), QByteArrayList{bets});
        QCOMPARE(satellite->savedCopies(u"Cash SAT"_s), QByteArrayList{"older\r\n"});
        QCOMPARE(satellite->readTwins(u"Multibets Race12"_s), QByteArray());
    }

    void refusesTheWrongComputer()
    {
        const std::tuple<QString, QString, QString, QString> steps[] = {
            {u"cmdsavebh"_s, u"frmdrive"_s, mainQuestion, u"main"_s},
            {u"cmdloadbh"_s, u"frmsatdrv"_s, satelliteQuestion, u"satellite"_s},
            {u"cmdsavebets"_s, u"frmsatun"_s, satelliteQuestion, u"satellite"_s},
            {u"cmdaddbets"_s, u"frmmainld"_s, mainQuestion, u"main"_s}};
        for (const auto &[button, choice, question, role] : steps) {
            main->boxes.expect(question, u"TRELAWN"_s, Answer::No);
            main->boxes.expect(u"Only permitted on %1 computer"_s.arg(role), u"TRELAWN"_s);
            main->chooseDrive(button, choice);
            QVERIFY(QDir(thumb->path()).isEmpty());
            QVERIFY(!main->session.settings.hasRole());
        }
        main->boxes.expect(mainQuestion, u"TRELAWN"_s, Answer::Yes);
        main->boxes.expect(multibetsStay, u"TRELAWN"_s);
        main->boxes.expect(u"No thumb drive selected"_s, u"TRELAWN"_s);
        main->openSteps();
        clickButton(main->current(), u"cmdsavebh"_s);
        auto *choice = child<QWidget>(main->navigator().window(), u"frmdrive"_s);
        QTest::keyClick(child<QWidget>(choice, u"lstdrive"_s), Qt::Key_Return);
    }

    // A drive that lacks one file, or is gone, changes nothing on the main computer.
    void allRacesOrNone()
    {
        satellite->write(u"Bets Race1"_s, "2,2,1,5\r\n");
        satellite->saveBets();
        QVERIFY(QFile::remove(thumb->filePath(u"Bets Race7"_s)));
        main->addBets(u"53 File not found"_s, u"Bets Input"_s);
        QVERIFY(QFile::remove(main->driveLink()));
        main->boxes.expect(mainQuestion, u"TRELAWN"_s, Answer::Yes);
        main->boxes.expect(u"68 Device unavailable"_s, u"Import Bets"_s);
        selectInList(child<QWidget>(main->navigator().window(), u"frmmainld"_s), u"lstdrive"_s,
                     u"F:"_s);
        QCOMPARE(main->readTwins(u"Bets Race1"_s), "");
    }

    void returnsInTheRoleThatWasTold()
    {
        Settings &settings = main->session.settings;
        const auto roles = [&]() -> QString {
            return settings.mainComputer.word() + u'/' + settings.satelliteComputer.word();
        };
        for (const Answer answer : {Answer::Yes, Answer::No}) {
            main->openSteps();
            main->boxes.expect(u"Is this the main computer?"_s, u"TRELAWN"_s, answer);
            clickButton(main->current(), u"cmdreturn"_s);
            QVERIFY(main->isOpen(u"frmmenub"_s));
            QCOMPARE(roles(), answer == Answer::Yes ? u"yes/no"_s : u"no/yes"_s);
        }
        main->openSteps();
        settings.setRole(false, true); // a role that is set is not asked for
        clickButton(main->current(), u"cmdreturn"_s);
        QCOMPARE(roles(), u"yes/yes"_s);
        main->openSteps();
        clickButton(main->current(), u"cmdsing"_s);
        QCOMPARE(roles(), u"no/no"_s);
    }

private:
    std::unique_ptr<QTemporaryDir> thumb;
    std::unique_ptr<Computer> main;
    std::unique_ptr<Computer> satellite;
};

TRELAWN_TEST(tst_frmmc)
#include "tst_frmmc.moc"
