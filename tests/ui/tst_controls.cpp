#include "kit/testkit.h"
#include "ui/clickcell.h"
#include "ui/noteline.h"

class tst_controls : public QObject
{
    Q_OBJECT

private slots:
    // Blanks, line breaks and signs of captions and tips are shown as they are.
    void plainTexts()
    {
        const QString text = u"WIN & PLACE  \n<b>"_s;
        QWidget form;
        const auto *button = makeButton(&form, u"cmdx"_s, text, text);
        QCOMPARE(captionOf(button), text);
        QCOMPARE(button->text(), u"WIN && PLACE  \n<b>"_s);
        QTextDocument shown;
        shown.setHtml(button->toolTip());
        QCOMPARE(shown.toPlainText(), text);
        const auto *label = makeLabel(&form, u"lblx"_s, text);
        QCOMPARE(label->text(), text);
        QCOMPARE(label->textFormat(), Qt::PlainText);
    }

    // A name of any length leaves the screen as wide as it is.
    void longTexts()
    {
        const QString name(200, u'W');
        for (const bool wraps : {true, false}) {
            QWidget form;
            QLabel *label = wraps ? makeLabel(&form, u"lblx"_s, {}, {}, true)
                                  : makeShortLabel(&form, u"lblx"_s);
            auto *layout = new QVBoxLayout(&form);
            layout->addWidget(label);
            const int width = form.minimumSizeHint().width();
            const int height = layout->heightForWidth(width);
            label->setText(name);
            QCOMPARE(label->text(), name);
            QCOMPARE(form.minimumSizeHint().width(), width);
            QCOMPARE(layout->heightForWidth(width) > height, wraps);
            form.show();
            QHelpEvent help(QEvent::ToolTip, {}, {});
            QCoreApplication::sendEvent(label, &help);
            QCOMPARE(label->toolTip().contains(name), !wraps);
        }
    }

    // A warning looks like one until something else is told.
    void notes()
    {
        QWidget form;
        NoteLine *line = makeNoteLine(&form);
        line->setText(u"Saved."_s);
        QVERIFY(!line->isWarning() && !line->font().bold());
        line->warn(u"Not printed."_s);
        line->add(u"Saved."_s);
        line->add(u"Not printed."_s);
        line->addBefore(u"Lost: 1"_s);
        QCOMPARE(line->text(), u"Lost: 1\nNot printed.\nSaved."_s);
        QVERIFY(line->isWarning() && line->font().bold());
        QVERIFY(line->contentsRect().left() >= line->fontMetrics().height()); // its sign
        line->clear();
        line->add(u"Saved."_s);
        QVERIFY(!line->isWarning() && !line->font().bold() && line->contentsRect().left() == 0);
    }

    // The first letter of an amount that is too long for its field can still be seen.
    void longAmounts()
    {
        QWidget form;
        QLineEdit *field = makeDisplay(&form, u"txtbet"_s);
        field->setAlignment(Qt::AlignRight);
        field->resize(field->fontMetrics().horizontalAdvance(u"$3,456.00"_s), 24);
        field->setText(u"$123,456.00"_s);
        const QImage image = field->grab().toImage();
        field->setText(u"$923,456.00"_s);
        QVERIFY(field->grab().toImage() != image);
        // And the last one.
        field->setText(u"$923,456.09"_s);
        const QImage cents = field->grab().toImage();
        field->setText(u"$923,456.04"_s);
        QVERIFY(field->grab().toImage() != cents);
    }

    // Letters are handed on so that each button with a letter gets one of its own.
    void altLetters()
    {
        QWidget form;
        QList<QPushButton *> buttons;
        for (const QString &caption :
             {u"PAY & PRINT"_s, u"PAY"_s, u"PLACE"_s, u"APPLY"_s, u"PA"_s, u"& &"_s})
            buttons << makeButton(&form, u"cmd"_s + QString::number(buttons.size()), caption);
        assignAltLetters(&form);
        QSet<QKeySequence> letters;
        for (const QPushButton *button : buttons)
            letters << button->shortcut();
        QCOMPARE(letters.size(), 6);
        QCOMPARE(buttons[5]->text(), u"&& &&"_s);
        QVERIFY(buttons[5]->shortcut().isEmpty());
        const QKeySequence letter = buttons[2]->shortcut();
        setCaption(buttons[2], u"PLACE ALL"_s);
        QCOMPARE(buttons[2]->shortcut(), letter);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QSignalSpy clicks(buttons[2], &QPushButton::clicked);
        QTest::keyClick(&form, letter[0].key(), letter[0].keyboardModifiers());
        QTRY_COMPARE(clicks.size(), 1);
        setCaption(buttons[2], u"?"_s);
        QCOMPARE(captionOf(buttons[2]), u"?"_s);
    }

    void cellClicks()
    {
        QWidget form;
        form.show();
        ClickCell *cell = makeCell(&form, memberName(u"txtnum"_s, 21));
        QCOMPARE(cell->objectName(), u"txtnum_21"_s);
        QSignalSpy clicks(cell, &ClickCell::clicked);
        QTest::mousePress(cell, Qt::LeftButton);
        QTest::mouseDClick(cell, Qt::LeftButton); // its second press
        QCOMPARE(clicks.size(), 2);
        QTest::keyClick(cell, Qt::Key_Space);
        QCOMPARE(clicks.size(), 3);
        QTest::mousePress(cell, Qt::RightButton);
        QKeyEvent heldDown(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, u" "_s, true);
        QApplication::sendEvent(cell, &heldDown);
        QTest::keyClick(cell, Qt::Key_5);
        cell->setEnabled(false);
        QTest::mousePress(cell, Qt::LeftButton);
        QCOMPARE(clicks.size(), 3);
        QCOMPARE(cell->text(), QString());
    }
};

TRELAWN_TEST(tst_controls)
#include "tst_controls.moc"
