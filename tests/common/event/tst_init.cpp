#include "common/event/init.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"
#include "kit/testkit.h"

using namespace Qt::StringLiterals;

class tst_init : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip();
    void writerHabits();
    void networkDirectoryIsNotStored();
    void readable();
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
    event.session.settings.networkMode = NetworkMode::Master;
    saveInit(event.session);
    event.session.settings.eventDirectory = defaultEventDirectory(event.session.settings);
    QVERIFY(event.read(u"Init"_s).contains(",\"C:\\Trelawn\\\","));
}

// As other writers of the file leave it.
void tst_init::readable()
{
    const QByteArray line = "\"B\",\"D:\\P\\\",1,\"yes\",2,3,.25,1,5,10,5,10,20,0";
    for (const QByteArray &bytes :
         {QByteArray("\xef\xbb\xbf" + line + "\r\n"), QByteArray(line).replace(',', " , "),
          QByteArray(line).replace("2,3", "\"2\",\"3\""), QByteArray(line).replace("P\\", "P"),
          QByteArray(line).replace("\"", "")}) {
        TestEvent event(false);
        event.write(u"Init"_s, bytes);
        QVERIFY2(loadInit(event.session), bytes);
        const Settings &settings = event.session.settings;
        QCOMPARE(settings.banner, u"B"_s);
        QCOMPARE(settings.eventDirectory, u"D:\\P\\"_s);
        QCOMPARE(settings.roundingIndex, 2);
        QCOMPARE(settings.currentRace, 3);
        QCOMPARE(settings.reserved[0], 0.25);
        QCOMPARE(settings.bettorLimit, 20);
    }
}

// What can be read of a damaged file holds; the rest is the default.
void tst_init::damaged()
{
    const auto line = [](const char *rounding, const char *race, const char *limits) -> QByteArray {
        return QByteArray("\"B\",\"C:\\Trelawn\\\",1,\"yes\",") + rounding + ',' + race
               + ",0.25,1,5,10,5," + limits + ",0\r\n";
    };
    const QString derby = u"Kentucky Derby"_s;
    // Bytes, whether they are whole, and the banner, rounding, race and limits that hold.
    const std::tuple<QByteArray, bool, QString, QList<int>> cases[] = {
        {{}, false, derby, {0, 0, 20000, 2000}},
        {QByteArray(64, '\0'), false, derby, {0, 0, 20000, 2000}}, // after a power cut
        {line("3", "4", "7,8").left(30), false, u"B"_s, {3, 4, 20000, 2000}},
        {line("3", "x", "many,8"), false, u"B"_s, {3, 0, 20000, 8}},
        {line("6", "13", "7,8"), true, u"B"_s, {0, 0, 7, 8}},
        {line("3", "4", "0,-5"), true, u"B"_s, {3, 4, 20000, 2000}}};
    for (const auto &[bytes, whole, banner, numbers] : cases) {
        TestEvent event(false);
        event.write(u"Init"_s, bytes);
        QCOMPARE(loadInit(event.session), whole);
        const Settings &settings = event.session.settings;
        QCOMPARE(settings.banner, banner);
        QCOMPARE((QList<int>{settings.roundingIndex, settings.currentRace, settings.betLimit,
                             settings.bettorLimit}),
                 numbers);
        QCOMPARE(settings.eventDirectory, u"C:\\Trelawn\\"_s);
        QCOMPARE(settings.computerMode, 0.0);
    }
}

void tst_init::missing()
{
    TestEvent event(false);
    QCOMPARE(errorOf([&] { loadInit(event.session); }), 53);
    QCOMPARE(event.session.settings.operationLabel, u"Init open-Setup"_s);
}

TRELAWN_TEST(tst_init)
#include "tst_init.moc"
