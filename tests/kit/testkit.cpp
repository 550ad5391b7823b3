#include "kit/testkit.h"

#include "screens.h"
#include "ui/controls.h"
#include "ui/look.h"

#ifdef Q_OS_LINUX
#include "kit/faultywrites.h"
#endif

namespace {

struct Expected
{
    QString text;
    QString title;
    Answer answer;
    bool input = false;
    QString typed = {};
    bool kept = false;
};

// What all robots share.
QList<Expected> queue;
QStringList faults;
int robots = 0;
bool resting = false;

void answerMessage(QMessageBox *box, const Expected &expected)
{
    if (QAbstractButton *button = box->button(expected.answer))
        return button->click();
    faults << "no such button on: "_L1 + expected.title + ": "_L1 + expected.text;
    box->reject();
}

void answerInput(QInputDialog *input, const Expected &expected)
{
    if (!expected.kept && expected.typed.isNull())
        return input->reject();
    if (!expected.kept)
        input->setTextValue(expected.typed);
    input->accept();
}

void answerBox(QDialog *dialog)
{
    auto *box = qobject_cast<QMessageBox *>(dialog);
    auto *input = qobject_cast<QInputDialog *>(dialog);
    if (resting || (!box && !input))
        return;
    const QString text = box ? box->text() : input->labelText();
    const QString title = dialog->windowTitle();
    if (queue.isEmpty()) {
        faults << "unexpected: "_L1 + title + ": "_L1 + text;
        return dialog->reject();
    }
    const Expected expected = queue.takeFirst();
    if (expected.text != text || expected.title != title || expected.input != (input != nullptr)) {
        faults << "expected: "_L1 + expected.title + ": "_L1 + expected.text + " but came: "_L1
                      + title + ": "_L1 + text;
    }
    if (box)
        answerMessage(box, expected);
    else
        answerInput(input, expected);
}

class BoxWatcher : public QObject
{
protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (auto *dialog = qobject_cast<QDialog *>(object);
            dialog && event->type() == QEvent::Show && dialog->isModal()) {
            QMetaObject::invokeMethod(
                dialog, [dialog] { answerBox(dialog); }, Qt::QueuedConnection);
        }
        return false;
    }
};

BoxWatcher *boxWatcher = nullptr;

} // namespace

BoxRobot::BoxRobot()
{
    if (robots++ > 0)
        return;
    boxWatcher = new BoxWatcher;
    qApp->installEventFilter(boxWatcher);
}

BoxRobot::~BoxRobot()
{
    if (--robots > 0)
        return;
    delete boxWatcher;
    resting = false;
    if (!allCame())
        QTest::qFail("other boxes came than expected", __FILE__, __LINE__);
}

void BoxRobot::rest()
{
    resting = true;
}

void BoxRobot::expect(const QString &text, const QString &title, Answer answer)
{
    queue.append({text, title, answer});
}

void BoxRobot::expectInput(const QString &text, const QString &title, const QString &typed)
{
    queue.append({text, title, Answer::Ok, true, typed});
}

void BoxRobot::expectInputKept(const QString &text, const QString &title)
{
    queue.append({text, title, Answer::Ok, true, {}, true});
}

bool BoxRobot::allCame()
{
    for (const Expected &expected : std::as_const(queue))
        faults << "did not come: "_L1 + expected.title + ": "_L1 + expected.text;
    for (const QString &fault : std::as_const(faults))
        qInfo("%s", qPrintable(fault));
    const bool good = faults.isEmpty();
    queue.clear();
    faults.clear();
    return good;
}

