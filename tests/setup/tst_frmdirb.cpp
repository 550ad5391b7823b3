#include "common/files/recordfile.h"
#include "kit/screentest.h"
#include "setup/eventfolders.h"

class tst_frmdirb : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin();
        makeFolder(event->path(u"Party"_s));
        open(u"frmdirb"_s);
    }

    void shows()
    {
        QCOMPARE(directory(), u"C:\\Trelawn\\"_s);
        QCOMPARE(foldersShown(), (QStringList{u"C:\\"_s, u"Trelawn"_s, u"Party"_s}));
        QCOMPARE(foldersAbove(u"D:\\A\\"_s), (QStringList{u"D:\\"_s, u"D:\\A\\"_s}));
        QCOMPARE(foldersAbove(u"\\\\TABLE1\\Tshare\\A\\"_s),
                 (QStringList{u"\\\\TABLE1\\Tshare\\"_s, u"\\\\TABLE1\\Tshare\\A\\"_s}));
    }

    // A second event in a folder of its own, entered through the menu, and back to the first.
    void secondEventAndBack()
    {
        event->session.settings.started = true;
        event->write(u"Bets Race1"_s, "1,1,1,5\r\n");
        enterNew(u"Second"_s);
        // Made, selected and pointed out, but not yet the event directory.
        QCOMPARE(child<QTreeWidget>(screen(), u"Dir1"_s)->currentItem()->text(0), u"Second"_s);
        QVERIFY(!label(u"lblhint"_s).isEmpty());
        QCOMPARE(directory(), u"C:\\Trelawn\\"_s);
        QVERIFY(initFile().contains(",1,2,3,4,5,20000,"));
        openFolder(u"Second"_s);
        QCOMPARE(directory(), u"C:\\Trelawn\\Second\\"_s);
        QVERIFY(label(u"lblhint"_s).isEmpty());
        QVERIFY(initFile().contains(",\"C:\\Trelawn\\Second\\\","));
        press(u"cmdreturn"_s);
        press(u"cmdok"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s));
        QCOMPARE(event->read(u"Bets Race1"_s), "");
        QVERIFY(event->exists(u"Multibetsbackup Race12"_s));
        press(u"cmdsetup"_s);
        press(u"Command1"_s);
        openFolder(u"Trelawn"_s);
        QCOMPARE(event->read(u"Bets Race1"_s), "1,1,1,5\r\n");
    }

    // The root of a drive has one backslash; choosing it does not touch Init, opening it does. When
    // Init cannot be written the event stays where it was.
    void drive()
    {
        const QByteArray before = initFile();
        select(u"Drive1"_s, u"D:\\"_s);
        QCOMPARE(directory(), u"D:\\"_s);
        QCOMPARE(foldersShown(), QStringList{u"D:\\"_s});
        QCOMPARE(initFile(), before);
        openFolder(u"D:\\"_s);
        QVERIFY(initFile().contains("\"D:\\\",0,"));
        select(u"Drive1"_s, u"C:\\"_s);
        event->block(u"C:\\Trelawn\\Init"_s);
        expect(u"Path/File access error Init output-Directory"_s, u"Init output-Directory"_s);
        openFolder(u"Trelawn"_s);
        QCOMPARE(directory(), u"C:\\"_s);
    }

    // A drive that went away is told once, and another can be chosen.
    void driveGone()
    {
        const QString stick = event->path(u"C:\\"_s) + u"/../G"_s;
        makeFolder(stick);
        open(u"frmdirb"_s);
        QDir(stick).removeRecursively();
        expect(u"Device unavailable Directory-Drive"_s, u"Directory-Drive"_s);
        select(u"Drive1"_s, u"G:\\"_s);
        QCOMPARE(directory(), u"C:\\Trelawn\\"_s);
        event->session.settings.eventDirectory = u"G:\\Party\\"_s;
        expect(u"Device unavailable Directory-Open"_s, u"Directory-Open"_s);
        open(u"frmdirb"_s);
        QCOMPARE(directory(), u"G:\\Party\\"_s);
        select(u"Drive1"_s, u"D:\\"_s);
        QCOMPARE(directory(), u"D:\\"_s);
    }

    void names()
    {
        const auto folders = [&] {
            return foldersInside(event->session.paths, u"C:\\Trelawn\\"_s);
        };
        // What is typed leads to a complaint, or to nothing; only the last is a name.
        QList<std::pair<QString, QString>> typed{
            {{}, {}}, {u""_s, {}}, {u"Party"_s, u"Path/File access error Directory-New"_s}};
        for (const QString &name : {u"a\\b"_s, u"a/b"_s, u"a:b"_s, u"a*b"_s, u"a?b"_s, u"a\"b"_s,
                                    u"a<b"_s, u"a>b"_s, u"a|b"_s, u".."_s, u"."_s})
            typed.append({name, u"Bad file name or number Directory-New"_s});
        for (const auto &[name, complaint] : typed) {
            enterNew(name, complaint);
            QVERIFY2(event->boxes.allCame(), qPrintable(name));
            QCOMPARE(folders(), QStringList{u"Party"_s});
        }
        enterNew(u"Derby Day 2026"_s);
        QCOMPARE(folders(), (QStringList{u"Derby Day 2026"_s, u"Party"_s}));
        QCOMPARE(directory(), u"C:\\Trelawn\\"_s);
    }

private:
    QByteArray initFile() const { return event->read(u"C:\\Trelawn\\Init"_s); }

    // The event directory, as it is shown; the session's must be the same.
    QString directory()
    {
        const QString shown = text(u"txtdrivedir"_s);
        const QString held = event->session.settings.eventDirectory;
        return shown == held ? shown : shown + u" but held is "_s + held;
    }

    void enterNew(const QString &name, const QString &complaint = {})
    {
        expectInput(u"Enter new directory name"_s, u"Directory"_s, name);
        if (!complaint.isEmpty())
            expect(complaint, u"Directory-New"_s);
        press(u"cmdnew"_s);
    }

    QStringList foldersShown()
    {
        QStringList texts;
        for (QTreeWidgetItemIterator item(child<QTreeWidget>(screen(), u"Dir1"_s)); *item; ++item)
            texts << (*item)->text(0);
        return texts;
    }

    // A double click on a folder, as the operator does it.
    void openFolder(const QString &text)
    {
        auto *tree = child<QTreeWidget>(screen(), u"Dir1"_s);
        const auto items = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        QCOMPARE(items.size(), 1);
        const QPoint at = tree->visualItemRect(items.first()).center();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
        QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
        QCoreApplication::processEvents();
    }
};

TRELAWN_TEST(tst_frmdirb)
#include "tst_frmdirb.moc"
