#include "common/fileerror.h"
#include "common/hostpath.h"
#include "kit/testkit.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

class tst_hostpath : public QObject
{
    Q_OBJECT

private slots:
    void toHost_data();
    void toHost();
    void drives();
};

void tst_hostpath::toHost_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("below"); // the data folder
    QTest::addColumn<int>("error");
    const auto row = [](const char *name, const QString &path, const QString &below,
                        int error = 0) { QTest::newRow(name) << path << below << error; };
    row("file on a drive", u"C:\\Trelawn\\Bets Race1"_s, u"/drives/C/Trelawn/Bets Race1"_s);
    row("folder ends in a backslash", u"D:\\Party\\"_s, u"/drives/D/Party"_s);
    row("small letter", u"c:\\Trelawn"_s, u"/drives/C/Trelawn"_s);
    row("above the root is the root", u"C:\\..\\..\\..\\etc"_s, u"/drives/C/etc"_s);
    row("network share", u"\\\\DESK-PC\\Tshare\\Bets Race1"_s,
        u"/network/DESK-PC/Tshare/Bets Race1"_s);
    row("above the share, other slashes", u"\\\\DESK-PC\\Tshare/../x"_s, {}, 52);
    row("computer without a share", u"\\\\DESK-PC\\"_s, {}, 52);
    row("no such drive", u"W:\\x"_s, {}, 68);
    row("neither drive nor computer", u"Trelawn\\Bets"_s, {}, 52);
}

void tst_hostpath::toHost()
{
    QFETCH(QString, path);
    QFETCH(int, error);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(u"drives/Q"_s));
    const HostPaths paths(folder.path());
    QString found;
    QCOMPARE(errorOf([&] { found = paths.toHost(path).mid(folder.path().size()); }), error);
    QTEST(found, "below");
    if (path.startsWith("C:"_L1))
        QVERIFY(QDir(folder.filePath(u"drives/C"_s)).exists());
}

void tst_hostpath::drives()
{
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

TRELAWN_TEST_MAIN(tst_hostpath)
#include "tst_hostpath.moc"
