#include "kit/testkit.h"

class tst_eventfiles : public QObject
{
    Q_OBJECT

private slots:
    void newEvent()
    {
        TestEvent event(false);
        event.session.settings.eventDirectory = u"D:\\Party\\2026\\"_s;
        QCOMPARE(CreateEventFiles(event.session), QString());
        QByteArray unused;
        for (int post = 1; post <= 21; ++post)
            unused += QByteArray::number(post) + ",0,\"  \",\"\"\r\n";
        QCOMPARE(event.readTwins(u"Bettors"_s), QByteArray("1,\"AnyBettor\"\r\n"));
        QStringList expected = TestEvent::twins(u"Bettors"_s);
        for (const QString &name : {u"Bets"_s, u"Multibets"_s, u"Horses"_s}) {
            for (int race = 1; race <= 12; ++race) {
                const QString file = name + u" Race" + QString::number(race);
                expected << TestEvent::twins(file);
                QCOMPARE(event.readTwins(file), name == "Horses"_L1 ? unused : QByteArray());
            }
        }
        expected.sort();
        QCOMPARE(QDir(event.path({}))
                     .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name),
                 expected);
        // Init stays on its drive.
        QVERIFY(event.read(u"C:\\Trelawn\\Init"_s).contains(",\"D:\\Party\\2026\\\","));
    }

    void existingFilesAreNotTouched()
    {
        TestEvent event;
        const QStringList names{u"Bets Race3"_s, u"Multibets Race4"_s, u"Horses Race5"_s,
                                u"Bettors"_s, u"Betsbackup Race3"_s};
        for (const QString &name : names)
            event.write(name, "damaged \"but mine");
        event.write(u"Horses Race6"_s, {});
        QCOMPARE(CreateEventFiles(event.session), QString());
        for (const QString &name : names)
            QCOMPARE(event.read(name), QByteArray("damaged \"but mine"));
        QCOMPARE(event.read(u"Horses Race6"_s), QByteArray());
        QCOMPARE(event.saved(), QStringList());
    }

    void fullTwinOfMissingFileIsKept()
    {
        const QByteArray oneBet = "7,4,1,2.5\r\n";
        for (const QString &name : {u"Bets Race3"_s, u"Horses Race1"_s, u"Bettors"_s}) {
            const QString twin = TestEvent::twins(name).last();
            TestEvent event;
            const QByteArray fresh = event.read(name);
            event.write(twin, oneBet);
            event.remove({name});
            const QString note = CreateEventFiles(event.session);
            QCOMPARE(event.readTwins(name), fresh);
            QCOMPARE(event.savedCopies(twin), QByteArrayList{oneBet});
            QCOMPARE(note, twin + " was moved to Saved as "_L1 + event.saved().value(0));
        }
    }

    void unusableDirectory()
    {
        Rows<QString, int> rows;
        rows("no such drive", u"Q:\\Party\\"_s, 68);
        rows("two colons", u"C::\\Party\\"_s, 52);
        rows("none", {}, 76);
        rows("a share of nobody is not made here", u"\\\\MASTER\\Tshare\\"_s, 76);
        rows("a file has its name", u"C:\\Trelawn\\Taken\\"_s, 75);
        TestEvent event;
        event.write(u"Taken"_s, "x");
        for (const auto &[row, directory, error] : rows) {
            event.session.settings.eventDirectory = directory;
            QCOMPARE(errorOf([&] { CreateEventFiles(event.session); }), error);
            QCOMPARE(event.session.settings.operationLabel, u"Bets drivedir-Setup"_s);
        }
        event.session.settings.eventDirectory = u"C:\\Trelawn\\"_s;
        event.block(u"Horses Race2"_s); // a folder has the file's name
        QCOMPARE(errorOf([&] { CreateEventFiles(event.session); }), 75);
        QCOMPARE(event.session.settings.operationLabel, u"Horses input-Setup"_s);
    }

    void keepInSaved()
    {
        TestEvent event;
        const QString path = event.path(u"Bets Race1"_s);
        QCOMPARE(::keepInSaved(event.session, path), QString());
        QCOMPARE(::keepInSaved(event.session, event.path(u"Nothing"_s)), QString());
        QVERIFY(!event.exists(u"Saved"_s));
        // Copies of one moment never take each other's name.
        for (int copy = 0; copy < 40; ++copy) {
            event.write(u"Bets Race1"_s, QByteArray::number(copy));
            const QString name = ::keepInSaved(event.session, path);
            QCOMPARE(event.read("Saved\\"_L1 + name), QByteArray::number(copy));
        }
        QCOMPARE(event.saved().size(), 40);
    }

    // The newest hundred copies of a file stay, with all of today; other files are left alone.
    void thinsSaved()
    {
        TestEvent event;
        const auto copy = [](const QString &file, int hour, int minute) {
            return u"Saved\\%1 2020-05-02 %2.%3.00.000"_s.arg(file).arg(hour).arg(minute, 2, 10,
                                                                                  QChar(u'0'));
        };
        for (int minute = 0; minute < 60; ++minute) {
            event.write(copy(u"Bets Race1"_s, 20, minute), "old");
            event.write(copy(u"Bets Race1"_s, 21, minute), "newer");
        }
        const QStringList others{copy(u"Betsbackup Race1"_s, 20, 1), copy(u"Bets Race11"_s, 20, 1),
                                 u"Saved\\Bets Race1 of ours"_s};
        for (const QString &other : others)
            event.write(other, "other");
        for (int today = 0; today < 2; ++today) {
            event.write(u"Bets Race1"_s, "now");
            ::keepInSaved(event.session, event.path(u"Bets Race1"_s));
        }
        QCOMPARE(event.savedCopies(u"Bets Race1"_s).count("now"), 2);
        QCOMPARE(event.saved().size(), 100 + 3);
        QVERIFY(!event.exists(copy(u"Bets Race1"_s, 20, 21))
                && event.exists(copy(u"Bets Race1"_s, 20, 22)));
        for (const QString &other : others)
            QVERIFY(event.exists(other));
    }
};

TRELAWN_TEST(tst_eventfiles)
#include "tst_eventfiles.moc"
