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
    const QByteArray written = event.read(u"Init"_s);
    QVERIFY(loadInit(event.session));
    QCOMPARE(settings.banner, u"O'Brien's, 'Derby' <&>\u00e9"_s);
    saveInit(event.session, InitWriter::Setup);
    settings.eventDirectory = defaultEventDirectory(settings);
    QCOMPARE(event.read(u"Init"_s), written);
}

void tst_init::writerHabits()
{
    const std::pair<InitWriter, QByteArray> habits[] = {
        {InitWriter::Setup, ",7.5,8,9,6,5,"}, // what was read, and 5
        {InitWriter::Directory, ",1,2,3,4,5,"},
        {InitWriter::Other, ",0.25,1,5,10,5,"}};
    TestEvent event(false);
    for (const auto &[writer, reserved] : habits) {
        event.write(u"Init"_s,
                    "\"B\",\"C:\\Trelawn\\\",1,\"yes\",2,3,7.5,8,9,6,1,20000,2000,0\r\n");
        QVERIFY(loadInit(event.session));
        saveInit(event.session, writer);
        QCOMPARE(event.read(u"Init"_s),
                 "\"B\",\"C:\\Trelawn\\\",1,\"yes\",2,3" + reserved + "20000,2000,0\r\n");
    }
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
    QTest::newRow("no line end") << line;
    QTest::newRow("byte order mark") << "\xef\xbb\xbf" + line + "\r\n";
    QTest::newRow("blanks round fields") << QByteArray(line).replace(',', " , ");
    QTest::newRow("numbers in quotes") << QByteArray(line).replace("2,3", "\"2\",\"3\"");
    QTest::newRow("directory without its backslash") << QByteArray(line).replace("P\\", "P");
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
    QTest::newRow("zero bytes after a power cut")
        << QByteArray(64, '\0') << false << derby << 0 << 0 << 20000 << 2000;
    QTest::newRow("cut in the middle")
        << line("4", "3", "7,8").left(30) << false << own << 4 << 3 << 20000 << 2000;
    QTest::newRow("race is no number") << line("x", "3", "7,8") << false << own << 0 << 3 << 7 << 8;
    QTest::newRow("limit is no number")
        << line("4", "3", "many,8") << false << own << 4 << 3 << 20000 << 8;
    QTest::newRow("race 13 is unset") << line("13", "3", "7,8") << true << own << 0 << 3 << 7 << 8;
    QTest::newRow("rounding 6 is unset")
        << line("4", "6", "7,8") << true << own << 4 << 0 << 7 << 8;
    QTest::newRow("limits below 1 are the defaults")
        << line("4", "3", "0,-5") << true << own << 4 << 3 << 20000 << 2000;
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
    QCOMPARE(errorOf([&] { loadInit(event.session); }), 53);
    QCOMPARE(event.session.settings.operationLabel, u"Init open-Setup"_s);
}

TRELAWN_TEST_MAIN(tst_init)
#include "tst_init.moc"
