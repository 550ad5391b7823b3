#include "kit/screentest.h"
#include "ui/prompts.h"

// Haste does no harm: neither a letter hit by mistake nor Enter pressed again and again.
class tst_danger : public ScreenTest
{
    Q_OBJECT

private slots:
    void noLetterPressesIt()
    {
        begin();
        Rows<QString, QStringList> rows;
        rows("menu", u"frmmenub"_s, {u"cmdclearbets"_s, u"cmdbackup"_s});
        rows("setup", u"frminitb"_s, {u"cmdbets"_s, u"cmdhorses"_s, u"cmdbettors"_s});
        rows("horses", u"frmhorsesb"_s, {u"cmdscratch"_s, u"cmdclearhorses"_s});
        rows("bettors", u"frmbettorsb"_s, {u"cmddelete"_s, u"cmdclearbettors"_s});
        rows("bet sheet", u"frmsheetb"_s, {u"cmdclearprior"_s});
        for (const auto &[row, name, buttons] : rows) {
            open(name);
            for (const QString &button : buttons)
                QVERIFY2(child<QPushButton>(screen(), button)->shortcut().isEmpty(),
                         qPrintable(button));
        }
    }

    void enterIsNo()
    {
        for (const auto ask : {&askYesNoCarefully, &askOkCancel}) {
            QTimer::singleShot(
                0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
            QVERIFY(!ask(nullptr, u"Clear?"_s, {}));
        }
    }
};

TRELAWN_TEST(tst_danger)
#include "tst_danger.moc"