namespace {

// A session on the drive C: below the folder, with the settings of a first start.
void setUp(Session &session, const QString &folder)
{
    session.paths = hasNativeDrives() ? HostPaths::sealed(folder) : HostPaths(folder);
    session.settings.initDrive = u"C:"_s;
    session.settings.started = true;
    setFirstInit(session);
    session.settings.eventDirectory = defaultEventDirectory(session.settings);
    session.settings.roundingIndex = 1;
    session.settings.setReceiptPrinting(true);
    makeInitFolder(session);
}

// The record files of a new event. Every one of them is flushed to the disk, which takes its time:
// they are made once in a test program and copied for each event.
QFileInfoList newEventFiles()
{
    static const QTemporaryDir folder;
    static const QString made = [] {
        Session session;
        setUp(session, folder.path());
        CreateEventFiles(session);
        return eventFolder(session);
    }();
    return QDir(made).entryInfoList(QDir::Files);
}

} // namespace

TestEvent::TestEvent(bool withFiles)
{
    // All but the offscreen platform's own: what it cannot do with windows is no fault here.
    QTest::failOnWarning(
        QRegularExpression(u"^(?!This plugin does not support (propagateSizeHints|raise))"_s));
    setUp(session, m_folder.path());
    // On a busy computer many test programs may want one lock for long.
    session.files.times.patience = std::chrono::minutes(1);
    session.files.times.settle = std::chrono::milliseconds(20);
    printer.setDestination([this](const Slip &slip) { slips.append(slip); });
    for (const QFileInfo &file : withFiles ? newEventFiles() : QFileInfoList()) {
        if (!QFile::copy(file.filePath(), path(file.fileName())))
            qFatal("cannot copy %s", qPrintable(file.fileName()));
    }
}

QString TestEvent::path(const QString &name) const
{
    const bool whole = name.startsWith(u'\\') || name.indexOf(u':') == 1;
    return session.paths.toHost(whole ? name : session.settings.eventDirectory + name);
}

QByteArray TestEvent::read(const QString &name) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

void TestEvent::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    QDir().mkpath(QFileInfo(file).path());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

bool TestEvent::exists(const QString &name) const
{
    return QFileInfo::exists(path(name));
}

void TestEvent::remove(const QStringList &names) const
{
    for (const QString &name : names) {
        if (!QFile::remove(path(name)))
            qFatal("cannot remove %s", qPrintable(name));
    }
}

QStringList TestEvent::twins(const QString &fileName)
{
    const qsizetype blank = fileName.indexOf(u' ');
    QString twin = fileName;
    twin.insert(blank < 0 ? twin.size() : blank, u"backup"_s);
    return {fileName, twin};
}

void TestEvent::writeTwins(const QString &fileName, const QByteArray &bytes) const
{
    for (const QString &name : twins(fileName))
        write(name, bytes);
}

QByteArray TestEvent::readTwins(const QString &fileName) const
{
    const QByteArray main = read(fileName);
    const QByteArray twin = read(twins(fileName).last());
    return main == twin ? main : "the main file: " + main + "its twin: " + twin;
}

void TestEvent::joinShare(const QString &folder, const QString &computer) const
{
    const QString network = session.paths.dataFolder() + "/network/"_L1 + computer;
    if (!QDir().mkpath(network) || !QFile::link(folder, network + "/Tshare"_L1))
        qFatal("cannot join %s", qPrintable(folder));
}

void TestEvent::block(const QString &fileName) const
{
    if ((exists(fileName) && !QFile::remove(path(fileName))) || !QDir().mkdir(path(fileName)))
        qFatal("cannot block %s", qPrintable(fileName));
}

QStringList TestEvent::saved() const
{
    return QDir(savedFolder(session)).entryList(QDir::Files, QDir::Name);
}

QByteArrayList TestEvent::savedCopies(const QString &fileName) const
{
    QByteArrayList copies;
    for (const QString &name : saved().filter(QRegularExpression(u'^' + fileName + u" 2"_s)))
        copies << read(u"Saved\\"_s + name);
    return copies;
}

Navigator &TestEvent::navigator()
{
    if (!m_navigator)
        m_navigator = std::make_unique<Navigator>(session, printer, allScreens());
    return *m_navigator;
}

