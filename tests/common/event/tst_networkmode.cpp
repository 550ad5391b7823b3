#include "common/event/eventfiles.h"
#include "common/event/networkmode.h"
#include "common/files/fileerror.h"
#include "kit/testkit.h"
#include "ui/mainwindow.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

// A computer that finds a share "HOST\Tshare" in the folder given, or nowhere.
struct Computer : TestEvent
{
    explicit Computer(const QString &share)
    {
        QDir().mkpath(network());
        if (!share.isEmpty())
            QFile::link(share, network() + "/Tshare"_L1);
    }
    QString network() const { return session.paths.toHost(u"C:\\"_s) + "/../../network/HOST"_L1; }
};

} // namespace

class tst_networkmode : public QObject
{
    Q_OBJECT

private slots:
    void markerRecordLayout()
    {
        const ShareRecord record{u"\\\\HOST\\Tshare\\"_s, u"HOST"_s, 3};
        const QByteArray bytes = encodeShareRecord(record);
        QCOMPARE(bytes.size(), 128);
        QCOMPARE(bytes.left(25), QByteArray("\x0e\0\\\\HOST\\Tshare\\\x04\0HOST\x03\0\0", 25));
        QCOMPARE(bytes.mid(24), QByteArray(104, '\0'));
        QVERIFY(decodeShareRecord(bytes) == record);
    }

    void damagedMarkersDoNotDecode()
    {
        const QByteArray good = encodeShareRecord({u"\\\\HOST\\Tshare\\"_s, u"HOST"_s, 3});
        for (const QByteArray &bytes : {QByteArray(), good.left(127), QByteArray(128, '\0'),
                                        QByteArray("\xff\x7f" + good.mid(2))})
            QVERIFY(!decodeShareRecord(bytes));
    }

    void computerNames()
    {
        QCOMPARE(networkNameOf(u"desk.club.lan"_s), u"DESK"_s);
        QCOMPARE(networkNameOf(u"averyveryverylongname"_s), u"AVERYVERYVERYLO"_s);
    }

    void mastersAndSatellitesCountThemselves()
    {
        QTemporaryDir share;
        Computer master(share.path());
        Computer satellite(share.path());
        startAsMaster(master.session, u"HOST"_s);
        QCOMPARE(master.session.settings.networkMode, NetworkMode::Master);
        QCOMPARE(master.session.settings.eventDirectory, u"\\\\HOST\\Tshare\\"_s);
        QVERIFY(QFileInfo::exists(share.filePath(u"Betsbackup Race12"_s)));
        QVERIFY(!QFileInfo::exists(share.filePath(u"Init"_s)));

        startAsSatellite(satellite.session, u"Host"_s); // names of computers have no case
        QCOMPARE(satellite.session.settings.networkMode, NetworkMode::Satellite);
        const auto computers = [&share] {
            QFile file(share.filePath(u"res"_s));
            return file.open(QIODevice::ReadOnly) ? decodeShareRecord(file.readAll())->computers
                                                  : -1;
        };
        QCOMPARE(computers(), 2);
        startAsMaster(master.session, u"HOST"_s);
        QCOMPARE(computers(), 2); // an old record is written back as it was

        // Without Init on the disk nothing ends.
        const QString init = satellite.session.paths.toHost(u"C:\\Trelawn\\Init"_s);
        QVERIFY(QFile::remove(init) && QDir().mkdir(init));
        QVERIFY_THROWS_EXCEPTION(FileError, endNetworkMode(satellite.session));
        QCOMPARE(satellite.session.settings.networkMode, NetworkMode::Satellite);
        QCOMPARE(satellite.session.settings.eventDirectory, u"\\\\Host\\Tshare\\"_s);
        QCOMPARE(computers(), 2);
        QVERIFY(QDir().rmdir(init));
        QVERIFY(endNetworkMode(satellite.session));
        QCOMPARE(computers(), 1);
        QCOMPARE(satellite.session.settings.eventDirectory, u"C:\\Trelawn\\"_s);
        QVERIFY(satellite.read(u"Init"_s).contains("C:\\Trelawn\\"));
        QVERIFY(endNetworkMode(master.session));
        QCOMPARE(computers(), 0);
    }

