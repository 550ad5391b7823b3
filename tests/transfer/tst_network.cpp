#include "common/eventfiles.h"
#include "common/fileerror.h"
#include "common/init.h"
#include "kit/testkit.h"
#include "transfer/network.h"

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

class tst_network : public QObject
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

    void damagedMarkersDoNotDecode_data()
    {
        const QByteArray good = encodeShareRecord({u"\\\\HOST\\Tshare\\"_s, u"HOST"_s, 3});
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("cut off") << good.left(127);
        QTest::newRow("too long") << good + '\0';
        QTest::newRow("nothing but zeros") << QByteArray(128, '\0');
        QTest::newRow("a length beyond the record") << "\xff\x7f" + good.mid(2);
    }
    void damagedMarkersDoNotDecode()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!decodeShareRecord(bytes));
    }

    void computerNames_data()
    {
        QTest::addColumn<QString>("host");
        QTest::addColumn<QString>("name");
        QTest::newRow("upper case") << u"desk"_s << u"DESK"_s;
        QTest::newRow("up to the first dot") << u"desk.club.lan"_s << u"DESK"_s;
        QTest::newRow("15 characters") << u"averyveryverylongname"_s << u"AVERYVERYVERYLO"_s;
    }
    void computerNames()
    {
        QFETCH(QString, host);
        QTEST(networkNameOf(host), "name");
    }

    void mastersAndSatellitesCountThemselves()
    {
        QTemporaryDir share;
        Computer master(share.path());
        Computer satellite(share.path());
        startAsMaster(master.session, u"HOST"_s);
        QCOMPARE(master.session.settings.networkMode, 1);
        QCOMPARE(master.session.settings.eventDirectory, u"\\\\HOST\\Tshare\\"_s);
        QVERIFY(QFileInfo::exists(share.filePath(u"Betsbackup Race12"_s)));
        QVERIFY(!QFileInfo::exists(share.filePath(u"Init"_s)));

        startAsSatellite(satellite.session, u"HOST"_s);
        QCOMPARE(satellite.session.settings.networkMode, 1);
        const auto computers = [&share] {
            QFile file(share.filePath(u"res"_s));
            return file.open(QIODevice::ReadOnly) ? decodeShareRecord(file.readAll())->computers
                                                  : -1;
        };
        QCOMPARE(computers(), 2);
        startAsMaster(master.session, u"HOST"_s);
        QCOMPARE(computers(), 2); // an old record is written back as it was

        QVERIFY(endNetworkMode(satellite.session));
        QCOMPARE(computers(), 1);
        QCOMPARE(satellite.session.settings.eventDirectory, u"C:\\Trelawn\\"_s);
        QVERIFY(satellite.read(u"Init"_s).contains("C:\\Trelawn\\"));
        QVERIFY(endNetworkMode(master.session));
        QCOMPARE(computers(), 0);
    }

    // Init names the local directory throughout, so that a restart finds it.
    void initKeepsTheLocalDirectory()
    {
        QTemporaryDir share;
        Computer master(share.path());
        startAsMaster(master.session, u"HOST"_s);
        saveInit(master.session);
        QFile init(master.session.paths.toHost(u"C:\\Trelawn\\Init"_s));
        QVERIFY(init.open(QIODevice::ReadOnly));
        QVERIFY(init.readAll().contains("C:\\Trelawn\\"));
    }

    void failedStarts()
    {
        Computer master{QString()};
        QVERIFY_THROWS_EXCEPTION(FileError, startAsMaster(master.session, u"HOST"_s));
        QCOMPARE(master.session.settings.networkMode, 0);
        QCOMPARE(master.session.settings.eventDirectory, u"\\\\HOST\\Tshare\\"_s);

        QTemporaryDir share;
        Computer satellite(share.path());
        QVERIFY_THROWS_EXCEPTION(FileError, startAsSatellite(satellite.session, u"HOST"_s));
        QFile damaged(share.filePath(u"res"_s));
        QVERIFY(damaged.open(QIODevice::WriteOnly) && damaged.write("junk") == 4);
        damaged.close();
        QVERIFY_THROWS_EXCEPTION(FileError, startAsSatellite(satellite.session, u"HOST"_s));
        QCOMPARE(satellite.session.settings.eventDirectory, u"C:\\Trelawn\\"_s);
        QCOMPARE(satellite.session.settings.networkMode, 0);
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
        QCOMPARE(master.session.settings.networkMode, 0);
    }
};

TRELAWN_TEST_MAIN(tst_network)
#include "tst_network.moc"
