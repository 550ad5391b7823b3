#include "common/files/hostsystem.h"
#include "common/files/networkmounts.h"
#include "kit/testkit.h"

#include <cerrno>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

class tst_hostsystem : public QObject
{
    Q_OBJECT

private slots:
    void errorsOfWindows()
    {
        const std::pair<QList<unsigned long>, int> cases[] = {
            {{2}, 53},  {{3, 53, 64, 67}, 76}, {{5, 32, 33}, 70}, {{15}, 68},   {{19, 80}, 75},
            {{21}, 71}, {{39, 112}, 61},       {{123, 206}, 52},  {{0, 31}, 57}};
        for (const auto &[codes, number] : cases) {
            for (const unsigned long code : codes)
                QCOMPARE(int(errorFromWindows(code)), number);
        }
    }

    // What another program holds is tried again, what fails for good is not.
    void patience()
    {
#ifdef Q_OS_WIN
        constexpr unsigned long held = ERROR_SHARING_VIOLATION, full = ERROR_DISK_FULL;
        const auto fail = SetLastError;
#else
        constexpr int held = EBUSY, full = ENOSPC;
        const auto fail = [](int error) { errno = error; };
#endif
        for (const auto &[error, tries] : {std::pair(held, 3), std::pair(full, 1)}) {
            int tried = 0;
            const bool done = patiently([&, error = error] {
                fail(error);
                return ++tried == 3;
            });
            QCOMPARE(tried, tries);
            QCOMPARE(done, tries == 3);
        }
        QCOMPARE(int(systemError()), int(ErrorNumber::DiskFull));
    }

    void shares()
    {
        const QList<NetworkMount> mounts{
            networkMount(u"//anna@Desk.local/Tshare"_s, u"/a"_s).value(),
            networkMount(u"//10.0.0.5/tshare"_s, u"/b"_s).value(),
            networkMount(u"//bar/Tshare"_s, u"/c"_s, u"rw,addr=10.0.0.7,vers=3"_s).value(),
            fileManagerMount(u"/run/smb-share:server=tent,share=tshare,user=bo"_s).value()};
        QVERIFY(!networkMount(u"//desk/Tshare/inside"_s, u"/d"_s));
        QVERIFY(!networkMount(u"/dev/sda1"_s, u"/e"_s));
        const auto addressesOf = [](const QString &name) {
            return name == u"door"_s ? QStringList(u"10.0.0.5"_s) : QStringList();
        };
        const std::pair<QString, QString> cases[] = {
            {u"DESK"_s, u"/a"_s},
            {u"desk.local"_s, u"/a"_s},
            {u"desk.other"_s, {}},
            {u"des"_s, {}},
            {u"10.0.0.5"_s, u"/b"_s},
            {u"door"_s, u"/b"_s},
            {u"10"_s, {}},
            {u"10.0.0.7"_s, u"/c"_s},
            {u"bar.local"_s, u"/c"_s},
            {u"TENT"_s, u"/run/smb-share:server=tent,share=tshare,user=bo"_s}};
        for (const auto &[computer, root] : cases) {
            const auto found = mountOfShare(mounts, computer, u"TSHARE"_s, addressesOf);
            QCOMPARE(found ? found->root : QString(), root);
        }
    }
};

TRELAWN_TEST(tst_hostsystem)
#include "tst_hostsystem.moc"
