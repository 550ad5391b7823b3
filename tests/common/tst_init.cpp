#include "common/fileerror.h"
#include "common/init.h"
#include "common/recordfile.h"
#include "kit/testkit.h"

using namespace Qt::StringLiterals;

class tst_init : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip();
    void writerHabits_data();
    void writerHabits();
    void networkDirectoryIsNotStored();
    void readable_data();
    void readable();
    void damaged_data();
    void damaged();
    void missing();
};

void tst_init::roundTrip()
{
    TestEvent event(false);
    Settings &settings = event.session.settings;
    settings.banner = u"O'Brien's, \"Derby\" <&>\u00e9"_s;
    settings.eventDirectory = u"D:\\Party, big\\"_s;
    settings.fontIndex = 5;
    settings.setReceiptPrinting(false);
    settings.roundingIndex = 4;
    settings.currentRace = 12;
    settings.reserved = {0.125, 123456789, -3, 1e9};
    settings.betLimit = 1;
    settings.bettorLimit = 1000000;
    settings.computerMode = 123456789;
    saveInit(event.session, InitWriter::Setup);
    settings = Settings();
    settings.initDrive = u"C:"_s;
    settings.eventDirectory = defaultEventDirectory(settings);
    QCOMPARE(event.read(u"Init"_s),
             QByteArray("\"O'Brien's, 'Derby' <&>\xc3\xa9\",\"D:\\Party, big\\\",5,\"no\",4,12,"
                        "0.125,123456789,-3,1000000000,5,1,1000000,123456789\r\n"));
    QVERIFY(loadInit(event.session));
    QCOMPARE(settings.banner, u"O'Brien's, 'Derby' <&>\u00e9"_s);
    QCOMPARE(settings.eventDirectory, u"D:\\Party, big\\"_s);
    QCOMPARE(settings.fontIndex, 5);
    QCOMPARE(settings.receiptPrinting, u"no"_s);
    QCOMPARE(settings.roundingIndex, 4);
    QCOMPARE(settings.currentRace, 12);
    QCOMPARE(settings.reserved[1], 123456789.0);
    QCOMPARE(settings.betLimit, 1);
    QCOMPARE(settings.bettorLimit, 1000000);
    QCOMPARE(settings.computerMode, 123456789.0);
}

void tst_init::writerHabits_data()
{
    QTest::addColumn<int>("writer");
    QTest::addColumn<QByteArray>("reserved");
    QTest::newRow("setup writes what was read, and 5")
        << int(InitWriter::Setup) << QByteArray(",7.5,8,9,6,5,");
    QTest::newRow("directory writes 1 to 5")
        << int(InitWriter::Directory) << QByteArray(",1,2,3,4,5,");
    QTest::newRow("everybody else writes the constants")
        << int(InitWriter::Other) << QByteArray(",0.25,1,5,10,5,");
}

void tst_init::writerHabits()
{
    QFETCH(int, writer);
    QFETCH(QByteArray, reserved);
    TestEvent event(false);
    event.write(u"Init"_s, "\"B\",\"C:\\Trelawn\\\",1,\"yes\",2,3,7.5,8,9,6,1,20000,2000,0\r\n");
    QVERIFY(loadInit(event.session));
    saveInit(event.session, InitWriter(writer));
    QCOMPARE(event.read(u"Init"_s),
             "\"B\",\"C:\\Trelawn\\\",1,\"yes\",2,3" + reserved + "20000,2000,0\r\n");
}

void tst_init::networkDirectoryIsNotStored()
{
    TestEvent event(false);
    event.session.settings.eventDirectory = u"\\\\MASTER\\Tshare\\"_s;
    event.session.settings.networkMode = 1;
    saveInit(event.session);
    event.session.settings.eventDirectory = defaultEventDirectory(event.session.settings);
    QVERIFY(event.read(u"Init"_s).contains(",\"C:\\Trelawn\\\","));
}

void tst_init::readable_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray line = "\"B\",\"D:\\P\\\",1,\"yes\",2,3,.25,1,5,10,5,10,20,0";
    QTest::newRow("line end LF") << line + "\n";
    QTest::newRow("no line end") << line;
    QTest::newRow("byte order mark") << "\xef\xbb\xbf" + line + "\r\n";
    QTest::newRow("end-of-file mark") << line + "\r\n\x1a";
    QTest::newRow("blank first line") << "\r\n" + line;
    QTest::newRow("blanks round fields") << QByteArray(line).replace(',', " , ");
    QTest::newRow("numbers in quotes") << QByteArray(line).replace("2,3", "\"2\",\"3\"");
    QTest::newRow("directory without its backslash") << QByteArray(line).replace("P\\", "P");
    QTest::newRow("directory with two backslashes") << QByteArray(line).replace("P\\", "P\\\\");
    QTest::newRow("texts without quotes") << QByteArray(line).replace("\"", "");
}