QWidget *TestEvent::open(const QString &screen)
{
    navigator().open(screen);
    QCoreApplication::processEvents();
    return current();
}

QString TestEvent::note()
{
    return labelText(current(), u"lblnote"_s);
}

QStringList TestEvent::takeListing()
{
    auto *window = navigator().window()->findChild<QWidget *>(u"frmlistb"_s);
    if (!window)
        return {};
    window->setObjectName({});
    if (!child<QWidget>(window, u"cmdagain"_s)->isHidden())
        boxes.expect(u"This list is not printed. Close it all the same?"_s, window->windowTitle(),
                     Answer::Yes);
    window->close();
    return listTexts(window, u"List1"_s);
}

void clickButton(QWidget *screen, const QString &name)
{
    auto *button = child<QAbstractButton>(screen, name);
    if (!button->isEnabled())
        qFatal("%s is disabled", qPrintable(name));
    // Only the sign and the text of an option take clicks, not the room beside them.
    const bool option = qobject_cast<QRadioButton *>(button) != nullptr;
    QTest::mouseClick(button, Qt::LeftButton, {},
                      option ? QPoint(8, button->height() / 2) : QPoint());
    QCoreApplication::processEvents();
}

void clickCell(QWidget *screen, const QString &name, int times)
{
    for (int i = 0; i < times; ++i)
        QTest::mousePress(child<QWidget>(screen, name), Qt::LeftButton);
}

QString fieldText(QWidget *screen, const QString &name)
{
    return child<QWidget>(screen, name)->property("text").toString();
}

QString labelText(QWidget *screen, const QString &name)
{
    return child<QLabel>(screen, name)->text();
}

void typeInto(QWidget *screen, const QString &name, const QString &text)
{
    auto *field = child<QLineEdit>(screen, name);
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

void selectInList(QWidget *screen, const QString &name, const QString &text)
{
    auto *list = child<QListWidget>(screen, name);
    const auto items = list->findItems(text, Qt::MatchExactly);
    if (items.isEmpty())
        qFatal("%s does not list %s", qPrintable(name), qPrintable(text));
    list->scrollToItem(items.front());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualItemRect(items.front()).center());
    QCoreApplication::processEvents();
}

QString caption(QWidget *screen, const QString &name)
{
    return captionOf(child<QAbstractButton>(screen, name));
}

QStringList listTexts(QWidget *screen, const QString &name)
{
    const QAbstractItemModel *model = child<QListView>(screen, name)->model();
    QStringList texts;
    for (int row = 0; row < model->rowCount(); ++row)
        texts << model->index(row, 0).data().toString();
    return texts;
}

QStringList tableTexts(QWidget *screen, const QString &name)
{
    const auto *table = child<QTableWidget>(screen, name);
    QStringList rows;
    for (int row = 0; row < table->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < table->columnCount(); ++column)
            cells << table->item(row, column)->text();
        rows << cells.join(u'|');
    }
    return rows;
}

QStringList simplified(QStringList texts)
{
    for (QString &text : texts)
        text = text.simplified();
    return texts;
}

HorseTable cardOf(std::initializer_list<Horse> horses)
{
    HorseTable card;
    for (const Horse &horse : horses)
        card.post(horse.post) = horse;
    return card;
}

bool closeBoxEnds(Navigator &navigator)
{
    QTimer::singleShot(0, navigator.window(), [&] { navigator.window()->close(); });
    QTimer::singleShot(30000, navigator.window(), [] { QApplication::exit(1); });
    return QApplication::exec() == 0;
}

int errorOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const FileError &error) {
        return int(error.number());
    }
    return 0;
}

void prepareTestApplication(QApplication &application)
{
#ifdef Q_OS_LINUX
    skipRealFlushes();
#endif
    QLocale::setDefault(QLocale::c());
    QStandardPaths::setTestModeEnabled(true);
    applyLook(application);
}
