#include "kit/testkit.h"

#include "common/event/eventfiles.h"
#include "common/event/init.h"
#include "common/files/fileerror.h"
#include "kit/faultywrites.h"
#include "screens.h"
#include "ui/controls.h"
#include "ui/look.h"
#include "ui/mainwindow.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QMessageBox>
#include <QRadioButton>
#include <QTimer>

using namespace Qt::StringLiterals;

BoxRobot::BoxRobot()
{
    qApp->installEventFilter(this);
}

BoxRobot::~BoxRobot()
{
    qApp->removeEventFilter(this);
}

void BoxRobot::expect(const QString &text, const QString &title, Answer answer)
{
    m_queue.append({text, title, answer, false, {}, false});
}

void BoxRobot::expectInput(const QString &text, const QString &title, const QString &typed)
{
    m_queue.append({text, title, typed.isNull() ? Answer::Cancel : Answer::Ok, true, typed, false});
}

void BoxRobot::expectInputKept(const QString &text, const QString &title)
{
    m_queue.append({text, title, Answer::Ok, true, {}, true});
}

bool BoxRobot::allCame()
{
    for (const Expected &expected : std::as_const(m_queue))
        m_faults << "did not come: "_L1 + expected.title + ": "_L1 + expected.text;
    for (const QString &fault : std::as_const(m_faults))
        qInfo("%s", qPrintable(fault));
    const bool good = m_faults.isEmpty();
    m_queue.clear();
    m_faults.clear();
    return good;
}

bool BoxRobot::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        auto *dialog = qobject_cast<QDialog *>(object);
        if (dialog && dialog->isModal()) {
            QMetaObject::invokeMethod(
                this, [this, dialog] { answer(dialog); }, Qt::QueuedConnection);
        }
    }
    return QObject::eventFilter(object, event);
}

void BoxRobot::answer(QWidget *widget)
{
    auto *box = qobject_cast<QMessageBox *>(widget);
    auto *input = qobject_cast<QInputDialog *>(widget);
    if (!box && !input)
        return;
    const QString text = box ? box->text() : input->labelText();
    const QString title = widget->windowTitle();
    auto *dialog = qobject_cast<QDialog *>(widget);
    if (m_queue.isEmpty()) {
        m_faults << "unexpected: "_L1 + title + ": "_L1 + text;
        return dialog->reject();
    }
    const Expected expected = m_queue.takeFirst();
    if (expected.text != text || expected.title != title || expected.input != (input != nullptr)) {
        m_faults << "expected: "_L1 + expected.title + ": "_L1 + expected.text + " but came: "_L1
                        + title + ": "_L1 + text;
    }
    if (input) {
        if (expected.kept)
            return input->accept();
        if (expected.typed.isNull())
            return input->reject();
        input->setTextValue(expected.typed);
        return input->accept();
    }
    static const QMap<Answer, QMessageBox::StandardButton> buttons{
        {Answer::Ok, QMessageBox::Ok},
        {Answer::Yes, QMessageBox::Yes},
        {Answer::No, QMessageBox::No},
        {Answer::Cancel, QMessageBox::Cancel}};
    if (QAbstractButton *button = box->button(buttons.value(expected.answer)))
        return button->click();
    m_faults << "no such button on: "_L1 + title + ": "_L1 + text;
    box->reject();
}

namespace {

// A session on the drive C: below the folder, with the settings of a first start.
void setUp(Session &session, const QString &folder)
{
    session.paths = HostPaths(folder);
    session.settings.initDrive = u"C:"_s;
    session.settings.started = true;
    setFirstInit(session);
    session.settings.eventDirectory = defaultEventDirectory(session.settings);
    session.settings.roundingIndex = 1;
    session.settings.setReceiptPrinting(true);
    session.settings.betsCleared = u"no"_s;
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
    failOnQtWarnings();
    setUp(session, m_folder.path());
    printer.setDestination([this](const Slip &slip) { slips.append(slip); });
    if (!withFiles)
        return;
    for (const QFileInfo &file : newEventFiles()) {
        if (!QFile::copy(file.filePath(), path(file.fileName())))
            qFatal("cannot copy %s", qPrintable(file.fileName()));
    }
}

QString TestEvent::path(const QString &fileName) const
{
    return session.paths.toHost(session.settings.eventDirectory + fileName);
}

QByteArray TestEvent::read(const QString &fileName) const
{
    QFile file(path(fileName));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

void TestEvent::write(const QString &fileName, const QByteArray &bytes) const
{
    QFile file(path(fileName));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

bool TestEvent::exists(const QString &fileName) const
{
    return QFileInfo::exists(path(fileName));
}

QStringList TestEvent::saved() const
{
    return QDir(savedFolder(session)).entryList(QDir::Files, QDir::Name);
}

QByteArrayList TestEvent::savedCopies(const QString &fileName) const
{
    const QDir folder(path(u"Saved"_s));
    QByteArrayList copies;
    for (const QString &name : folder.entryList({fileName + u" 2*"_s}, QDir::Files, QDir::Name))
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
    return child<QLineEdit>(screen, name)->text();
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
    const auto *list = child<QListWidget>(screen, name);
    QStringList texts;
    for (int row = 0; row < list->count(); ++row)
        texts << list->item(row)->text();
    return texts;
}

std::vector<ScreenEntry> someScreens(const QStringList &names, const QStringList &standIns)
{
    std::vector<ScreenEntry> screens;
    for (const ScreenEntry &entry : allScreens()) {
        if (names.contains(entry.name))
            screens.push_back(entry);
    }
    for (const QString &name : standIns) {
        screens.push_back({name, name, {}, [](const ScreenContext &) {
                               auto *blank = new QWidget;
                               makeNoteLine(blank);
                               return blank;
                           }});
    }
    return screens;
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

QStringList tabOrder(QWidget *screen)
{
    QStringList names;
    QWidget *first = screen->focusWidget() ? screen->focusWidget() : screen->nextInFocusChain();
    QWidget *widget = first;
    do {
        if (screen->isAncestorOf(widget) && (widget->focusPolicy() & Qt::TabFocus)
            && widget->isEnabled())
            names << widget->objectName();
        widget = widget->nextInFocusChain();
    } while (widget != first);
    return names;
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

void failOnQtWarnings()
{
    // All but the offscreen platform's own: what it cannot do with windows is no fault here.
    QTest::failOnWarning(
        QRegularExpression(u"^(?!This plugin does not support (propagateSizeHints|raise))"_s));
}
