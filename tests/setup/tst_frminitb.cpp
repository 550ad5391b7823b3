#include "kit/screentest.h"

class tst_frminitb : public ScreenTest
{
    Q_OBJECT

private slots:
    void init() { begin(); }

    void firstStartAndComingBack()
    {
        beginRun();
        expectDrive();
        expectPrinter(Answer::Yes);
        open(u"frminitb"_s);
        QCOMPARE(event->read(u"Init"_s), "\"Kentucky Derby\",\"C:\\Trelawn\\\",8,\"yes\",1,1,"
                                         "0.25,1,5,10,5,20000,2000,0\r\n");
        QCOMPARE(text(u"txtfiles"_s), u"C:\\Trelawn\\"_s);
        QCOMPARE(event->session.settings.betSheetMessage.count(u'\n'), 4);
        // Coming back asks nothing.
        press(u"cmdok"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s));
        event->session.settings.eventDirectory = u"D:\\Party\\"_s;
        event->session.settings.currentRace = 9;
        press(u"cmdsetup"_s);
        QCOMPARE(text(u"txtfiles"_s), u"D:\\Party\\"_s);
        QCOMPARE(text(u"txtbanner"_s), u"Kentucky Derby Race9"_s);
        QVERIFY(child<QRadioButton>(event->current(), u"optrace_9"_s)->isChecked());
        QVERIFY(closeBoxEnds(event->navigator()));
    }

    void driveAnswers()
    {
        SKIP_ON_WINDOWS();
        beginRun();
        for (const QString &answer : {u"c"_s, QString(), u"EA"_s}) {
            expectInput(drivePrompt, u"Init Drive"_s, answer);
            expect(u"Invalid Init Drive - please re-enter"_s);
        }
        // Accepted, but its folder cannot be made.
        expectInput(drivePrompt, u"Init Drive"_s, u"CD"_s);
        expect(u"Bad file name or number Init directory-Setup"_s, u"Init directory-Setup"_s);
        // Nothing can be made there, but elsewhere.
        expectBlockedDrive(Answer::No);
        expectInput(drivePrompt, u"Init Drive"_s, u"E"_s);
        expectPrinter(Answer::Yes);
        open(u"frminitb"_s);
        QCOMPARE(event->session.settings.eventDirectory, u"E:\\Trelawn\\"_s);
        QVERIFY(event->exists(u"Init"_s));

        beginRun();
        expectBlockedDrive(Answer::Yes);
        open(u"frminitb"_s);
        QCoreApplication::processEvents();
        QVERIFY(!screen()->window()->isVisible());
    }

    void laterStart()
    {
        beginRun("\"Derby & <Oaks>\",\"D:\\Party\\\",3,\"yes\",5,7,9,8,7,6,5,100,50,4\r\n");
        expectDrive();
        expectPrinter(Answer::No);
        open(u"frminitb"_s);
        QCOMPARE(event->read(u"Init"_s), "\"Derby & <Oaks>\",\"C:\\Trelawn\\\",3,\"no\",5,7,"
                                         "0.25,1,5,10,5,100,50,4\r\n");
        QCOMPARE(text(u"txtbanner"_s), u"Derby & <Oaks> Race7"_s);
        QCOMPARE(label(u"lblfont"_s), u"Print Font size is 12"_s);
        QCOMPARE(caption(screen(), u"cmdprint"_s), u"Bet receipts will not print"_s);
        QCOMPARE(caption(screen(), u"cmdround"_s), u"Round payoff to nearest 1.00"_s);
        QVERIFY(!event->session.settings.mayPrint());
        QCOMPARE(event->session.bettors.slotCount(), 50);
        // The note stays until a directory is chosen or used.
        const QString last = u"Last event directory: D:\\Party\\"_s;
        QCOMPARE(event->note(), last);
        for (const QString &away : {u"Command1"_s, u"cmdreturn"_s}) {
            press(away);
            QCOMPARE(event->note(), last);
        }
    }

    // What can be read of it holds, and the file is kept.
    void damagedInit()
    {
        const QByteArray bytes = "\"Oaks\",\"D:\\P";
        beginRun(bytes);
        expectDrive();
        expect(u"Init is damaged - defaults are used for what cannot be read"_s,
               u"Init open-Setup"_s);
        expectPrinter(Answer::Yes);
        open(u"frminitb"_s);
        QCOMPARE(event->read(u"Init"_s),
                 "\"Oaks\",\"C:\\Trelawn\\\",8,\"yes\",1,1,0.25,1,5,10,5,20000,2000,0\r\n");
        QCOMPARE(event->savedCopies(u"Init"_s), QByteArrayList{bytes});
        QCOMPARE(event->note(),
                 "The damaged Init was kept in Saved as "_L1 + event->saved().value(0));

        beginRun();
        QVERIFY(QDir().mkpath(event->session.paths.toHost(u"C:\\Trelawn\\Init"_s)));
        const QString fault = u"Path/File access error Init open-Setup"_s;
        expectDrive();
        expect(fault, u"Init open-Setup"_s);
        expectPrinter(Answer::Yes);
        expect(fault, u"Init open-Setup"_s);
        open(u"frminitb"_s);
        QCOMPARE(text(u"txtbanner"_s), u"Kentucky Derby Race1"_s);
        QCOMPARE(text(u"txtfiles"_s), u"C:\\Trelawn\\"_s);
    }

    void raceAndBanner()
    {
        event->session.settings.reserved = {1, 2, 3, 4};
        open(u"frminitb"_s);
        press(u"optrace_3"_s);
        QCOMPARE(text(u"txtbanner"_s), u"Kentucky Derby Race3"_s);
        QVERIFY(event->read(u"Init"_s).contains(",1,3,0.25,1,5,10,5,"));
        type(u"txtbanner1"_s, u"The \"Oaks\""_s);
        QVERIFY(!event->note().isEmpty());
        expect(u"Banner information changed"_s, u"Setup"_s);
        QTest::keyClick(child<QLineEdit>(screen(), u"txtbanner1"_s), Qt::Key_Return);
        QCOMPARE(text(u"txtbanner1"_s), u"The 'Oaks'"_s);
        QCOMPARE(text(u"txtbanner"_s), u"The 'Oaks' Race3"_s);
        QCOMPARE(event->note(), QString());
        QVERIFY(event->read(u"Init"_s).startsWith("\"The 'Oaks'\","));
        QVERIFY(event->read(u"Init"_s).contains(",1,3,1,2,3,4,5,20000,"));

        // A banner that cannot be stored does not come into force; what was typed stays.
        event->block(u"Init"_s);
        press(u"optrace_4"_s, u"Path/File access error \\Trelawn\\Init"_s, u"\\Trelawn\\Init"_s);
        QCOMPARE(event->session.settings.currentRace, 4);
        expect(u"Path/File access error \\Trelawn\\Init"_s, u"\\Trelawn\\Init"_s);
        type(u"txtbanner1"_s, u"Derby"_s);
        QTest::keyClick(child<QLineEdit>(screen(), u"txtbanner1"_s), Qt::Key_Return);
        QCOMPARE(text(u"txtbanner"_s), u"The 'Oaks' Race4"_s);
        QCOMPARE(text(u"txtbanner1"_s), u"Derby"_s);
    }

    // It is taken as Enter takes it, or dropped on purpose; Cancel goes nowhere.
    void bannerTypedWithoutEnter()
    {
        const std::pair<QString, QString> ways[] = {
            {u"optrace_2"_s, u"frminitb"_s},      {u"cmdok"_s, u"frmmenub"_s},
            {u"Command1"_s, u"frmdirb"_s},        {u"cmdimpext"_s, u"frmimportb"_s},
            {u"cmdpractice"_s, u"frmpractice"_s}, {u"cmdhelp"_s, u"frmhelpb"_s}};
        for (const auto &[button, next] : ways) {
            for (const Answer answer : {Answer::Cancel, Answer::No, Answer::Yes}) {
                begin();
                open(u"frminitb"_s);
                type(u"txtbanner1"_s, u"Oaks"_s);
                expect(u"Change the banner to Oaks?"_s, u"Setup"_s, answer);
                if (answer == Answer::Yes)
                    expect(u"Banner information changed"_s, u"Setup"_s);
                press(button);
                QCOMPARE(event->session.settings.banner == u"Oaks"_s, answer == Answer::Yes);
                QVERIFY(event->isOpen(answer == Answer::Cancel ? u"frminitb"_s : next));
                const bool isRaceLeft = button == ways[0].first && answer != Answer::Cancel;
                QCOMPARE(event->session.settings.currentRace, isRaceLeft ? 2 : 1);
            }
        }
        open(u"frminitb"_s);
        type(u"txtbanner1"_s, u"Derby"_s);
        expect(u"Change the banner to Derby?"_s, u"Setup"_s, Answer::Cancel);
        screen()->window()->close();
        QVERIFY(screen()->isVisible());
    }

    void receiptsAndRounding()
    {
        event->session.settings.printerAttached = false;
        event->session.settings.setReceiptPrinting(false);
        open(u"frminitb"_s);
        press(u"cmdprint"_s);
        QCOMPARE(caption(screen(), u"cmdprint"_s), u"Bet receipts will print"_s);
        QVERIFY(event->session.settings.mayPrint());
        QVERIFY(event->read(u"Init"_s).contains("\"yes\",1,1,0.25,1,5,10,5,"));
        QStringList captions;
        for (int click = 0; click < 6; ++click) {
            press(u"cmdround"_s);
            captions << caption(screen(), u"cmdround"_s).section(u' ', -1);
        }
        QCOMPARE(captions.join(u' '), u"0.10 0.25 0.50 1.00 0.01 0.10"_s);
        QVERIFY(event->read(u"Init"_s).contains("\"yes\",1,1,")); // not written yet
        press(u"cmdprint"_s);
        QVERIFY(event->read(u"Init"_s).contains("\"no\",2,1,"));
        // The answers, and the size that holds after each.
        const std::pair<QString, QString> answers[] = {
            {u" 14 "_s, u"14"_s}, {u"16"_s, u"14"_s}, {{}, u"14"_s}, {u"8"_s, u"8"_s}};
        for (const auto &[answer, size] : answers) {
            expectInput(u"Enter receipt font size - options are 8, 10, 12, or 14"_s,
                        u"Receipt font size"_s, answer);
            if (answer.trimmed() != size)
                expect(u"Invalid font size entered"_s);
            press(u"cmdrecptfont"_s);
            QCOMPARE(event->session.settings.receiptFontSize, size);
        }
    }

    void clearingForANewEvent()
    {
        const QByteArray bet = "7,4,1,2.5\r\n";
        const QByteArray unused = event->read(u"Horses Race5"_s);
        for (const QString &name : {u"Bets Race1"_s, u"Bets Race12"_s, u"Multibets Race3"_s})
            event->write(name, bet);
        event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n");
        event->write(u"Horses Race5"_s, "1,0,\"1 \",\"Second Wind\"\r\n");
        open(u"frminitb"_s);
        const auto clickAll = [this] {
            for (const QString &button : {u"cmdbettors"_s, u"cmdhorses"_s, u"cmdbets"_s})
                press(button);
        };
        event->session.settings.networkMode = NetworkMode::Master; // every computer's files
        clickAll();
        QVERIFY(event->note().startsWith("Nothing was cleared"_L1));
        event->session.settings.networkMode = NetworkMode::Off;
        expect(u"Must clear Bets first"_s, u"Clear Bettors"_s);
        expect(u"Must clear Bets first"_s, u"Clear Horses"_s);
        expect(u"Clear and initialize ALL Bet files?"_s, u"Initialize"_s, Answer::Cancel);
        clickAll();
        QCOMPARE(event->read(u"Bets Race1"_s), bet);

        expect(u"Clear and initialize ALL Bet files?"_s, u"Initialize"_s);
        press(u"cmdbets"_s, u"All Bet files cleared and initialized"_s, u"Initialize Bets"_s);
        expect(u"Clear and initialize Bettor file?"_s, u"Initialize"_s);
        press(u"cmdbettors"_s, u"Bettor file cleared and initialized"_s, u"Initialize Bettor"_s);
        expect(u"Clear and initialize Horses file?"_s, u"Initialize"_s);
        press(u"cmdhorses"_s, u"All Horse files cleared and initialized"_s,
              u"Initialize Players"_s);
        for (int race = 1; race <= 12; ++race)
            QCOMPARE(event->readTwins(u"Bets"_s + raceName(race)), "");
        QCOMPARE(event->readTwins(u"Bettors"_s), "1,\"AnyBettor\"\r\n");
        QCOMPARE(event->readTwins(u"Horses Race5"_s), unused);
        QCOMPARE(event->read(u"Multibets Race3"_s), bet);
        QVERIFY(event->saved().size() >= 4);
    }

    void unusableDirectory()
    {
        open(u"frminitb"_s);
        event->session.settings.eventDirectory = u"Q:\\Party\\"_s;
        expect(u"Device unavailable Bets drivedir-Setup"_s, u"Bets drivedir-Setup"_s);
        press(u"cmdok"_s,
              u"Make sure drive and directory names are valid-try using default names"_s,
              u"Menu"_s);
        QVERIFY(event->isOpen(u"frminitb"_s));
    }

