#include "help/frmhelpb.h"

#include "common/event/session.h"
#include "help/helptext.h"
#include "ui/controls.h"
#include "ui/noteline.h"
#include "ui/printing.h"
#include "ui/prompts.h"
#include "ui/textlists.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int lineColumns = 80;

} // namespace

frmhelpb::frmhelpb(const ScreenContext &context)
    : m_context(context)
    , m_openedFrom(context.navigator.currentName())
    , m_chapterOf(m_openedFrom)
{
    build();
    connectControls();
    resize(1000, 650);
    txtsearch->setFocus();
}

void frmhelpb::build()
{
    auto *search = buildSearch();
    lstchapters = new QListWidget(this);
    lstchapters->setObjectName(u"lstchapters"_s);
    lstchapters->setAccessibleName(u"Chapters"_s);
    lstchapters->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    txthelp = new QPlainTextEdit(this);
    txthelp->setObjectName(u"txthelp"_s);
    txthelp->setAccessibleName(u"Help text"_s);
    txthelp->setFont(fixedPitchFont());
    txthelp->setTabChangesFocus(true);
    txthelp->setMinimumWidth(txthelp->fontMetrics().horizontalAdvance(QString(lineColumns, u'x')));
    auto *columns = new QHBoxLayout;
    columns->addWidget(lstchapters, 3);
    columns->addWidget(txthelp, 7);
    auto *buttons = buildButtons();
    lblnote = makeNoteLine(this);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(search);
    layout->addLayout(columns, 1);
    layout->addLayout(buttons);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

QLayout *frmhelpb::buildSearch()
{
    txtsearch = makeField(this, u"txtsearch"_s, u"Enter or F3 finds the next place"_s);
    txtsearch->setAccessibleName(u"Search for"_s);
    cmdfind = makeButton(this, u"cmdfind"_s, u"Find Next"_s, u"Find the next place (F3)"_s);
    auto *layout = new QHBoxLayout;
    layout->addWidget(makeHeading(this, u"lblsearch"_s, u"Search for"_s));
    layout->addWidget(txtsearch, 1);
    layout->addWidget(cmdfind);
    layout->addStretch(1);
    return layout;
}

QLayout *frmhelpb::buildButtons()
{
    cmdsave = makeButton(this, u"cmdsave"_s, u"SAVE HELP TEXT"_s,
                         u"Keep the text as it stands here, with your own changes"_s);
    lblunsaved = makeLabel(this, u"lblunsaved"_s, u"not saved"_s);
    cmdprint = makeButton(this, u"cmdprint"_s, u"PRINT"_s, u"Print the whole text"_s);
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"Return"_s);
    auto *layout = new QHBoxLayout;
    layout->addWidget(cmdsave);
    layout->addWidget(lblunsaved);
    layout->addStretch();
    layout->addWidget(cmdprint);
    layout->addWidget(cmdreturn);
    return layout;
}

void frmhelpb::connectControls()
{
    Navigator &navigator = m_context.navigator;
    connect(&navigator, &Navigator::helpAsked, this, &frmhelpb::showChapterOf);
    connect(lstchapters, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem *item) { showLine(item->data(Qt::UserRole).toInt()); });
    connect(lstchapters, &QListWidget::itemActivated, this,
            [this](const QListWidgetItem *item) { showLine(item->data(Qt::UserRole).toInt()); });
    connect(txtsearch, &QLineEdit::returnPressed, this, &frmhelpb::search);
    connect(cmdfind, &QPushButton::clicked, this, &frmhelpb::search);
    connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, this, &frmhelpb::search);
    connect(txthelp, &QPlainTextEdit::modificationChanged, lblunsaved, &QWidget::setVisible);
    connect(txthelp, &QPlainTextEdit::blockCountChanged, this, &frmhelpb::listChapters);
    connect(cmdsave, &QPushButton::clicked, this, &frmhelpb::save);
    connect(cmdprint, &QPushButton::clicked, this, &frmhelpb::print);
    connect(cmdreturn, &QPushButton::clicked, this, &frmhelpb::leave);
}

void frmhelpb::entered()
{
    Session &session = m_context.session;
    HelpText help{shippedHelp(), true};
    trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] { help = loadHelp(session); });
    txthelp->setPlainText(help.text);
    txthelp->document()->setModified(false);
    lblunsaved->hide();
    listChapters();
    lblnote->setText(help.isShipped ? QString() : "Your own text: "_L1 + helpFile(session));
    showChapterOf(m_chapterOf);
}

void frmhelpb::showChapterOf(const QString &screen)
{
    m_chapterOf = screen;
    const int line = chapterLine(txthelp->toPlainText(), m_context.navigator.titleOf(screen));
    if (line >= 0)
        showLine(line);
}

// The line at the top, with the cursor in it.
void frmhelpb::showLine(int line)
{
    txthelp->setTextCursor(QTextCursor(txthelp->document()->findBlockByNumber(line)));
    txthelp->verticalScrollBar()->setValue(line);
}

void frmhelpb::listChapters()
{
    lstchapters->clear();
    for (const Chapter &chapter : chapters(txthelp->toPlainText())) {
        auto *item = new QListWidgetItem(chapter.title, lstchapters);
        item->setData(Qt::UserRole, chapter.line);
    }
}

void frmhelpb::search()
{
    const QString wanted = txtsearch->text();
    lblnote->clear();
    if (wanted.isEmpty())
        return;
    const QTextCursor before = txthelp->textCursor();
    if (!txthelp->find(wanted)) {
        txthelp->moveCursor(QTextCursor::Start);
        if (!txthelp->find(wanted)) {
            txthelp->setTextCursor(before);
            lblnote->warn(u'"' + wanted + u"\" not found"_s);
            return;
        }
        lblnote->setText(u"The search went on at the beginning."_s);
    }
    txthelp->centerCursor();
}

void frmhelpb::save()
{
    Session &session = m_context.session;
    trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] {
        saveHelp(session, txthelp->toPlainText());
        txthelp->document()->setModified(false);
        lblnote->setText("Help text saved: "_L1 + helpFile(session));
    });
}

void frmhelpb::print()
{
    const PrintTask task{u"Help print"_s, ErrorStyle::DescriptionAndLabel, u"Help text printed."_s};
    tellPrinted(lblnote, printSlip(this, m_context, task, helpSlip(txthelp->toPlainText())));
}

bool frmhelpb::mayLeave()
{
    return !txthelp->document()->isModified()
           || askOkCancel(this, u"Leave without saving the changed help text?"_s, u"Help"_s);
}

void frmhelpb::leave()
{
    if (m_context.navigator.current() != this)
        close();
    else if (mayLeave())
        m_context.navigator.open(m_openedFrom.isEmpty() ? u"frminitb"_s : m_openedFrom);
}

void frmhelpb::closeEvent(QCloseEvent *event)
{
    event->setAccepted(mayLeave());
}
