#include "common/files/networkmounts.h"

#include <QHostAddress>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isSame(const QString &one, const QString &other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

bool isAddress(const QString &name)
{
    return !QHostAddress(name).isNull();
}

// What stands behind the key in "rw,addr=10.0.0.5,vers=3.1".
QString valueOf(const QString &key, const QString &list)
{
    for (const QString &option : list.split(u',')) {
        if (option.startsWith(key + u'='))
            return option.mid(key.size() + 1);
    }
    return {};
}

// "desk" is the same computer as "desk.local", but not as "desktop" or "10.0.0.5".
bool isShortOf(const QString &name, const QString &fullName)
{
    return !isAddress(fullName) && isSame(fullName.section(u'.', 0, 0), name);
}

} // namespace

std::optional<NetworkMount> networkMount(const QString &device, const QString &root,
                                         const QString &options)
{
    const QStringList parts = device.split(u'/');
    if (parts.size() != 4 || !parts[0].isEmpty() || !parts[1].isEmpty() || parts[3].isEmpty())
        return {};
    return NetworkMount{root, parts[2].section(u'@', -1), parts[3], valueOf(u"addr"_s, options)};
}

std::optional<NetworkMount> fileManagerMount(const QString &root)
{
    const QString name = root.section(u'/', -1);
    const QString kind = u"smb-share:"_s;
    if (!name.startsWith(kind))
        return {};
    const QString values = name.mid(kind.size());
    return NetworkMount{root, valueOf(u"server"_s, values), valueOf(u"share"_s, values), {}};
}

std::optional<NetworkMount>
mountOfShare(const QList<NetworkMount> &mounts, const QString &computer, const QString &share,
             const std::function<QStringList(const QString &)> &addressesOf)
{
    const auto isMeant = [&](const NetworkMount &mount) {
        if (!isSame(mount.share, share))
            return false;
        if (isSame(mount.computer, computer) || isShortOf(computer, mount.computer)
            || isShortOf(mount.computer, computer))
            return true;
        if (isAddress(computer))
            return mount.address == computer
                   || (!isAddress(mount.computer)
                       && addressesOf(mount.computer).contains(computer));
        return isAddress(mount.computer) && addressesOf(computer).contains(mount.computer);
    };
    const auto found = std::ranges::find_if(mounts, isMeant);
    return found == mounts.end() ? std::nullopt : std::optional(*found);
}