private:
    // A run that has just been started: nothing asked, nothing known but this Init file.
    void beginRun(const QByteArray &initFile = {})
    {
        begin(false);
        if (!initFile.isNull())
            event->write(u"Init"_s, initFile);
        else
            QDir(event->path({})).removeRecursively();
        event->session.settings = Settings();
        expect(u"Display size must be set to 1024 x 768"_s);
    }

    // Answers the drive prompt with its default.
    void expectDrive() { event->boxes.expectInputKept(drivePrompt, u"Init Drive"_s); }

    // The drive D:, where nothing can be made, and whether the operator gives up.
    void expectBlockedDrive(Answer givesUp)
    {
        const QDir drives(event->session.paths.dataFolder() + u"/drives"_s);
        QVERIFY(drives.mkpath(u"."_s) && QFile(drives.filePath(u"D"_s)).open(QFile::WriteOnly));
        expectInput(drivePrompt, u"Init Drive"_s, u"D"_s);
        expect(u"Path not found Init directory-Setup"_s, u"Init directory-Setup"_s);
        expect(u"No files can be kept on this drive. Leave the program?"_s, u"Init Drive"_s,
               givesUp);
    }

    void expectPrinter(Answer answer)
    {
        expect(u"Is a printer attached to this computer? 'No' disables all printing."_s,
               u"Printer Attached?"_s, answer);
    }

    const QString drivePrompt =
        u"Enter Init drive location - C, D, or E or press enter to use the C drive"_s;
};

TRELAWN_TEST(tst_frminitb)
#include "tst_frminitb.moc"
