#include "kit/screentest.h"
#include "practice/parts/practicepanel.h"
#include "screens.h"
#include "ui/clickcell.h"
#include "ui/colors.h"
#include "ui/controls.h"

namespace {

// The role of the widget's text and of its ground.
std::pair<QPalette::ColorRole, QPalette::ColorRole> rolesOf(const QWidget *widget)
{
    if (qobject_cast<const QPushButton *>(widget))
        return {QPalette::ButtonText, QPalette::Button};
    if (qobject_cast<const QLineEdit *>(widget) || qobject_cast<const TextCell *>(widget)
        || qobject_cast<const QAbstractItemView *>(widget))
        return {QPalette::Text, QPalette::Base};
    return {QPalette::WindowText, widget->backgroundRole()};
}

// What cannot be read well enough on the screen.
QStringList faint(const QWidget *screen)
{
    QStringList found;
    for (const QWidget *widget : screen->findChildren<QWidget *>()) {
        const QPalette palette = widget->palette();
        const auto [text, ground] = rolesOf(widget);
        const auto *cell = qobject_cast<const ClickCell *>(widget);
        // Magenta leaves black no more than 6.7; its figures are bold besides.
        const bool chosen = cell && palette.color(QPalette::Base) == QColor(0xff, 0x00, 0xff);
        const double active = contrast(palette.color(QPalette::Active, text),
                                       palette.color(QPalette::Active, ground));
        const double disabled = contrast(palette.color(QPalette::Disabled, text),
                                         palette.color(QPalette::Disabled, ground));
        const double selected =
            contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight));
        if (active < (chosen ? 6.6 : 7) || disabled < 3 || selected < 7)
            found << widget->objectName() + u" %1 %2 %3"_s.arg(active).arg(disabled).arg(selected);
    }
    return found;
}

// The best contrast to the ground of what is drawn along the middle row of the widget's left edge.
double frameContrast(QWidget *widget, const QColor &ground)
{
    const QImage image = widget->grab().toImage();
    double best = 1;
    for (int x = 0; x < 12; ++x)
        best = std::max(best, contrast(image.pixelColor(x, image.height() / 2), ground));
    return best;
}

// The least contrast of a button's text to its ground, which is not of one colour.
double textContrast(Tone tone)
{
    QPushButton button;
    button.resize(80, 40);
    setTone(&button, tone);
    const QImage image = button.grab().toImage();
    const QColor text = button.palette().color(QPalette::ButtonText);
    double least = 21;
    for (int y = 4; y < 36; ++y)
        least = std::min(least, contrast(image.pixelColor(40, y), text));
    return least;
}

} // namespace

// Everything can be read, in the light, in the dark, and where the system asks for high contrast.
class tst_colors : public ScreenTest
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCOMPARE(contrast(Qt::white, Qt::black), 21.0);
        QCOMPARE(qRound(contrast(QColor(0x77, 0x77, 0x77), Qt::white) * 100), 448);
    }

    void readable_data()
    {
        QTest::addColumn<QPalette>("system");
        QTest::newRow("light") << QPalette(QColor(0xef, 0xef, 0xef));
        QTest::newRow("dark") << QPalette(QColor(0x30, 0x30, 0x30));
        QPalette contrasting(Qt::yellow, Qt::black, Qt::black, Qt::black, Qt::black, Qt::white,
                             Qt::white, Qt::black, Qt::black);
        contrasting.setColor(QPalette::Highlight, Qt::white);
        contrasting.setColor(QPalette::HighlightedText, Qt::black);
        contrasting.setColor(QPalette::WindowText, Qt::white);
        contrasting.setColor(QPalette::ButtonText, Qt::white);
        QTest::newRow("high contrast") << contrasting;
    }

    void readable()
    {
        QFETCH(QPalette, system);
        begin();
        event->writeTwins(u"Horses Race1"_s, "1,0,\"1\",\"SEA HERO\"\r\n");
        open(u"frmmulti"_s); // shown before the scheme is known
        press(u"optrace_1"_s);
        clickCell(screen(), u"txtnum_0"_s);
        const QPalette house = housePalette(system);
        QApplication::setPalette(house);
        QCoreApplication::processEvents();
        QCOMPARE(faint(screen()).join(u' '), QString());
        MainWindow *window = event->navigator().window();
        window->setStrip(new PracticePanel({event->session, event->navigator(), event->printer}));
        QCOMPARE(faint(window->strip()).join(u' '), QString());
        BoxRobot robot;
        for (const ScreenEntry &entry : allScreens()) {
            open(entry.name);
            robot.allCame(); // what a screen asks on opening is refused
            QVERIFY2(faint(screen()).isEmpty(),
                     qPrintable(entry.name + u": "_s + faint(screen()).join(u'\n')));
        }
        for (const Tone bet : {Tone::Placed, Tone::Dropped, Tone::Unpaid, Tone::Stopping}) {
            const auto [fill, text, edge] = toneColors(bet);
            QVERIFY(contrast(text, fill) >= 7 && contrast(edge, fill) >= 3);
            QVERIFY(contrast(edge, house.color(QPalette::Base)) >= 3);
        }
        for (const Tone button : {Tone::None, Tone::NextStep, Tone::Danger})
            QVERIFY2(textContrast(button) >= 7, qPrintable(QString::number(int(button))));
        QVERIFY(frameContrast(std::make_unique<QPushButton>().get(), house.button().color()) >= 3);
        QVERIFY(frameContrast(std::make_unique<QLineEdit>().get(), house.base().color()) >= 3);
        QVERIFY(frameContrast(std::make_unique<QListWidget>().get(), house.base().color()) >= 3);
        QVERIFY(frameContrast(std::make_unique<QCheckBox>().get(), house.window().color()) >= 3);
        QVERIFY(frameContrast(std::make_unique<QRadioButton>().get(), house.window().color()) >= 3);
    }

    // The board hangs where nobody can step nearer.
    void board()
    {
        const BoardColors &colors = boardColors();
        for (const QColor &ground : {colors.ground, colors.otherGround}) {
            for (const QColor &words : {colors.text, colors.aside, colors.odds, colors.rising,
                                        colors.falling, colors.notice})
                QVERIFY2(contrast(words, ground) >= 7, qPrintable(words.name()));
            for (const QColor &bar : colors.bars)
                QVERIFY2(contrast(bar, ground) >= 3, qPrintable(bar.name()));
        }
        QVERIFY(contrast(colors.text, colors.head) >= 7);
    }

    void cleanupTestCase() { QApplication::setPalette(QPalette()); }
};

TRELAWN_TEST(tst_colors)
#include "tst_colors.moc"
