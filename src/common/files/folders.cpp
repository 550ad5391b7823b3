#include "common/files/folders.h"

#include <QDir>

using namespace Qt::StringLiterals;

QStringList foldersAbove(const QString &folder)
{
    // A root is "C:\" or, on the network, "\\NAME\Share\".
    qsizetype end = folder.indexOf(u'\\');
    if (folder.startsWith("\\\\"_L1))
        end = folder.indexOf(u'\\', folder.indexOf(u'\\', 2) + 1);
    QStringList folders;
    while (end >= 0) {
        folders.append(folder.left(end + 1));
        end = folder.indexOf(u'\\', end + 1);
    }
    return folders;
}

QStringList foldersInside(const HostPaths &paths, const QString &folder)
{
    return QDir(paths.toHost(folder))
        .entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
}
