#include "kit/testkit.h"
#include "screens.h"
#include "ui/prompts.h"
#include "ui/undisturbed.h"

namespace {

// A race with everything on file that a screen may ask about.
void fillRace(TestEvent &event)
{
    event.writeTwins(u"Horses Race1"_s,
                     horseRecords(cardOf({{1, 0, u"1"_s, u"ALFA"_s}, {2, 0, u"2"_s, u"BRAVO"_s}})));
    event.writeTwins(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n3,\"BROWN\"\r\n");
    event.writeTwins(u"Bets Race1"_s, "2,1,1,2\r\n3,2,2,4\r\n");
    event.write(u"Multibets Race1"_s, "2,2,0,\"EX\",2,1\r\n");
    event.write(u"Download"_s, "\"http://127.0.0.1:9/card\"\r\n");
}

// Chooses and enters whatever the screen offers, so that most of its buttons have something to do.
void fillScreen(QWidget *screen)
{
    for (const QString &name : {u"optrace_1"_s, u"optflight_1"_s, u"cmdbets"_s, u"cmdexacta"_s}) {
        auto *button = screen->findChild<QAbstractButton *>(name);
        if (button && screen->objectName() != "frminitb"_L1)
            button->click();
    }
    for (auto *list : screen->findChildren<QListWidget *>()) {
        list->setCurrentRow(list->count() - 1);
        if (list->currentItem() && list->objectName() == "lstentries"_L1)
            emit list->itemClicked(list->currentItem());
    }
    for (const QString &cell : {u"txtbetamt"_s, u"txtnum_0"_s, u"txtnum_22"_s, u"txtnumber_42"_s}) {
        auto *field = screen->findChild<QWidget *>(cell);
        if (field && field->isVisible())
            clickCell(screen, cell);
    }
}

QList<QAbstractButton *> buttonsOf(QWidget *screen)
{
    QList<QAbstractButton *> buttons;
    for (auto *button : screen->findChildren<QAbstractButton *>()) {
        // The end of the program asks nothing, and one race is like another.
        static const QRegularExpression left(u"^(cmdexit|opt.*_([2-9]|1[0-2]))$"_s);
        if (button->isVisible() && button->isEnabled()
            && !left.match(button->objectName()).hasMatch())
            buttons << button;
    }
    return buttons;
}

void pressLetter(const QAbstractButton *button)
{
    const QKeyCombination letter = button->shortcut()[0];
    QTest::keyClick(button->window()->windowHandle(), letter.key(), letter.keyboardModifiers());
}

// Answers each box after everything on the screen behind was pressed in every way there is.
class Rusher : public QObject
{
    Q_OBJECT

public:
    explicit Rusher(Navigator &navigator)
        : m_navigator(navigator)
    {
        qApp->installEventFilter(this);
    }

    int boxes = 0;
    QStringList faults;

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        auto *dialog = qobject_cast<QDialog *>(object);
        if (event->type() == QEvent::Show && dialog && dialog->isModal())
            QMetaObject::invokeMethod(
                this, [this, dialog] { rush(dialog); }, Qt::QueuedConnection);
        return false;
    }

private:
    void rush(QDialog *dialog)
    {
        const QPointer<QDialog> box = dialog;
        const QPointer<QWidget> screen = m_navigator.current();
        const int boxesBefore = ++boxes;
        const auto buttons = buttonsOf(screen);
        for (QAbstractButton *button : buttons)
            button->animateClick();
        QWindow *window = m_navigator.window()->windowHandle();
        QList<QKeySequence> lettersOfBox{{}};
        for (auto *button : box->findChildren<QAbstractButton *>())
            lettersOfBox << button->shortcut();
        for (QAbstractButton *button : buttons) {
            if (!lettersOfBox.contains(button->shortcut()))
                pressLetter(button);
            QTest::mouseClick(button, Qt::LeftButton);
        }
        QTest::keyClick(window, Qt::Key_Return, Qt::ControlModifier);
        QTest::keyClick(window, Qt::Key_Escape);
        QTest::keyClick(window, Qt::Key_F1);
        m_navigator.window()->close();
        const bool ended = QTest::qWaitFor([&] {
            return std::ranges::none_of(buttons, [](auto *button) { return button->isDown(); });
        });
        const std::pair<bool, QString> promises[] = {
            {ended, u"a press is still pending"_s},
            {screen && m_navigator.current() == screen, u"the screen was left"_s},
            {box && box->isVisible(), u"the box is gone"_s},
            {boxes == boxesBefore, u"another box came"_s}};
        for (const auto &[kept, fault] : promises) {
            if (!kept)
                faults << fault;
        }
        if (qobject_cast<QFileDialog *>(box))
            box->reject();
        else if (box)
            box->accept();
    }

    Navigator &m_navigator;
};

} // namespace

// Whatever is pressed, and however quickly: what stands behind a box neither acts nor goes away.
class tst_quickkeys : public QObject
{
    Q_OBJECT

private slots:
    void everyScreen_data()
    {
        QTest::addColumn<QString>("closeButton");
        for (const ScreenEntry &entry : allScreens())
            QTest::newRow(qPrintable(entry.name)) << entry.closeButton;
    }
    void everyScreen()
    {
        QStringList pressed;
        int boxes = 0;
        for (bool more = true; more;) {
            TestEvent event;
            event.boxes.rest();
            fillRace(event);
            Rusher rusher(event.navigator());
            QWidget *screen = event.open(QString::fromLatin1(QTest::currentDataTag()));
            QVERIFY(QTest::qWaitForWindowActive(screen->window()));
            fillScreen(screen);
            const auto buttons = buttonsOf(screen);
            const auto next = std::ranges::find_if(buttons, [&](const auto *button) {
                return !pressed.contains(button->objectName());
            });
            more = next != buttons.end();
            if (more) {
                pressed << (*next)->objectName();
                if ((*next)->shortcut().isEmpty())
                    (*next)->click();
                else
                    pressLetter(*next);
            }
            QCoreApplication::processEvents();
            QVERIFY2(rusher.faults.isEmpty(),
                     qPrintable(pressed.last() + u": "_s + rusher.faults.join(u", "_s)));
            QVERIFY2(!QApplication::activeModalWidget() && !Undisturbed::isAny(),
                     qPrintable(pressed.last()));
            boxes += rusher.boxes;
        }
        qInfo("%d presses, %d boxes", int(pressed.size()), boxes);
    }
};

TRELAWN_TEST(tst_quickkeys)
#include "tst_quickkeys.moc"
