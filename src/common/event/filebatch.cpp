#include "common/event/filebatch.h"

#include "common/event/labelled.h"
#include "common/event/tornend.h"

#include <QFileInfo>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// "Already written: Bets Race1, Betsbackup Race1 and 3 more."
QString writtenRemark(const QStringList &names)
{
    constexpr int most = 6;
    if (names.isEmpty())
        return {};
    QString remark = "Already written: "_L1 + names.mid(0, most).join(", "_L1);
    if (names.size() > most)
        remark += " and "_L1 + QString::number(names.size() - most) + " more"_L1;
    return remark + '.'_L1;
}

} // namespace

FileBatch::FileBatch(Session &session, const QString &label)
    : FileBatch(session)
{
    labelled(session, label, [&] { m_lock.emplace(session); });
}

FileBatch::FileBatch(Session &session)
    : m_session(session)
{
}

void FileBatch::add(const QString &path, const QByteArray &bytes, const QString &label)
{
    m_items.append({path, bytes, label});
}

void FileBatch::replaceTwins(RecordFile file, int race, const QByteArray &records,
                             const QString &label, const QString &twinLabel)
{
    add(mainFile(m_session, file, race), records, label);
    add(twinFile(m_session, file, race), records, twinLabel);
}

void FileBatch::replaceMain(RecordFile file, int race, const QByteArray &records,
                            const QString &label)
{
    add(mainFile(m_session, file, race), records, label);
}

void FileBatch::append(RecordFile file, int race, const QByteArray &lines, const QString &label)
{
    labelled(m_session, label, [&] {
        const QString twin = twinFile(m_session, file, race);
        const QByteArray found =
            readIfThere(mainFile(m_session, file, race)).value_or(QByteArray());
        const QByteArray bytes = withSettledEnd(m_session, file, race, found);
        const QByteArray held = readIfThere(twin).value_or(bytes);
        add(mainFile(m_session, file, race), bytes + lines, label);
        add(twin, held + fileEnd(held, bytes).missing + lines, label);
    });
}

void FileBatch::replaceFile(const QString &path, const QByteArray &bytes, const QString &label)
{
    m_items.append({path, bytes, label, false});
}

int FileBatch::keepCopies()
{
    int kept = 0;
    for (const Item &item : std::as_const(m_items)) {
        if (!item.isRecordFile)
            continue;
        labelled(m_session, item.label,
                 [&] { kept += keepInSaved(m_session, item.path).isEmpty() ? 0 : 1; });
    }
    return kept;
}

int FileBatch::commit(const Progress &progress)
{
    const int kept = keepCopies();
    std::vector<std::unique_ptr<Replacement>> replacements;
    for (const Item &item : std::as_const(m_items)) {
        labelled(m_session, item.label, [&] {
            if (!item.isRecordFile && QFileInfo(item.path).isSymLink())
                throw FileError(ErrorNumber::PathFileAccess);
            replacements.push_back(std::make_unique<Replacement>(item.path, item.bytes));
        });
        progress(int(replacements.size()), int(m_items.size()));
    }
    QStringList written;
    for (const auto &replacement : replacements) {
        const Item &item = m_items[written.size()];
        try {
            labelled(m_session, item.label, [&] {
                if (m_lock)
                    m_lock->demandHeld();
                replacement->commit();
            });
        } catch (FileError &error) {
            error.setRemark(writtenRemark(written));
            throw;
        }
        written << QFileInfo(item.path).fileName();
    }
    return kept;
}