    void failedStarts()
    {
        Computer master{QString()};
        QVERIFY_THROWS_EXCEPTION(FileError, startAsMaster(master.session, u"HOST"_s));
        QVERIFY(!master.session.settings.isNetworked());
        QCOMPARE(master.session.settings.eventDirectory, u"\\\\HOST\\Tshare\\"_s);

        QTemporaryDir share;
        Computer satellite(share.path());
        QVERIFY_THROWS_EXCEPTION(FileError, startAsSatellite(satellite.session, u"HOST"_s));
        QFile damaged(share.filePath(u"res"_s));
        QVERIFY(damaged.open(QIODevice::WriteOnly) && damaged.write("junk") == 4);
        damaged.close();
        QVERIFY_THROWS_EXCEPTION(FileError, startAsSatellite(satellite.session, u"HOST"_s));
        QCOMPARE(satellite.session.settings.eventDirectory, u"C:\\Trelawn\\"_s);
        QVERIFY(!satellite.session.settings.isNetworked());
    }

    // The share may vanish in mid-event: the computer goes local all the same and tells.
    void endsWithoutTheShare()
    {
        QTemporaryDir share;
        Computer master(share.path());
        startAsMaster(master.session, u"HOST"_s);
        QVERIFY(share.remove());
        QVERIFY(!endNetworkMode(master.session));
        QCOMPARE(master.session.settings.eventDirectory, u"C:\\Trelawn\\"_s);
        QVERIFY(!master.session.settings.isNetworked());
    }

    // The dialogue on the menu: what each answer leads to.
    void startedFromTheMenu_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("status");
        QTest::addColumn<QString>("directory");
        const QString own = networkNameOf(QSysInfo::machineHostName());
        const QString local = u"C:\\Trelawn\\"_s;
        QTest::newRow("Cancel leaves everything")
            << int(Answer::Cancel) << QString() << QString() << local;
        QTest::newRow("master") << int(Answer::Yes) << QString()
                                << u"Using networked files as master computer"_s
                                << shareFolder(own);
        QTest::newRow("master without a share")
            << int(Answer::Yes) << u"missing"_s << QString() << shareFolder(own);
        QTest::newRow("satellite")
            << int(Answer::No) << u"HOST"_s << u"Using networked files as satellite computer"_s
            << shareFolder(u"HOST"_s);
        QTest::newRow("satellite of a wrong name")
            << int(Answer::No) << u"NOBODY"_s << QString() << local;
        QTest::newRow("satellite without an answer")
            << int(Answer::No) << u""_s << QString() << local;
    }
    void startedFromTheMenu()
    {
        QFETCH(int, answer);
        QFETCH(QString, typed);
        QFETCH(QString, status);
        const QString own = networkNameOf(QSysInfo::machineHostName());
        QTemporaryDir share;
        Computer other(share.path());
        startAsMaster(other.session, u"HOST"_s);
        Computer computer(share.path());
        if (typed != "missing"_L1) {
            QDir().mkpath(computer.network() + "/../"_L1 + own);
            QFile::link(share.path(), computer.network() + "/../"_L1 + own + "/Tshare"_L1);
        }

        BoxRobot boxes;
        const QString none;
        boxes.expect(u"Is this the master computer?"_s, u"TRELAWN"_s, Answer(answer));
        if (answer == int(Answer::Yes)) {
            boxes.expect("Master computer name is "_L1 + own
                             + " Make a note - you will need to enter this name on satellite "
                               "computers"_L1,
                         u"TRELAWN"_s);
            if (typed == "missing"_L1)
                boxes.expect(u"Network not available - ending network mode"_s, u"TRELAWN"_s);
        } else if (answer == int(Answer::No)) {
            boxes.expectInput(u"Enter master computer name"_s, u"Networked Input"_s, typed);
            if (typed == "NOBODY"_L1)
                boxes.expect(u"Invalid master computer name"_s, u"TRELAWN"_s);
        }
        clickButton(computer.open(u"frmmenub"_s), u"cmdstartnw"_s);
        QVERIFY(boxes.allCame());
        const Settings &settings = computer.session.settings;
        QCOMPARE(settings.isNetworked(), !status.isEmpty());
        QTEST(settings.eventDirectory, "directory");
        QTEST(labelText(computer.current(), u"lblnetwork"_s), "status");
        QCOMPARE(child<QWidget>(computer.current(), u"cmdendnw"_s)->isEnabled(), !status.isEmpty());
        if (status.isEmpty())
            return;
        clickButton(computer.current(), u"cmdbet"_s);
        QCOMPARE(computer.navigator().currentName(), u"frmsheetbnw"_s);
        QCOMPARE(computer.navigator().window()->windowTitle(),
                 u"Using network files as master computer"_s);
        clickButton(computer.open(u"frmmenub"_s), u"cmdendnw"_s);
        QVERIFY(!settings.isNetworked());
        QCOMPARE(settings.eventDirectory, u"C:\\Trelawn\\"_s);
        QCOMPARE(labelText(computer.current(), u"lblnetwork"_s), none);
    }
};

TRELAWN_TEST(tst_networkmode)
#include "tst_networkmode.moc"
