#include "common/event/tornend.h"

#include "common/files/recordfile.h"

namespace {

std::string_view textOf(std::string_view line)
{
    std::string_view text;
    nextRecordLine(line, text);
    return text;
}

// Line \a number, from 0, with its end; empty when there is none.
QByteArray lineOf(const QByteArray &bytes, qsizetype number)
{
    qsizetype start = 0;
    while (number-- > 0 && start < bytes.size()) {
        const qsizetype end = bytes.indexOf('\n', start);
        start = end < 0 ? bytes.size() : end + 1;
    }
    const qsizetype end = bytes.indexOf('\n', start);
    return bytes.mid(start, end < 0 ? -1 : end + 1 - start);
}

qsizetype lastLineStart(const QByteArray &bytes)
{
    return bytes.size() < 2 ? 0 : bytes.lastIndexOf('\n', bytes.size() - 2) + 1;
}

} // namespace

FileEnd fileEnd(const QByteArray &bytes, const std::optional<QByteArray> &twin)
{
    if (bytes.isEmpty() || bytes.endsWith('\n'))
        return {};
    const qsizetype start = lastLineStart(bytes);
    const QByteArray last = bytes.mid(start);
    if (isBlankLine(textOf(view(last))))
        return {EndFate::Whole, recordEnd};
    if (!twin)
        return {EndFate::Taken, recordEnd};
    const QByteArray whole = lineOf(*twin, bytes.first(start).count('\n'));
    if (whole.endsWith('\n') && whole.startsWith(last))
        return {EndFate::Completed, whole.mid(last.size())};
    if (textOf(view(twin->mid(lastLineStart(*twin)))) == textOf(view(last)))
        return {EndFate::Taken, recordEnd};
    return {EndFate::Torn, tornMark};
}
