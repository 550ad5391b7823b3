#include "help/helptext.h"

#include "common/event/labelled.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

// A resource of a static library is there only once it was asked for, outside every namespace.
static void addHelpResource()
{
    Q_INIT_RESOURCE(help);
}

namespace {

constexpr int paperColumns = 80;
constexpr double paperPoints = 10;

bool isUnderline(const QString &line)
{
    const QString signs = line.trimmed();
    return signs.size() >= 3 && signs.count(u'=') == signs.size();
}

QStringList brokenLine(const QString &line)
{
    QStringList parts;
    QString rest = line;
    while (rest.size() > paperColumns) {
        qsizetype end = rest.lastIndexOf(u' ', paperColumns);
        if (end <= 0)
            end = paperColumns;
        parts << rest.left(end);
        rest = rest.mid(end).trimmed();
    }
    return parts << rest;
}

} // namespace

QString helpFile(const Session &session)
{
    const QString &drive = session.settings.initDrive;
    return (drive.isEmpty() ? u"C:"_s : drive) + "\\Trelawn\\Horsehelp.txt"_L1;
}

QString shippedHelp()
{
    addHelpResource();
    QFile file(u":/help/Horsehelp.txt"_s);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

HelpText loadHelp(Session &session)
{
    QString text;
    try {
        text = decodeText(view(labelled(session, u"Help input"_s, [&] {
            return readRecordFile(session.paths.toHost(helpFile(session)));
        })));
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound
            && error.number() != ErrorNumber::PathNotFound)
            throw;
    }
    if (text.trimmed().isEmpty())
        return {shippedHelp(), true};
    text.replace("\r\n"_L1, "\n"_L1);
    return {text, false};
}

void saveHelp(Session &session, const QString &text)
{
    QString lines = text;
    lines.replace(u"\n"_s, u"\r\n"_s);
    labelled(session, u"Help output"_s, [&] {
        const QString path = session.paths.toHost(helpFile(session));
        makeFolder(QFileInfo(path).path());
        replaceRecordFile(path, lines.toUtf8());
    });
}

QList<Chapter> chapters(const QString &text)
{
    QList<Chapter> found;
    const QStringList lines = text.split(u'\n');
    for (int line = 1; line < int(lines.size()); ++line) {
        if (isUnderline(lines[line]) && !lines[line - 1].trimmed().isEmpty())
            found.append({lines[line - 1].trimmed(), line - 1});
    }
    return found;
}

int chapterLine(const QString &text, const QString &title)
{
    for (const Chapter &chapter : chapters(text)) {
        if (!title.isEmpty() && chapter.title.compare(title, Qt::CaseInsensitive) == 0)
            return chapter.line;
    }
    return -1;
}

Slip helpSlip(const QString &text)
{
    Slip slip{u"Courier New"_s, paperPoints, false, {}, 0};
    const QStringList lines = text.split(u'\n');
    for (const QString &line : lines) {
        for (const QString &part : brokenLine(line))
            slip.addLine(part);
    }
    return slip;
}