void tst_init::readable()
{
    QFETCH(QByteArray, bytes);
    TestEvent event(false);
    event.write(u"Init"_s, bytes);
    QVERIFY(loadInit(event.session));
    const Settings &settings = event.session.settings;
    QCOMPARE(settings.banner, u"B"_s);
    QCOMPARE(settings.eventDirectory, u"D:\\P\\"_s);
    QCOMPARE(settings.roundingIndex, 2);
    QCOMPARE(settings.currentRace, 3);
    QCOMPARE(settings.reserved[0], 0.25);
    QCOMPARE(settings.bettorLimit, 20);
}

void tst_init::damaged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("whole");
    QTest::addColumn<QString>("banner");
    QTest::addColumn<int>("race");
    QTest::addColumn<int>("rounding");
    QTest::addColumn<int>("betLimit");
    QTest::addColumn<int>("bettorLimit");
    const QString derby = u"Kentucky Derby"_s;
    const QString own = u"B"_s;
    const auto line = [](const char *race, const char *rounding, const char *limits) -> QByteArray {
        return QByteArray("\"B\",\"C:\\Trelawn\\\",1,\"yes\",") + rounding + ',' + race
               + ",0.25,1,5,10,5," + limits + ",0\r\n";
    };
    QTest::newRow("empty") << QByteArray() << false << derby << 0 << 0 << 20000 << 2000;
    QTest::newRow("blank lines") << QByteArray("\r\n\r\n") << false << derby << 0 << 0 << 20000
                                 << 2000;
    QTest::newRow("zero bytes after a power cut")
        << QByteArray(64, '\0') << false << derby << 0 << 0 << 20000 << 2000;
    QTest::newRow("open quote") << QByteArray("\"B,1,2") << false << derby << 0 << 0 << 20000
                                << 2000;
    QTest::newRow("cut in the middle")
        << line("4", "3", "7,8").left(30) << false << own << 4 << 3 << 20000 << 2000;
    QTest::newRow("junk") << QByteArray("\x89PNG junk,1\n2,3") << false << derby << 0 << 0 << 20000
                          << 2000;
    QTest::newRow("race is no number") << line("x", "3", "7,8") << false << own << 0 << 3 << 7 << 8;
    QTest::newRow("limit is no number")
        << line("4", "3", "many,8") << false << own << 4 << 3 << 20000 << 8;
    QTest::newRow("race 13 is unset") << line("13", "3", "7,8") << true << own << 0 << 3 << 7 << 8;
    QTest::newRow("race 0 is unset") << line("0", "3", "7,8") << true << own << 0 << 3 << 7 << 8;
    QTest::newRow("race 1.5 is unset")
        << line("1.5", "3", "7,8") << true << own << 0 << 3 << 7 << 8;
    QTest::newRow("rounding 6 is unset")
        << line("4", "6", "7,8") << true << own << 4 << 0 << 7 << 8;
    QTest::newRow("limits below 1 are the defaults")
        << line("4", "3", "0,-5") << true << own << 4 << 3 << 20000 << 2000;
    QTest::newRow("limits that no table holds")
        << line("4", "3", "1000001,1e300") << true << own << 4 << 3 << 20000 << 2000;
}

void tst_init::damaged()
{
    QFETCH(QByteArray, bytes);
    TestEvent event(false);
    event.write(u"Init"_s, bytes);
    const Settings &settings = event.session.settings;
    QTEST(loadInit(event.session), "whole");
    QTEST(settings.banner, "banner");
    QTEST(settings.currentRace, "race");
    QTEST(settings.roundingIndex, "rounding");
    QTEST(settings.betLimit, "betLimit");
    QTEST(settings.bettorLimit, "bettorLimit");
    QCOMPARE(settings.eventDirectory, u"C:\\Trelawn\\"_s);
    QCOMPARE(settings.computerMode, 0.0);
}

void tst_init::missing()
{
    TestEvent event(false);
    try {
        loadInit(event.session);
        QFAIL("read an Init that is not there");
    } catch (const FileError &error) {
        QCOMPARE(error.number(), ErrorNumber::FileNotFound);
        QCOMPARE(event.session.settings.operationLabel, u"Init open-Setup"_s);
    }
}

TRELAWN_TEST_MAIN(tst_init)
#include "tst_init.moc"
