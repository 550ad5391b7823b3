#include "kit/printserver.h"

#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QTest>

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray outputOf(const QString &command, const QStringList &arguments)
{
    QProcess process;
    process.start(command, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s (of scripts/install-packages.sh test): %s", qPrintable(command),
               process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

// Files each job under its number; the name is right only when the file is whole.
constexpr QStringView backEnd = uR"(#!/bin/sh
[ $# -gt 0 ] || exit 0
paper="${DEVICE_URI#paper:}/$1"
cat "$6" > "$paper.part" && mv "$paper.part" "$paper.pdf"
)";

QString queue(const QString &name, const QString &folder, bool paused, bool accepting)
{
    return u"<Printer %1>\nDeviceURI paper:%2\nState %3\nAccepting %4\n</Printer>\n"_s.arg(
        name, folder, paused ? u"Stopped"_s : u"Idle"_s, accepting ? u"Yes"_s : u"No"_s);
}

} // namespace

PrintServer::PrintServer()
{
    writeConfiguration();
    const QString socket = path(u"socket"_s);
    qputenv("CUPS_SERVER", socket.toLocal8Bit());
    qunsetenv("PRINTER");
    qunsetenv("LPDEST");
    m_server.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_server.setProcessChannelMode(QProcess::ForwardedChannels);
    qputenv("PATH", qgetenv("PATH") + ":/usr/sbin:/usr/local/sbin");
    m_server.start(u"cupsd"_s,
                   {u"-f"_s, u"-c"_s, path(u"cupsd.conf"_s), u"-s"_s, path(u"cups-files.conf"_s)});
    const bool answers = m_server.waitForStarted() && QTest::qWaitFor([&] {
                             QLocalSocket client;
                             client.connectToServer(socket);
                             return client.waitForConnected(50);
                         });
    if (!answers)
        qFatal("the print server did not start");
}

PrintServer::~PrintServer()
{
    stop();
}

void PrintServer::stop()
{
    m_server.kill();
    m_server.waitForFinished();
}

void PrintServer::write(const QString &name, const QString &text) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

// Everything lies in the temporary folder, and nobody is asked for a password.
void PrintServer::writeConfiguration() const
{
    for (const auto &folder : {u"bin/backend"_s, u"bin/daemon"_s, u"mime"_s, u"paper"_s})
        QDir(m_folder.path()).mkpath(folder);
    write(u"bin/backend/paper"_s, backEnd.toString());
    // Closed to others it runs as the server's own user, root included.
    QFile::setPermissions(path(u"bin/backend/paper"_s),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile::link(u"/usr/lib/cups/daemon/cups-exec"_s, path(u"bin/daemon/cups-exec"_s));
    write(u"mime/mime.types"_s, u"application/pdf pdf string(0,%PDF)\n"_s);
    write(u"mime/mime.convs"_s, {});

    QString files = u"FatalErrors none\nAccessLog %1/access\nErrorLog %1/errors\nPageLog %1/pages\n"
                    "ServerRoot %1\nServerBin %1/bin\nDataDir %1\nRequestRoot %1/spool\n"
                    "CacheDir %1/cache\nStateDir %1/state\n"_s.arg(m_folder.path());
    write(u"cups-files.conf"_s, files);
    write(u"cupsd.conf"_s,
          u"Listen %1\nBrowsing Off\nDefaultAuthType None\n"
          "<Location />\nAllow all\n</Location>\n"
          "<Policy default>\n<Limit All>\nOrder allow,deny\nAllow all\n</Limit>\n</Policy>\n"_s.arg(
              path(u"socket"_s)));
    const QString paper = path(u"paper"_s);
    write(u"printers.conf"_s, queue(u"works"_s, paper, false, true)
                                  + queue(u"paused"_s, paper, true, true)
                                  + queue(u"refuses"_s, paper, false, false));
}

void PrintServer::run(const QString &command, const QStringList &arguments)
{
    outputOf(command, arguments);
}

void PrintServer::setDefaultQueue(const QString &queue)
{
    run(u"lpadmin"_s, {u"-d"_s, queue});
}

QStringList PrintServer::papers(qsizetype jobs) const
{
    const QDir folder(path(u"paper"_s));
    const auto files = [&] { return folder.entryList({u"*.pdf"_s}); };
    if (!QTest::qWaitFor([&] { return files().size() >= jobs; }))
        qFatal("%lld of %lld jobs were printed", qint64(files().size()), qint64(jobs));
    QMap<int, QString> texts; // by the number of the job
    for (const QString &file : files())
        texts.insert(file.chopped(4).toInt(), pdfText(folder.filePath(file)));
    return texts.values();
}

qsizetype PrintServer::waitingJobs(const QString &queue)
{
    return outputOf(u"lpstat"_s, {u"-o"_s, queue}).count('\n');
}

QString pdfText(const QString &file, const QStringList &options)
{
    return QString::fromUtf8(outputOf(u"pdftotext"_s, options + QStringList{file, u"-"_s}));
}
