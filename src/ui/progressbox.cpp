#include "ui/progressbox.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 500; // milliseconds that work may take before it shows how far it is
constexpr int redrawn = 50;   // milliseconds between two looks at the screen and at Cancel

} // namespace

ProgressBox::ProgressBox(QWidget *screen, const QString &text, Ending ending)
    : QProgressDialog(screen ? screen->window() : nullptr)
    , m_undisturbed(this)
{
    setWindowTitle(u"TRELAWN"_s);
    setWindowModality(Qt::ApplicationModal);
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    setLabel(label);
    setLabelText(text);
    if (ending == Ending::OnlyWhenDone)
        setCancelButton(nullptr);
    setRange(0, 0);
    setAutoClose(false);
    setAutoReset(false);
    QTimer::singleShot(patience, this, &QWidget::show); // when the work waits in an event loop
    m_begun.start();
}

bool ProgressBox::step(int done, int total)
{
    if (m_begun.elapsed() < patience)
        return true;
    if (!isVisible() && !wasCanceled())
        show();
    if (!m_drawn.isValid() || m_drawn.elapsed() >= redrawn) {
        setMaximum(total);
        setValue(done);
        QCoreApplication::processEvents();
        m_drawn.start();
    }
    return !wasCanceled();
}

Progress ProgressBox::progress()
{
    return [this](int done, int total) { step(done, total); };
}
