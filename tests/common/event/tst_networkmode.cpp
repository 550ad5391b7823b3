#include "common/event/networkmode.h"
#include "kit/testkit.h"

namespace {

// A computer that finds a share "\\HOST\Tshare" in the folder.
struct Computer : TestEvent
{
    explicit Computer(const QTemporaryDir &share) { joinShare(share.path()); }
};

} // namespace

class tst_networkmode : public QObject
{
    Q_OBJECT

private slots:
    void markerRecord()
    {
        const ShareRecord record{u"\\\\HOST\\Tshare\\"_s, u"HOST"_s, 3};
        const QByteArray bytes = encodeShareRecord(record);
        QCOMPARE(bytes.size(), 128);
        QCOMPARE(bytes.left(25), QByteArray("\x0e\0\\\\HOST\\Tshare\\\x04\0HOST\x03\0\0", 25));
        QCOMPARE(bytes.mid(24), QByteArray(104, '\0'));
        QVERIFY(decodeShareRecord(bytes) == record);
        for (const QByteArray &damaged : {QByteArray(), bytes.left(127), QByteArray(128, '\0'),
                                          QByteArray("\xff\x7f" + bytes.mid(2))})
            QVERIFY(!decodeShareRecord(damaged));
    }

    void computerNames()
    {
        QCOMPARE(networkNameOf(u"desk.club.lan"_s), u"DESK"_s);
        QCOMPARE(networkNameOf(u"averyveryverylongname"_s), u"AVERYVERYVERYLO"_s);
    }

    void mastersAndSatellitesCountThemselves()
    {
        QTemporaryDir share;
        Computer master(share);
        Computer satellite(share);
        const auto computers = [&master] {
            return decodeShareRecord(master.read(u"\\\\HOST\\Tshare\\res"_s))->computers;
        };
        startAsMaster(master.session, u"HOST"_s);
        QCOMPARE(master.session.settings.networkMode, NetworkMode::Master);
        QCOMPARE(master.session.settings.eventDirectory, u"\\\\HOST\\Tshare\\"_s);
        QVERIFY(master.exists(u"Betsbackup Race12"_s) && !master.exists(u"Init"_s));

        const Settings &settings = satellite.session.settings;
        startAsSatellite(satellite.session, u"Host"_s); // names of computers have no case
        QCOMPARE(settings.networkMode, NetworkMode::Satellite);
        QCOMPARE(computers(), 2);
        startAsMaster(master.session, u"HOST"_s);
        QCOMPARE(computers(), 2); // an old record is written back as it was

        // Without Init on the disk nothing ends.
        satellite.block(u"C:\\Trelawn\\Init"_s);
        QVERIFY_THROWS_EXCEPTION(FileError, endNetworkMode(satellite.session));
        QCOMPARE(settings.networkMode, NetworkMode::Satellite);
        QCOMPARE(settings.eventDirectory, u"\\\\Host\\Tshare\\"_s);
        QCOMPARE(computers(), 2);
        QVERIFY(QDir().rmdir(satellite.path(u"C:\\Trelawn\\Init"_s)));
        QVERIFY(endNetworkMode(satellite.session));
        QCOMPARE(computers(), 1);
        QCOMPARE(settings.eventDirectory, u"C:\\Trelawn\\"_s);
        QVERIFY(satellite.read(u"Init"_s).contains("C:\\Trelawn\\"));

        // The share may vanish in mid-event: the computer goes local all the same and tells.
        QVERIFY(share.remove());
        QVERIFY(!endNetworkMode(master.session));
        QCOMPARE(master.session.settings.eventDirectory, u"C:\\Trelawn\\"_s);
        QVERIFY(!master.session.settings.isNetworked());
    }

    void failedStarts()
    {
        QTemporaryDir share;
        Computer satellite(share);
        const Settings &settings = satellite.session.settings;
        QCOMPARE(errorOf([&] { startAsSatellite(satellite.session, u"HOST"_s); }), 53);
        satellite.write(u"\\\\HOST\\Tshare\\res"_s, "junk");
        QVERIFY_THROWS_EXCEPTION(FileError, startAsSatellite(satellite.session, u"HOST"_s));
        QCOMPARE(settings.eventDirectory, u"C:\\Trelawn\\"_s);
        QVERIFY(!settings.isNetworked());
    }

    // The dialogue on the menu: what each answer leads to.
    void startedFromTheMenu()
    {
        const QString own = networkNameOf(QSysInfo::machineHostName());
        const QString master = u"Using networked files as master computer"_s;
        const QString satellite = u"Using networked files as satellite computer"_s;
        const QString local = u"C:\\Trelawn\\"_s;
        const QString title = u"TRELAWN"_s;
        // The first answer, the name typed, what the menu shows and the event directory then.
        Rows<Answer, QString, QString, QString> rows;
        rows("Cancel leaves everything", Answer::Cancel, {}, {}, local);
        rows("master", Answer::Yes, {}, master, shareFolder(own));
        rows("master without a share", Answer::Yes, {}, {}, shareFolder(own));
        rows("satellite", Answer::No, u"HOST"_s, satellite, shareFolder(u"HOST"_s));
        rows("satellite of a wrong name", Answer::No, u"NOBODY"_s, {}, local);
        rows("satellite without an answer", Answer::No, u""_s, {}, local);
        for (const auto &[row, answer, typed, status, directory] : rows) {
            QTemporaryDir share;
            Computer other(share);
            startAsMaster(other.session, u"HOST"_s);
            Computer computer(share);
            if (status == master)
                computer.joinShare(share.path(), own);

            computer.boxes.expect(u"Is this the master computer?"_s, title, answer);
            if (answer == Answer::Yes)
                computer.boxes.expect("Master computer name is "_L1 + own
                                          + " Make a note - you will need to enter this name on "
                                            "satellite computers"_L1,
                                      title);
            if (answer == Answer::Yes && status.isEmpty())
                computer.boxes.expect(u"Network not available - ending network mode"_s, title);
            if (answer == Answer::No)
                computer.boxes.expectInput(u"Enter master computer name"_s, u"Networked Input"_s,
                                           typed);
            if (typed == "NOBODY"_L1)
                computer.boxes.expect(u"Invalid master computer name"_s, title);
            clickButton(computer.open(u"frmmenub"_s), u"cmdstartnw"_s);
            QVERIFY(computer.boxes.allCame());
            const Settings &settings = computer.session.settings;
            QCOMPARE(settings.isNetworked(), !status.isEmpty());
            QCOMPARE(settings.eventDirectory, directory);
            QCOMPARE(labelText(computer.current(), u"lblnetwork"_s), status);
            QCOMPARE(child<QWidget>(computer.current(), u"cmdendnw"_s)->isEnabled(),
                     settings.isNetworked());
            if (!settings.isNetworked())
                continue;
            clickButton(computer.current(), u"cmdbet"_s);
            QVERIFY(computer.isOpen(u"frmsheetbnw"_s));
            QCOMPARE(computer.navigator().window()->windowTitle(),
                     u"Using network files as master computer"_s);
            clickButton(computer.open(u"frmmenub"_s), u"cmdendnw"_s);
            QVERIFY(!settings.isNetworked());
            QCOMPARE(settings.eventDirectory, local);
            QCOMPARE(labelText(computer.current(), u"lblnetwork"_s), QString());
        }
    }
};

TRELAWN_TEST(tst_networkmode)
#include "tst_networkmode.moc"
