#include "common/event/eventfiles.h"
#include "common/event/racefiles.h"
#include "common/files/fileerror.h"
#include "kit/testkit.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

const QByteArray oneBet = "7,4,1,2.5\r\n";

} // namespace

class tst_eventfiles : public QObject
{
    Q_OBJECT

private slots:
    void newEvent();
    void existingFilesAreNotTouched();
    void fullTwinOfMissingFileIsKept();
    void unusableDirectory();
    void fileInTheWayIsReported();
    void keepInSaved();
};

void tst_eventfiles::newEvent()
{
    TestEvent event(false);
    event.session.settings.eventDirectory = u"D:\\Party\\2026\\"_s;
    QCOMPARE(CreateEventFiles(event.session), QString());
    QByteArray unused;
    for (int post = 1; post <= 21; ++post)
        unused += QByteArray::number(post) + ",0,\"  \",\"\"\r\n";
    const QMap<QString, QByteArray> contents{
        {u"Bets"_s, {}}, {u"Multibets"_s, {}}, {u"Horses"_s, unused}};
    QStringList expected{u"Bettors"_s, u"Bettorsbackup"_s};
    for (int race = 1; race <= 12; ++race) {
        for (const auto &[name, bytes] : contents.asKeyValueRange()) {
            for (const QString &file : {name, QString(name + u"backup")}) {
                expected << file + u" Race" + QString::number(race);
                QCOMPARE(event.read(expected.back()), bytes);
            }
        }
    }
    for (const QString &file : {u"Bettors"_s, u"Bettorsbackup"_s})
        QCOMPARE(event.read(file), QByteArray("1,\"AnyBettor\"\r\n"));
    expected.sort();
    QCOMPARE(QDir(event.path({}))
                 .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name),
             expected);
    // Init stays on its drive.
    event.session.settings.eventDirectory = u"C:\\Trelawn\\"_s;
    QVERIFY(event.read(u"Init"_s).contains(",\"D:\\Party\\2026\\\","));
}

void tst_eventfiles::existingFilesAreNotTouched()
{
    TestEvent event;
    const QStringList names{u"Bets Race3"_s, u"Multibets Race4"_s, u"Horses Race5"_s, u"Bettors"_s,
                            u"Betsbackup Race3"_s};
    for (const QString &name : names)
        event.write(name, "damaged \"but mine");
    event.write(u"Horses Race6"_s, {});
    QCOMPARE(CreateEventFiles(event.session), QString());
    for (const QString &name : names)
        QCOMPARE(event.read(name), QByteArray("damaged \"but mine"));
    QCOMPARE(event.read(u"Horses Race6"_s), QByteArray());
    QCOMPARE(event.saved(), QStringList());
}

void tst_eventfiles::fullTwinOfMissingFileIsKept()
{
    for (const QString &base : {u"Bets%1 Race3"_s, u"Horses%1 Race1"_s, u"Bettors%1"_s}) {
        const QString name = base.arg(QString());
        const QString twin = base.arg(u"backup"_s);
        TestEvent event;
        const QByteArray fresh = event.read(name);
        event.write(twin, oneBet);
        QVERIFY(QFile::remove(event.path(name)));
        const QString note = CreateEventFiles(event.session);
        QCOMPARE(event.read(name), fresh);
        QCOMPARE(event.read(twin), fresh);
        QCOMPARE(event.savedCopies(twin), QByteArrayList{oneBet});
        QCOMPARE(note, twin + " was moved to Saved as "_L1 + event.saved().value(0));
    }
}

void tst_eventfiles::unusableDirectory()
{
    const std::pair<QString, int> directories[] = {
        {u"Q:\\Party\\"_s, 68},  // no such drive
        {u"C::\\Party\\"_s, 52}, // two colons
        {{}, 76},
        {u"\\\\MASTER\\Tshare\\"_s, 76},  // a share of nobody is not made here
        {u"C:\\Trelawn\\Taken\\"_s, 75}}; // a file has its name
    TestEvent event(false);
    event.write(u"Taken"_s, "x");
    for (const auto &[directory, error] : directories) {
        event.session.settings.eventDirectory = directory;
        QCOMPARE(errorOf([&] { CreateEventFiles(event.session); }), error);
        QCOMPARE(event.session.settings.operationLabel, u"Bets drivedir-Setup"_s);
    }
}

void tst_eventfiles::fileInTheWayIsReported()
{
    TestEvent event;
    QVERIFY(QFile::remove(event.path(u"Horses Race2"_s)));
    QVERIFY(QDir().mkdir(event.path(u"Horses Race2"_s)));
    QCOMPARE(errorOf([&] { CreateEventFiles(event.session); }), 75);
    QCOMPARE(event.session.settings.operationLabel, u"Horses input-Setup"_s);
}

void tst_eventfiles::keepInSaved()
{
    TestEvent event;
    const QString path = event.path(u"Bets Race1"_s);
    QCOMPARE(::keepInSaved(event.session, path), QString());
    QCOMPARE(::keepInSaved(event.session, event.path(u"Nothing"_s)), QString());
    QVERIFY(!event.exists(u"Saved"_s));
    // Copies of one moment never take each other's name.
    QSet<QString> names;
    for (int copy = 0; copy < 40; ++copy) {
        event.write(u"Bets Race1"_s, QByteArray::number(copy));
        const QString name = ::keepInSaved(event.session, path);
        QCOMPARE(event.read("Saved\\"_L1 + name), QByteArray::number(copy));
        names.insert(name);
    }
    QCOMPARE(names.size(), 40);
    QCOMPARE(event.saved().size(), 40);
}

TRELAWN_TEST(tst_eventfiles)
#include "tst_eventfiles.moc"
