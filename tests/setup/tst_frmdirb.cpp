#include "common/files/recordfile.h"
#include "kit/testkit.h"
#include "setup/eventfolders.h"

namespace {

QList<QTreeWidgetItem *> items(QWidget *screen)
{
    QList<QTreeWidgetItem *> found;
    for (QTreeWidgetItemIterator item(child<QTreeWidget>(screen, u"Dir1"_s)); *item; ++item)
        found << *item;
    return found;
}

// A double click on a folder, as the operator does it.
void openFolder(QWidget *screen, const QString &text)
{
    for (const QTreeWidgetItem *item : items(screen)) {
        if (item->text(0) == text) {
            auto *tree = child<QTreeWidget>(screen, u"Dir1"_s);
            const QPoint at = tree->visualItemRect(item).center();
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
            QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
            QCoreApplication::processEvents();
            return;
        }
    }
    qFatal("no folder %s", qPrintable(text));
}

QStringList foldersShown(QWidget *screen)
{
    QStringList texts;
    for (const QTreeWidgetItem *item : items(screen))
        texts << item->text(0);
    return texts;
}

QByteArray initFile(const TestEvent &event)
{
    QFile file(event.session.paths.toHost(u"C:\\Trelawn\\Init"_s));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void expectNew(TestEvent &event, const QString &name)
{
    event.boxes.expectInput(u"Enter new directory name"_s, u"Directory"_s, name);
}

} // namespace

class tst_frmdirb : public QObject
{
    Q_OBJECT

private slots:
    void shows()
    {
        TestEvent event(false);
        makeFolder(event.path(u"Party"_s));
        QWidget *screen = event.open(u"frmdirb"_s);
        QCOMPARE(fieldText(screen, u"txtdrivedir"_s), u"C:\\Trelawn\\"_s);
        QCOMPARE(child<QListWidget>(screen, u"Drive1"_s)->currentItem()->text(), u"C:\\"_s);
        QCOMPARE(foldersShown(screen), (QStringList{u"C:\\"_s, u"Trelawn"_s, u"Party"_s}));
        QCOMPARE(foldersAbove(u"D:\\A\\"_s), (QStringList{u"D:\\"_s, u"D:\\A\\"_s}));
        QCOMPARE(foldersAbove(u"\\\\TABLE1\\Tshare\\A\\"_s),
                 (QStringList{u"\\\\TABLE1\\Tshare\\"_s, u"\\\\TABLE1\\Tshare\\A\\"_s}));
    }

    // A second event in a folder of its own, entered through the menu, and back to the first.
    void secondEventAndBack()
    {
        TestEvent event;
        event.session.settings.started = true;
        event.write(u"Bets Race1"_s, "1,1,1,5\r\n");
        QWidget *setup = event.open(u"frminitb"_s);
        clickButton(setup, u"Command1"_s);
        expectNew(event, u"Party"_s);
        clickButton(event.current(), u"cmdnew"_s);

        // Made, selected and pointed out, but not yet the event directory.
        QWidget *screen = event.current();
        QCOMPARE(child<QTreeWidget>(screen, u"Dir1"_s)->currentItem()->text(0), u"Party"_s);
        QVERIFY(!labelText(screen, u"lblhint"_s).isEmpty());
        QCOMPARE(fieldText(screen, u"txtdrivedir"_s), u"C:\\Trelawn\\"_s);
        QVERIFY(initFile(event).contains(",\"C:\\Trelawn\\\","));
        QVERIFY(initFile(event).contains(",1,2,3,4,5,20000,"));

        openFolder(screen, u"Party"_s);
        QCOMPARE(fieldText(screen, u"txtdrivedir"_s), u"C:\\Trelawn\\Party\\"_s);
        QVERIFY(labelText(screen, u"lblhint"_s).isEmpty());
        QVERIFY(initFile(event).contains(",\"C:\\Trelawn\\Party\\\","));

        clickButton(screen, u"cmdreturn"_s);
        QCOMPARE(event.navigator().currentName(), u"frminitb"_s);
        QCOMPARE(event.session.settings.eventDirectory, u"C:\\Trelawn\\Party\\"_s);
        clickButton(event.current(), u"cmdok"_s);
        QCOMPARE(event.navigator().currentName(), u"frmmenub"_s);
        QCOMPARE(event.read(u"Bets Race1"_s), QByteArray());
        QVERIFY(event.exists(u"Multibetsbackup Race12"_s));

        clickButton(event.current(), u"cmdsetup"_s);
        clickButton(event.current(), u"Command1"_s);
        openFolder(event.current(), u"Trelawn"_s);
        QCOMPARE(event.read(u"Bets Race1"_s), QByteArray("1,1,1,5\r\n"));
    }

