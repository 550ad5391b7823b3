#include "ui/lockwait.h"

#include <QCoreApplication>
#include <QProgressDialog>

using namespace Qt::StringLiterals;

namespace {

class LockWait : public WaitNotice
{
public:
    LockWait(QWidget *window, const QString &holder)
        : m_box(window)
    {
        m_box.setWindowTitle(u"TRELAWN"_s);
        m_box.setWindowModality(Qt::ApplicationModal);
        m_box.setLabelText("Waiting for "_L1 + holder);
        m_box.setRange(0, 0);
        m_box.show();
    }

    bool goesOn() override
    {
        QCoreApplication::processEvents();
        return !m_box.wasCanceled();
    }

private:
    QProgressDialog m_box;
};

} // namespace

std::unique_ptr<WaitNotice> showLockWait(QWidget *window, const QString &holder)
{
    return std::make_unique<LockWait>(window, holder);
}
