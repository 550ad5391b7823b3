#include "common/files/hostpath.h"
#include "kit/testkit.h"

class tst_hostpath : public QObject
{
    Q_OBJECT

private slots:
    void toHost()
    {
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkpath(u"drives/Q"_s));
        const HostPaths paths = HostPaths::sealed(folder.path());
        // The path, where it lies below the data folder, and the error when it lies nowhere.
        const std::tuple<QString, QString, int> cases[] = {
            {u"C:\\Trelawn\\Bets Race1"_s, u"/drives/C/Trelawn/Bets Race1"_s, 0},
            {u"D:\\Party\\"_s, u"/drives/D/Party"_s, 0},
            {u"c:\\Trelawn"_s, u"/drives/C/Trelawn"_s, 0},
            {u"C:\\..\\..\\..\\etc"_s, u"/drives/C/etc"_s, 0}, // never above the root
            {u"\\\\DESK-PC\\Tshare\\Bets Race1"_s, u"/network/DESK-PC/Tshare/Bets Race1"_s, 0},
            {u"\\\\DESK-PC\\Tshare/../x"_s, {}, 52},
            {u"\\\\DESK-PC\\"_s, {}, 52}, // a computer without a share
            {u"W:\\x"_s, {}, 68},
            {u"Trelawn\\Bets"_s, {}, 52},
            {u"C:Trelawn"_s, {}, 52},
            {u"C:"_s, u"/drives/C"_s, 0},
            {u"C:\\CONCERT\\com10"_s, u"/drives/C/CONCERT/com10"_s, 0},
            {u"C:\\con\\Bets"_s, {}, 52}, // names that some system cannot open
            {u"C:\\Lpt1.old"_s, {}, 52},
            {u"C:\\Party.\\Bets"_s, {}, 52},
            {u"C:\\Party \\Bets"_s, {}, 52}};
        for (const auto &[path, below, error] : cases) {
            QString found;
            QCOMPARE(errorOf([&, &path = path] {
                         found = paths.toHost(path).mid(folder.path().size());
                     }),
                     error);
            QCOMPARE(found, below);
        }
        QVERIFY(QDir(folder.filePath(u"drives/C"_s)).exists());
    }

    void drives()
    {
        SKIP_ON_WINDOWS();
        const QTemporaryDir folder;
        const QTemporaryDir stick;
        for (const QString &name : {u"drives/Q"_s, u"drives/q"_s, u"drives/Long"_s})
            QVERIFY(QDir(folder.path()).mkpath(name));
        QVERIFY(QFile::link(stick.path(), folder.filePath(u"drives/M"_s)));
        QStringList names;
        const auto drives = HostPaths(folder.path()).drives();
        for (const Drive &drive : drives)
            names << drive.name;
        for (const QString &name : {u"C:"_s, u"D:"_s, u"E:"_s, u"M:"_s, u"Q:"_s})
            QCOMPARE(names.count(name), 1);
        QVERIFY(!names.contains(u"q:"_s));
        QVERIFY(std::ranges::is_sorted(names));
        QCOMPARE(HostPaths(folder.path()).toHost(u"M:\\Trelawn"_s),
                 folder.filePath(u"drives/M/Trelawn"_s));
    }
};

TRELAWN_TEST(tst_hostpath)
#include "tst_hostpath.moc"
