#include "ui/lockwait.h"

#include "ui/progressbox.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

class LockWait : public WaitNotice
{
public:
    LockWait(QWidget *window, const QString &holder)
        : m_box(window, "Waiting for "_L1 + holder)
    {
        m_box.show();
    }

    bool goesOn() override
    {
        QCoreApplication::processEvents();
        return !m_box.wasCanceled();
    }

private:
    ProgressBox m_box;
};

} // namespace

std::unique_ptr<WaitNotice> showLockWait(QWidget *window, const QString &holder)
{
    return std::make_unique<LockWait>(window, holder);
}