    // The root of a drive has one backslash; choosing it does not touch Init.
    void drive()
    {
        TestEvent event(false);
        const QByteArray before = initFile(event);
        QWidget *screen = event.open(u"frmdirb"_s);
        selectInList(screen, u"Drive1"_s, u"D:\\"_s);
        QCOMPARE(event.session.settings.eventDirectory, u"D:\\"_s);
        QCOMPARE(fieldText(screen, u"txtdrivedir"_s), u"D:\\"_s);
        QCOMPARE(foldersShown(screen), QStringList{u"D:\\"_s});
        QCOMPARE(initFile(event), before);
        openFolder(screen, u"D:\\"_s);
        QVERIFY(initFile(event).contains("\"D:\\\",0,"));
    }

    // The event's own drive went away: told once, and another can be chosen.
    void ownDriveGone()
    {
        TestEvent event(false);
        event.session.settings.eventDirectory = u"G:\\Party\\"_s;
        event.boxes.expect(u"Device unavailable Directory-Open"_s, u"Directory-Open"_s);
        QWidget *screen = event.open(u"frmdirb"_s);
        QCOMPARE(fieldText(screen, u"txtdrivedir"_s), u"G:\\Party\\"_s);
        selectInList(screen, u"Drive1"_s, u"D:\\"_s);
        QCOMPARE(event.session.settings.eventDirectory, u"D:\\"_s);
    }

    // A drive that went away while the list was shown.
    void driveNotReady()
    {
        TestEvent event(false);
        const QString stick = event.session.paths.toHost(u"C:\\"_s) + u"/../G"_s;
        makeFolder(stick);
        QWidget *screen = event.open(u"frmdirb"_s);
        QDir(stick).removeRecursively();
        event.boxes.expect(u"Device unavailable Directory-Drive"_s, u"Directory-Drive"_s);
        selectInList(screen, u"Drive1"_s, u"G:\\"_s);
        QCOMPARE(event.session.settings.eventDirectory, u"C:\\Trelawn\\"_s);
        QCOMPARE(fieldText(screen, u"txtdrivedir"_s), u"C:\\Trelawn\\"_s);
        QCOMPARE(child<QListWidget>(screen, u"Drive1"_s)->currentItem()->text(), u"C:\\"_s);
    }

    void names()
    {
        TestEvent event(false);
        makeFolder(event.path(u"Party"_s));
        const auto folders = [&] { return foldersInside(event.session.paths, u"C:\\Trelawn\\"_s); };
        QWidget *screen = event.open(u"frmdirb"_s);
        // What is typed leads to a complaint, or to nothing; only the last is a name.
        QList<std::pair<QString, QString>> typed{
            {{}, {}}, {u""_s, {}}, {u"Party"_s, u"Path/File access error Directory-New"_s}};
        for (const QString &name : {u"a\\b"_s, u"a/b"_s, u"a:b"_s, u"a*b"_s, u"a?b"_s, u"a\"b"_s,
                                    u"a<b"_s, u"a>b"_s, u"a|b"_s, u".."_s, u"."_s})
            typed.append({name, u"Bad file name or number Directory-New"_s});
        for (const auto &[name, complaint] : typed) {
            expectNew(event, name);
            if (!complaint.isEmpty())
                event.boxes.expect(complaint, u"Directory-New"_s);
            clickButton(screen, u"cmdnew"_s);
            QVERIFY2(event.boxes.allCame(), qPrintable(name));
            QCOMPARE(folders(), QStringList{u"Party"_s});
        }
        expectNew(event, u"Derby Day 2026"_s);
        clickButton(screen, u"cmdnew"_s);
        QCOMPARE(folders(), (QStringList{u"Derby Day 2026"_s, u"Party"_s}));
        QCOMPARE(event.session.settings.eventDirectory, u"C:\\Trelawn\\"_s);
    }

    // When Init cannot be written the event stays where it was.
    void initFails()
    {
        TestEvent event(false);
        makeFolder(event.path(u"Party"_s));
        QWidget *screen = event.open(u"frmdirb"_s);
        event.block(u"Init"_s);
        event.boxes.expect(u"Path/File access error Init output-Directory"_s,
                           u"Init output-Directory"_s);
        openFolder(screen, u"Party"_s);
        QCOMPARE(event.session.settings.eventDirectory, u"C:\\Trelawn\\"_s);
        QCOMPARE(fieldText(screen, u"txtdrivedir"_s), u"C:\\Trelawn\\"_s);
    }
};

TRELAWN_TEST(tst_frmdirb)
#include "tst_frmdirb.moc"
