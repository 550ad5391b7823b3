#include "kit/screentest.h"
#include "ui/prompts.h"
#include "ui/scaling.h"

// Haste does no harm: neither a letter hit by mistake nor Enter pressed again and again.
class tst_danger : public ScreenTest
{
    Q_OBJECT

private slots:
    void apartAndWithoutLetter()
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
            const double factor = letterFactor(screen());
            for (const QString &danger : buttons) {
                const auto *button = child<QPushButton>(screen(), danger);
                QVERIFY2(button->shortcut().isEmpty(), qPrintable(danger));
                const QRect around = placeOf(button).marginsAdded(QMargins() + int(8 * factor));
                for (const auto *other : screen()->findChildren<QPushButton *>()) {
                    QVERIFY2(buttons.contains(other->objectName()) || !other->isVisible()
                                 || !around.intersects(placeOf(other)),
                             qPrintable(danger + u" is at "_s + other->objectName()));
                }
            }
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

private:
    QRect placeOf(const QWidget *button)
    {
        return {button->mapTo(screen(), QPoint()), button->size()};
    }
};

TRELAWN_TEST(tst_danger)
#include "tst_danger.moc"
