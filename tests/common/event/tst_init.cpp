#include "kit/testkit.h"

class tst_init : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip()
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
        const QByteArray written =
            "\"O'Brien's, 'Derby' <&>\xc3\xa9\",\"D:\\Party, big\\\",5,\"no\",4,12,"
            "0.125,123456789,-3,1000000000,5,1,1000000,123456789\r\n";
        saveInit(event.session, InitWriter::Setup);
        QCOMPARE(event.read(u"C:\\Trelawn\\Init"_s), written);
        settings = Settings();
        settings.initDrive = u"C:"_s;
        QVERIFY(loadInit(event.session));
        QCOMPARE(settings.banner, u"O'Brien's, 'Derby' <&>\u00e9"_s);
        saveInit(event.session, InitWriter::Setup);
        QCOMPARE(event.read(u"C:\\Trelawn\\Init"_s), written);
    }

    void writerHabits()
    {
        Rows<InitWriter, QByteArray> rows;
        rows("what was read, and 5", InitWriter::Setup, ",7.5,8,9,6,5,");
        rows("counting", InitWriter::Directory, ",1,2,3,4,5,");
        rows("the others' amounts", InitWriter::Other, ",0.25,1,5,10,5,");
        TestEvent event(false);
        for (const auto &[row, writer, reserved] : rows) {
            event.write(u"Init"_s,
                        "\"B\",\"C:\\Trelawn\\\",1,\"yes\",2,3,7.5,8,9,6,1,20000,2000,0\r\n");
            QVERIFY(loadInit(event.session));
            saveInit(event.session, writer);
            QCOMPARE(event.read(u"Init"_s),
                     "\"B\",\"C:\\Trelawn\\\",1,\"yes\",2,3" + reserved + "20000,2000,0\r\n");
        }
        event.session.settings.eventDirectory = u"\\\\MASTER\\Tshare\\"_s; // never stored
        event.session.settings.networkMode = NetworkMode::Master;
        saveInit(event.session);
        QVERIFY(event.read(u"C:\\Trelawn\\Init"_s).contains(",\"C:\\Trelawn\\\","));
    }

    // As other writers of the file leave it.
    void readable()
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
            QCOMPARE(settings.banner + settings.eventDirectory, u"BD:\\P\\"_s);
            QCOMPARE((QList<double>{double(settings.roundingIndex), double(settings.currentRace),
                                    settings.reserved[0], double(settings.bettorLimit)}),
                     (QList<double>{2, 3, 0.25, 20}));
        }
    }

    // What can be read of a damaged file holds; the rest is the default.
    void damaged()
    {
        const auto line = [](const char *rounding, const char *race,
                             const char *limits) -> QByteArray {
            return QByteArray("\"B\",\"C:\\Trelawn\\\",1,\"yes\",") + rounding + ',' + race
                   + ",0.25,1,5,10,5," + limits + ",0\r\n";
        };
        const QString derby = u"Kentucky Derby"_s;
        // Bytes, whether they are whole, and the banner, rounding, race and limits that hold.
        Rows<QByteArray, bool, QString, QList<int>> rows;
        rows("empty", {}, false, derby, {0, 0, 20000, 2000});
        rows("after a power cut", QByteArray(64, '\0'), false, derby, {0, 0, 20000, 2000});
        rows("cut", line("3", "4", "7,8").left(30), false, u"B"_s, {3, 4, 20000, 2000});
        rows("no numbers", line("3", "x", "many,8"), false, u"B"_s, {3, 0, 20000, 8});
        rows("beyond the highest", line("6", "13", "7,8"), true, u"B"_s, {0, 0, 7, 8});
        rows("below the lowest", line("3", "4", "0,-5"), true, u"B"_s, {3, 4, 20000, 2000});
        for (const auto &[row, bytes, whole, banner, numbers] : rows) {
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
        TestEvent missing(false);
        QCOMPARE(errorOf([&] { loadInit(missing.session); }), 53);
        QCOMPARE(missing.session.settings.operationLabel, u"Init open-Setup"_s);
    }
};

TRELAWN_TEST(tst_init)
#include "tst_init.moc"
